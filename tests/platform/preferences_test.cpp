#include "platform/preferences.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include "platform/folders.h"
#include "support/files.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

class PreferencesTest : public ::testing::Test {
 protected:
  QTemporaryDir folder;
  const QString file = folder.filePath(u"sub folder/settings.ini"_s);
  const QString key = u"progress-0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C"_s;
  /// In each run of the program, as it ends.
  std::unique_ptr<Preferences> preferences = std::make_unique<Preferences>(file);
  void startAgain() {
    preferences.reset();
    preferences = std::make_unique<Preferences>(file);
  }
};

TEST_F(PreferencesTest, ValuesAreThereInTheNextRunUntilTheyAreRemoved) {
  const NumberLists progress{{u"movies:12"_s, {5380, 5410.25}}};
  const QStringList favorites{u"live:1"_s, u"ünï=,;\"%/\\ x"_s};
  preferences->setText(u"vantor.server"_s, u"http://old"_s);
  preferences->setText(u"vantor.server"_s, u"http://127.0.0.1:80"_s);
  preferences->setTextList(u"favorites-A"_s, favorites);
  preferences->setNumberLists(key, progress);
  EXPECT_EQ(preferences->numberLists(key), progress);
  startAgain();
  EXPECT_EQ(preferences->text(u"vantor.server"_s), u"http://127.0.0.1:80"_s);
  EXPECT_EQ(preferences->textList(u"favorites-A"_s), favorites);
  EXPECT_EQ(preferences->numberLists(key), progress);
  preferences->remove(key);
  EXPECT_TRUE(preferences->numberLists(key).isEmpty());
  startAgain();
  EXPECT_TRUE(preferences->numberLists(key).isEmpty());
  EXPECT_EQ(preferences->text(key), std::nullopt);
}

TEST_F(PreferencesTest, TheLastValueIsTheOneThatStays) {
  // Long enough that the first write is still going on when the last one begins.
  const QString first = QString(4'000'000, u'a');
  for (unsigned long run = 0; run < 5; ++run) {
    preferences->setText(key, first);
    settle();
    QThread::msleep(2 * run);
    preferences->setText(key, u"b"_s);
    startAgain();
    EXPECT_EQ(preferences->text(key), u"b"_s) << "run " << run;
  }
}

TEST_F(PreferencesTest, WhatIsSetTogetherIsWrittenTogether) {
  for (int number = 0; number < 50; ++number) {
    preferences->setText(u"first"_s, QString::number(number));
    QThread::usleep(500);  // what an earlier one began could be written now
    preferences->setText(u"second"_s, QString::number(number));
    // As the next run finds it: in this one QSettings has a memory.
    const QByteArrayList rows = readFile(file).split('\n');
    ASSERT_EQ(rows.value(1).split('=').value(1), rows.value(2).split('=').value(1));
    settle();
  }
}

TEST_F(PreferencesTest, WritesOnlyWhatChanges) {
  preferences->setText(key, u"same"_s);
  startAgain();
  ASSERT_TRUE(QFile::remove(file));
  preferences->setText(key, u"same"_s);
  preferences->remove(u"never there"_s);
  preferences.reset();
  EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PreferencesTest, AreTheirOwnersOnlyWhoeverMadeTheFile) {
  const QString parent = QFileInfo(file).path();
  const QFile::Permissions everyone(0x0777);
  const QFile::Permissions others(0x0077);
  preferences->setText(key, u"new"_s);
  preferences.reset();
  EXPECT_FALSE((QFile::permissions(file) | QFile::permissions(parent)) & others);
  for (const QString& path : {file, parent}) ASSERT_TRUE(QFile::setPermissions(path, everyone));
  preferences = std::make_unique<Preferences>(file);
  EXPECT_FALSE((QFile::permissions(file) | QFile::permissions(parent)) & others);
}

TEST_F(PreferencesTest, DamagedValuesReadAsAbsent) {
  writeFile(file,
            "[General]\nfavorites-A=\"[\\\"live:1\\\",7]\"\nvantor.server=@ByteArray(\\x0)\n" +
                key.toLatin1() + "=\"{\\\"movies:1\\\":[1,\\\"x\\\"]}\"\n" + '\0' +
                "\xff garbage [[[\n");
  startAgain();
  EXPECT_TRUE(preferences->textList(u"favorites-A"_s).isEmpty());
  EXPECT_EQ(preferences->text(u"vantor.server"_s), std::nullopt);
  EXPECT_TRUE(preferences->numberLists(key).isEmpty());
}

TEST(Folders, ThoseWhoseVariablesNameNoAbsolutePathAreTheUsualOnes) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  for (const auto& [named, folder] :
       {std::pair("/tmp/a/", u"/tmp/a"_s), {"a/b", QDir::homePath() + u"/.config"_s}}) {
    qputenv("XDG_CONFIG_HOME", named);
    EXPECT_EQ(Folders::ofUser().preferencesFile(), folder + u"/Vantor Player/preferences.ini"_s);
  }
  qputenv("XDG_CONFIG_HOME", before);
}

}  // namespace
}  // namespace vantor::test
