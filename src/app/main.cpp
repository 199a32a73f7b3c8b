#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQuickStyle>
#include <clocale>
#include <cstdio>

#include "app/program.h"
#include "app/quit_limit.h"

namespace {

using vantor::LaunchArguments;

LaunchArguments launchArguments(const QStringList& arguments) {
  return LaunchArguments::read(arguments, vantor::ServiceValues::ofBuild().bundleIdentifier);
}

/// `--help` and `--version` need no display, and so no QGuiApplication, which takes Qt's arguments
/// out. Whether they were asked for, and answered.
bool isAnswered(int argc, char** argv) {
  QStringList all;
  for (int i = 0; i < argc; ++i) all.append(QString::fromLocal8Bit(argv[i]));
  const LaunchArguments launch = launchArguments(all);
  if (launch.task == LaunchArguments::Task::play) return false;
  const QCoreApplication application(argc, argv);
  const QString answer = launch.task == LaunchArguments::Task::tellHelp
                             ? LaunchArguments::help()
                             : QStringLiteral("vantor " VANTOR_VERSION "\n");
  std::fputs(qUtf8Printable(answer), stdout);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication::setApplicationName(QStringLiteral("vantor"));
  QGuiApplication::setApplicationVersion(QStringLiteral(VANTOR_VERSION));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Vantor Player"));
  QGuiApplication::setDesktopFileName(QStringLiteral(VANTOR_BUNDLE_ID));
  if (argc > 1 && isAnswered(argc, argv)) return 0;
  const QGuiApplication application(argc, argv);
  const LaunchArguments launch = launchArguments(QGuiApplication::arguments());
  if (!launch.mistake.isEmpty()) {
    std::fprintf(stderr, "vantor: %s See --help.\n", qUtf8Printable(launch.mistake));
    return 1;
  }
  if (launch.verbose) QLoggingCategory::setFilterRules(QStringLiteral("vantor.*=true"));
  // libVLC's decoders read numbers with the C library, which Qt has given the user's locale.
  std::setlocale(LC_NUMERIC, "C");
  // Quitting waits for playback; see AppDelegate.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(QStringLiteral("Basic"));
  vantor::Program program(launch);
  program.open();
  const int status = QGuiApplication::exec();
  vantor::limitQuitting(status, std::chrono::seconds(4));
  return status;
}
