#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQuickStyle>
#include <clocale>
#include <cstdio>

#include "app/program.h"
#include "app/quit_limit.h"

namespace {

constexpr char usage[] =
    "Usage: vantor [--demo | --smoke-test FILE] [--verbose]\n"
    "Watch Vantor TV: channels, movies and shows.\n\n"
    "  --demo             show a sample library, without an account\n"
    "  --smoke-test FILE  play a media file\n"
    "  --verbose          tell on standard error what fails, and how\n"
    "  --version          say which version this is\n"
    "  --help             say this\n";

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const QByteArrayView argument(argv[i]);
    if (argument == "--help" || argument == "--version") {
      std::fputs(argument == "--help" ? usage : "vantor " VANTOR_VERSION "\n", stdout);
      return 0;
    }
  }
  QGuiApplication::setApplicationName(QStringLiteral("vantor"));
  QGuiApplication::setApplicationVersion(QStringLiteral(VANTOR_VERSION));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Vantor Player"));
  QGuiApplication::setDesktopFileName(QStringLiteral(VANTOR_BUNDLE_ID));
  const QGuiApplication application(argc, argv);
  if (QGuiApplication::arguments().contains(QStringLiteral("--verbose")))
    QLoggingCategory::setFilterRules(QStringLiteral("vantor.*=true"));
  // libVLC's decoders read numbers with the C library, which Qt has given the user's locale.
  std::setlocale(LC_NUMERIC, "C");
  // Quitting waits for playback; see AppDelegate.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(QStringLiteral("Basic"));
  vantor::Program program(vantor::LaunchArguments::read(
      QGuiApplication::arguments(), vantor::ServiceValues::ofBuild().bundleIdentifier));
  program.open();
  const int status = QGuiApplication::exec();
  vantor::limitQuitting(status, std::chrono::seconds(4));
  return status;
}
