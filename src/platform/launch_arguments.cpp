#include "platform/launch_arguments.h"

#include <QCommandLineParser>
#include <QDir>

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

struct Parser : QCommandLineParser {
  const QCommandLineOption demo{u"demo"_s, u"Show a sample library, without an account."_s};
  const QCommandLineOption diagnose{
      u"diagnose"_s, u"Tell what a report of a fault needs, without names and addresses."_s};
  const QCommandLineOption show{
      u"show"_s, u"Begin with live, movies, shows, search or list (yours)."_s, u"SECTION"_s};
  const QCommandLineOption smokeTest{
      u"smoke-test"_s, u"Play a media file, without account and settings."_s, u"FILE"_s};
  const QCommandLineOption verbose{u"verbose"_s, u"Tell on standard error what fails, and how."_s};
  const QCommandLineOption version{u"version"_s, u"Say which version this is."_s};
  const QCommandLineOption help{u"help"_s, u"Say this."_s};

  Parser() {
    setApplicationDescription(u"Watch Vantor TV: channels, movies and shows."_s);
    setSingleDashWordOptionMode(ParseAsLongOptions);
    addOptions({demo, diagnose, show, smokeTest, verbose, version, help});
    addPositionalArgument(u"FILE"_s, u"A media file to play."_s, u"[FILE]"_s);
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
    launch.mistake = u"One file can be played at a time."_s;
  else if (!files.isEmpty() && launch.file.isEmpty())
    launch.mistake = u"Only files of this machine can be played."_s;
  return launch;
}

QString LaunchArguments::help() {
  return Parser().helpText();
}

}  // namespace vantor
