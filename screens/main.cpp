// Pictures of every screen in every state: the real window, against simulated providers that serve,
// wait and fail as asked.
#include <QAccessible>
#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QQuickStyle>
#include <QStyleHints>
#include <clocale>
#include <cstdio>
#include <exception>

#include "scenes/scenes.h"
#include "test_language.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  using namespace vantor::screens;
  const QGuiApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(u"Basic"_s);
  QAccessible::setActive(true);
  // A cursor that blinks would be there at times.
  QGuiApplication::styleHints()->setCursorFlashTime(0);
  QCommandLineParser parser;
  const QCommandLineOption inLanguage(u"language"_s, {}, u"CODE"_s, u"en"_s);
  parser.addOption(inLanguage);
  parser.process(application);
  const QStringList arguments = parser.positionalArguments();
  if (arguments.isEmpty() || !QDir().mkpath(arguments.front())) {
    std::fputs("Usage: vantor_screens FOLDER [NAME] [--language de|fr|es|ar|pseudo]\n", stderr);
    return 2;
  }
  const TestLanguage language(parser.value(inLanguage));
  Album album;
  album.folder = arguments.front();
  album.filter = arguments.value(1);
  constexpr std::pair<const char*, void (*)(Album&)> scenes[] = {{"sign-in", signIn},
                                                                 {"shell", shell},
                                                                 {"channels", channelGuide},
                                                                 {"player", player},
                                                                 {"posters", posters},
                                                                 {"episodes", episodes},
                                                                 {"search and list", searchAndList},
                                                                 {"settings", settings}};
  int failures = 0;
  for (const auto& [name, scene] : scenes) {
    try {
      scene(album);
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "%s: %s\n", name, failure.what());
      ++failures;
    }
  }
  std::printf("worst contrast: %.2f, at least %.1f: \"%s\" in %s\n", album.worst.ratio,
              album.worst.least, qPrintable(album.worst.text), qPrintable(album.worstPicture));
  return failures == 0 && album.faintTexts == 0 ? 0 : 1;
}
