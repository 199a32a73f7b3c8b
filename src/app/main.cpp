#include <QGuiApplication>
#include <QLocale>
#include <QLoggingCategory>
#include <QPointingDevice>
#include <QQuickStyle>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <memory>
#include <optional>

#include "app/language.h"
#include "app/program.h"
#include "app/quit_limit.h"
#include "core/section.h"
#include "desktop/application_object.h"
#include "desktop/one_program.h"
#include "diagnosis/core_dumps.h"
#include "diagnosis/crash_handler.h"
#include "diagnosis/crash_reports.h"
#include "diagnosis/diagnosis.h"
#include "diagnosis/report.h"
#include "diagnosis/versions.h"
#include "platform/memory.h"

using namespace Qt::StringLiterals;

namespace {

using vantor::LaunchArguments;

LaunchArguments launchArguments(const QStringList& arguments) {
  LaunchArguments launch =
      LaunchArguments::read(arguments, vantor::ServiceValues::ofBuild().bundleIdentifier);
  if (launch.mistake.isEmpty() && !launch.show.isEmpty() && !vantor::sectionNamed(launch.show))
    launch.mistake = u"There is no section '%1'."_s.arg(launch.show);
  return launch;
}

/// `--help`, `--version` and `--diagnose` need no display, and so no QGuiApplication. Whether they
/// were asked for, and answered.
bool isAnswered(const LaunchArguments& launch, int argc, char** argv) {
  if (launch.task == LaunchArguments::Task::play) return false;
  if (launch.task == LaunchArguments::Task::diagnose) {
    vantor::diagnose(argc, argv, std::chrono::seconds(5));
    return true;
  }
  const QCoreApplication application(argc, argv);
  const QString answer = launch.task == LaunchArguments::Task::tellHelp
                             ? LaunchArguments::help()
                             : QStringLiteral("vantor " VANTOR_VERSION "\n");
  std::fputs(qUtf8Printable(answer), stdout);
  return true;
}

/// Whether Qt will find no display, and abort.
bool hasNoDisplay(const QStringList& typed) {
  const char* const variables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  const QString options[] = {u"-platform"_s, u"--platform"_s, u"-display"_s, u"--display"_s};
  return std::ranges::all_of(variables, qEnvironmentVariableIsEmpty) &&
         std::ranges::none_of(options,
                              [&](const QString& option) { return typed.contains(option); });
}

QByteArray aboutThisRun() {
  QString about = u"Vantor Player ended unexpectedly\n"_s;
  for (const auto& [name, value] : vantor::versions())
    about += name + u": "_s + vantor::withoutHome(value) + QLatin1Char('\n');
  return about.toUtf8();
}

/// The desktop's leave to come to the front, which Qt takes out of the environment.
QByteArray activationToken() {
  const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
  return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

}  // namespace

int main(int argc, char** argv) {
  vantor::preventCoreDumps();
  vantor::prepareHeap();
  QGuiApplication::setApplicationName(u"vantor"_s);
  QGuiApplication::setApplicationVersion(QStringLiteral(VANTOR_VERSION));
  QGuiApplication::setApplicationDisplayName(u"Vantor Player"_s);
  QGuiApplication::setDesktopFileName(QStringLiteral(VANTOR_BUNDLE_ID));
  QStringList typed;
  for (int i = 0; i < argc; ++i) typed.append(QString::fromLocal8Bit(argv[i]));
  LaunchArguments launch = launchArguments(typed);
  if (isAnswered(launch, argc, argv)) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return 0;
    std::perror("vantor");
    return 1;
  }
  // Whether there was one to tell.
  const auto tellMistake = [&launch] {
    if (launch.mistake.isEmpty()) return false;
    std::fprintf(stderr, "vantor: %s See --help.\n", qUtf8Printable(launch.mistake));
    return true;
  };
  if (hasNoDisplay(typed) && tellMistake()) return 1;
  const QByteArray token = activationToken();
  const auto object = std::make_shared<vantor::ApplicationObject>();
  std::optional<vantor::OneProgram> one;
  const auto askForOthers = [&] {
    if (!launch.isolated && launch.mistake.isEmpty() && !one)
      one.emplace(QStringLiteral(VANTOR_BUNDLE_ID), object);
  };
  // The bus answers while the application finds its display.
  askForOthers();
  // A mouse that Qt knows before it meets a compositor: it takes a touchpad's gestures for the only
  // pointer there otherwise, and each click for a finger's, which has all buttons.
  QPointingDevice::primaryPointingDevice();
  const QGuiApplication application(argc, argv);
  // Without what is Qt's, which could have been mistakes before.
  launch = launchArguments(QGuiApplication::arguments());
  if (tellMistake()) return 1;
  askForOthers();
  if (one && one->handOver(launch, token)) return 0;
  // From here on: without a display Qt aborts, which it says itself.
  if (!launch.isolated)
    vantor::reportCrashes(vantor::crash_reports::ofThisRun(vantor::Folders::ofUser().notes()),
                          aboutThisRun());
  if (launch.verbose) QLoggingCategory::setFilterRules(u"vantor.*=true"_s);
  // libVLC's decoders read numbers with the C library, which Qt has given the user's locale.
  std::setlocale(LC_NUMERIC, "C");
  // Quitting waits for playback; see AppDelegate.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const vantor::Language language(QLocale::system().uiLanguages());
  QQuickStyle::setStyle(u"Basic"_s);
  vantor::Program program(launch);
  program.obey(*object);
  QObject::connect(&program, &vantor::Program::quitting, &program, [&] {
    if (one) one->leave();
  });
  program.open();
  const int status = QGuiApplication::exec();
  vantor::limitQuitting(status, std::chrono::seconds(4));
  return status;
}
