#include "platform/launch_arguments.h"

#include <gtest/gtest.h>

#include <QDir>

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

LaunchArguments read(const QStringList& arguments) {
  return LaunchArguments::read(QStringList{u"vantor"_s} + arguments, u"tv.vantor.player"_s);
}

/// What was understood of a command line, in words.
QString understood(const QString& line) {
  using enum LaunchArguments::Task;
  const LaunchArguments launch = read(line.split(u' ', Qt::SkipEmptyParts));
  QStringList words;
  if (launch.task != play) words.append(launch.task == tellHelp ? u"help"_s : u"version"_s);
  if (launch.demo) words.append(u"demo"_s);
  if (launch.isolated) words.append(u"isolated"_s);
  if (launch.verbose) words.append(u"verbose"_s);
  if (launch.smokeTest) words.append(u"plays "_s + *launch.smokeTest);
  if (!launch.show.isEmpty()) words.append(u"shows "_s + launch.show);
  if (!launch.file.isEmpty()) words.append(u"opens "_s + launch.file.fileName());
  if (!launch.mistake.isEmpty()) words.append(u"mistaken"_s);
  return words.join(u", "_s);
}

TEST(LaunchArguments, AreReadAsDocumented) {
  const std::pair<QString, QString> cases[] = {
      {{}, {}},
      {u"--demo --verbose"_s, u"demo, isolated, verbose"_s},
      {u"--smoke-test"_s, u"isolated"_s},
      {u"--smoke-test a --smoke-test -c"_s, u"isolated, plays a"_s},
      {u"--show movies"_s, u"shows movies"_s},
      {u"--show movies -- --demo"_s, u"shows movies, opens --demo"_s},
      {u"--show"_s, u"mistaken"_s},
      {u"a.mkv b.mkv"_s, u"opens a.mkv, mistaken"_s},
      {u"--demmo"_s, u"mistaken"_s},
      {u"-platform"_s, u"mistaken"_s},
      {u"--demmo --smoke-test"_s, u"isolated, mistaken"_s},
      {u"-reverse --smoke-test --help"_s, u"isolated, plays --help, mistaken"_s},
      {u"-platform offscreen --help"_s, u"help, opens offscreen, mistaken"_s},
      {u"-reverse --version"_s, u"version, mistaken"_s},
  };
  for (const auto& [line, expected] : cases)
    EXPECT_EQ(understood(line), expected) << line.toStdString();
  EXPECT_TRUE(read({u"--demmo"_s}).mistake.contains(u"demmo"_s)) << "is told by name";
  EXPECT_TRUE(LaunchArguments::read({u"vantor"_s}, u"tv.vantor.player.qa"_s).demo);
}

TEST(LaunchArguments, AFileIsAPathOrItsAddress) {
  const QString here = QDir::currentPath();
  const std::pair<QString, QString> cases[] = {
      {u"/media/a film.mkv"_s, u"/media/a film.mkv"_s},
      {u"film.mkv"_s, here + u"/film.mkv"_s},
      {u"a%20b#c?d.mkv"_s, here + u"/a%20b#c?d.mkv"_s},
      {u"file:///media/a%20film.mkv"_s, u"/media/a film.mkv"_s},
      {u"FILE:///media/b.mkv"_s, u"/media/b.mkv"_s},
      {u"file:film.mkv"_s, here + u"/film.mkv"_s},
      {QString(100'000, u'x'), here + u'/' + QString(100'000, u'x')},
      {QString::fromLocal8Bit("\xff\xfe.mkv"), here + u"/\ufffd\ufffd.mkv"_s},
      {u"http://tv.example/1.ts"_s, {}},
      {u"rtsp://tv.example"_s, {}},
      {u"file:///media/%00"_s, {}},
  };
  for (const auto& [argument, path] : cases) {
    const LaunchArguments launch = read({argument});
    EXPECT_EQ(launch.file.toLocalFile(), path) << argument.left(80).toStdString();
    EXPECT_EQ(launch.mistake.isEmpty(), !path.isEmpty()) << argument.left(80).toStdString();
  }
}

}  // namespace
}  // namespace vantor::test
