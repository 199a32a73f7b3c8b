#include "platform/launch_arguments.h"

#include <QCommandLineParser>

namespace vantor {
namespace {

struct Parser : QCommandLineParser {
  const QCommandLineOption demo{QStringLiteral("demo"),
                                QStringLiteral("Show a sample library, without an account.")};
  const QCommandLineOption smokeTest{QStringLiteral("smoke-test"),
                                     QStringLiteral("Play a media file."), QStringLiteral("FILE")};
  const QCommandLineOption verbose{QStringLiteral("verbose"),
                                   QStringLiteral("Tell on standard error what fails, and how.")};
  const QCommandLineOption version{QStringLiteral("version"),
                                   QStringLiteral("Say which version this is.")};
  const QCommandLineOption help{QStringLiteral("help"), QStringLiteral("Say this.")};

  Parser() {
    setApplicationDescription(QStringLiteral("Watch Vantor TV: channels, movies and shows."));
    setSingleDashWordOptionMode(ParseAsLongOptions);
    addOptions({demo, smokeTest, verbose, version, help});
  }
};

}  // namespace

LaunchArguments LaunchArguments::read(const QStringList& arguments,
                                      const QString& bundleIdentifier) {
  Parser parser;
  const bool understood = parser.parse(arguments);
  const bool smoke = parser.isSet(parser.smokeTest);
  const QStringList files = parser.values(parser.smokeTest);
  LaunchArguments launch;
  if (parser.isSet(parser.help)) {
    launch.task = Task::tellHelp;
  } else if (parser.isSet(parser.version)) {
    launch.task = Task::tellVersion;
  }
  launch.demo = parser.isSet(parser.demo) || bundleIdentifier.endsWith(QLatin1String(".qa"));
  launch.isolated = launch.demo || smoke;
  launch.verbose = parser.isSet(parser.verbose);
  if (!files.isEmpty()) launch.smokeTest = files.front();
  // Without its file it still asks for an isolated run.
  const bool onlyFileIsMissing = smoke && files.isEmpty() && parser.unknownOptionNames().isEmpty();
  if (!understood && !onlyFileIsMissing) launch.mistake = parser.errorText();
  return launch;
}

QString LaunchArguments::help() {
  return Parser().helpText();
}

}  // namespace vantor
