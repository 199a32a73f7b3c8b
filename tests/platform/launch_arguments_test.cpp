#include <gtest/gtest.h>

#include <QDir>

#include "platform/launch_arguments.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

LaunchArguments read(const QStringList& arguments) {
  return LaunchArguments::read(QStringList{u"vantor"_s} + arguments, u"tv.vantor.player"_s);
}

TEST(LaunchArguments, AreReadAsDocumented) {
  EXPECT_FALSE(read({}).isolated);
  EXPECT_TRUE(LaunchArguments::read({u"vantor"_s}, u"tv.vantor.player.qa"_s).demo);
  EXPECT_TRUE(read({u"--demo"_s, u"--verbose"_s}).verbose);
  const LaunchArguments withoutFile = read({u"--smoke-test"_s});
  EXPECT_TRUE(withoutFile.isolated && !withoutFile.demo && !withoutFile.smokeTest);
  EXPECT_EQ(withoutFile.mistake, QString());
  const LaunchArguments twice = read({u"--smoke-test"_s, u"a b"_s, u"--smoke-test"_s, u"-c"_s});
  EXPECT_EQ(twice.smokeTest, u"a b"_s);
  EXPECT_EQ(twice.mistake, QString());
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
    EXPECT_FALSE(launch.isolated);
  }
  EXPECT_FALSE(read({u"a.mkv"_s, u"b.mkv"_s}).mistake.isEmpty());
  EXPECT_EQ(read({u"--show"_s, u"movies"_s, u"--"_s, u"--demo"_s}).file.fileName(), u"--demo"_s);
  EXPECT_EQ(read({u"--show"_s, u"movies"_s}).show, u"movies"_s);
  EXPECT_FALSE(read({u"--show"_s}).mistake.isEmpty());
}

TEST(LaunchArguments, MistakesAreToldByName) {
  for (const QStringList& arguments :
       {QStringList{u"--demmo"_s}, {u"-platform"_s}, {u"--demmo"_s, u"--smoke-test"_s}}) {
    const QString mistake = read(arguments).mistake;
    EXPECT_FALSE(mistake.isEmpty()) << arguments.front().toStdString();
  }
  EXPECT_TRUE(read({u"--demmo"_s}).mistake.contains(u"demmo"_s));
}

TEST(LaunchArguments, HelpAndVersionAreAskedForBesideArgumentsOfTheToolkit) {
  using Task = LaunchArguments::Task;
  EXPECT_EQ(read({u"--demo"_s}).task, Task::play);
  // A path is a path.
  EXPECT_EQ(read({u"-reverse"_s, u"--smoke-test"_s, u"--help"_s}).task, Task::play);
  EXPECT_EQ(read({u"-platform"_s, u"offscreen"_s, u"--help"_s}).task, Task::tellHelp);
  EXPECT_EQ(read({u"-reverse"_s, u"--version"_s}).task, Task::tellVersion);
}

}  // namespace
}  // namespace vantor::test
