#include "platform/launch_arguments.h"

#include <QCommandLineParser>
#include <QDir>

namespace vantor {
namespace {

struct Parser : QCommandLineParser {
  const QCommandLineOption demo{QStringLiteral("demo"),
                                QStringLiteral("Show a sample library, without an account.")};
  const QCommandLineOption diagnose{
      QStringLiteral("diagnose"),
      QStringLiteral("Tell what a report of a fault needs, without names and addresses.")};
  const QCommandLineOption show{
      QStringLiteral("show"),
      QStringLiteral("Begin with live, movies, shows, search or list (yours)."),
      QStringLiteral("SECTION")};
  const QCommandLineOption smokeTest{
      QStringLiteral("smoke-test"),
      QStringLiteral("Play a media file, without account and settings."), QStringLiteral("FILE")};
  const QCommandLineOption verbose{QStringLiteral("verbose"),
                                   QStringLiteral("Tell on standard error what fails, and how.")};
  const QCommandLineOption version{QStringLiteral("version"),
                                   QStringLiteral("Say which version this is.")};
  const QCommandLineOption help{QStringLiteral("help"), QStringLiteral("Say this.")};

  Parser() {
    setApplicationDescription(QStringLiteral("Watch Vantor TV: channels, movies and shows."));
    setSingleDashWordOptionMode(ParseAsLongOptions);
    addOptions({demo, diagnose, show, smokeTest, verbose, version, help});
    addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("A media file to play."),
                          QStringLiteral("[FILE]"));
  }
};

/// Empty when it is the address of something else.
QUrl fileOf(const QString& argument) {
  const bool isURL = argument.startsWith(QLatin1String("file:"), Qt::CaseInsensitive);
  const QUrl url(isURL ? argument : QString());
  if (isURL ? !url.isLocalFile() : argument.contains(QLatin1String("://"))) return {};
  const QString path = isURL ? url.toLocalFile() : argument;
  if (path.contains(QChar::Null)) return {};
  return QUrl::fromLocalFile(QDir::current().absoluteFilePath(path));
}

}  // namespace

LaunchArguments LaunchArguments::read(const QStringList& arguments,
                                      const QString& bundleIdentifier) {
  Parser parser;
  const bool understood = parser.parse(arguments);
  const bool smoke = parser.isSet(parser.smokeTest);
  const QStringList tested = parser.values(parser.smokeTest);
  LaunchArguments launch;
  if (parser.isSet(parser.help)) {
    launch.task = Task::tellHelp;
  } else if (parser.isSet(parser.version)) {
    launch.task = Task::tellVersion;
  } else if (parser.isSet(parser.diagnose)) {
    launch.task = Task::diagnose;
  }
  launch.demo = parser.isSet(parser.demo) || bundleIdentifier.endsWith(QLatin1String(".qa"));
  launch.isolated = launch.demo || smoke;
  launch.verbose = parser.isSet(parser.verbose);
  if (!tested.isEmpty()) launch.smokeTest = tested.front();
  // Without its file it still asks for an isolated run.
  const bool onlyFileIsMissing = smoke && tested.isEmpty() && parser.unknownOptionNames().isEmpty();
  launch.show = parser.value(parser.show);
  const QStringList files = parser.positionalArguments();
  if (!files.isEmpty()) launch.file = fileOf(files.front());
  if (!understood && !onlyFileIsMissing)
    launch.mistake = parser.errorText();
  else if (files.size() > 1)
    launch.mistake = QStringLiteral("One file can be played at a time.");
  else if (!files.isEmpty() && launch.file.isEmpty())
    launch.mistake = QStringLiteral("Only files of this machine can be played.");
  return launch;
}

QString LaunchArguments::help() {
  return Parser().helpText();
}

}  // namespace vantor
