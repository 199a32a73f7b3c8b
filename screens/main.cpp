// Pictures of every screen in every state: the real window, against simulated providers that serve,
// wait and fail as asked.  vantor_screens FOLDER [NAME]
#include <QAccessible>
#include <QDir>
#include <QGuiApplication>
#include <QQuickStyle>
#include <clocale>
#include <cstdio>
#include <exception>

#include "scenes/scenes.h"

int main(int argc, char** argv) {
  using namespace vantor::screens;
  const QGuiApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(QStringLiteral("Basic"));
  QAccessible::setActive(true);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 2 || !QDir().mkpath(arguments.at(1))) {
    std::fputs("Usage: vantor_screens FOLDER [NAME]\n", stderr);
    return 2;
  }
  Album album{arguments.at(1), arguments.value(2)};
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
  return failures == 0 ? 0 : 1;
}
