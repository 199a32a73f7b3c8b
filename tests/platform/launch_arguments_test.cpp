#include <gtest/gtest.h>

#include "platform/launch_arguments.h"

namespace vantor {
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
}  // namespace vantor
