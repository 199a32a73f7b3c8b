#include "platform/preferences.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

namespace vantor {
namespace {

class PreferencesTest : public ::testing::Test {
 protected:
  QTemporaryDir folder;
  QString file = folder.filePath(QStringLiteral("sub folder/settings.ini"));
  const QString key = QStringLiteral("progress-0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C");
};

TEST_F(PreferencesTest, ValuesAreThereInTheNextRun) {
  const NumberLists progress{{QStringLiteral("movies:12"), {5380, 5410.25}}};
  const QStringList favorites{QStringLiteral("live:1"), QStringLiteral("ünï=,;\"%/\\ x")};
  {
    Preferences preferences(file);
    preferences.setText(QStringLiteral("vantor.server"), QStringLiteral("http://old"));
    preferences.setText(QStringLiteral("vantor.server"), QStringLiteral("http://127.0.0.1:80"));
    preferences.setTextList(QStringLiteral("favorites-A"), favorites);
    preferences.setNumberLists(key, progress);
    EXPECT_EQ(preferences.numberLists(key), progress);
  }
  const Preferences preferences(file);
  EXPECT_EQ(preferences.text(QStringLiteral("vantor.server")),
            QStringLiteral("http://127.0.0.1:80"));
  EXPECT_EQ(preferences.textList(QStringLiteral("favorites-A")), favorites);
  EXPECT_EQ(preferences.numberLists(key), progress);
  EXPECT_EQ(preferences.text(QStringLiteral("missing")), std::nullopt);
}

TEST_F(PreferencesTest, TheLastValueIsTheOneThatStays) {
  // Long enough that the first write is still going on when the last one begins.
  const QString first = QString(4'000'000, u'a');
  const QString last = QStringLiteral("b");
  for (unsigned long run = 0; run < 5; ++run) {
    {
      Preferences preferences(file);
      preferences.setText(key, first);
      QThread::msleep(2 * run);
      preferences.setText(key, last);
    }
    EXPECT_EQ(Preferences(file).text(key), last) << "run " << run;
  }
}

TEST_F(PreferencesTest, WritesOnlyWhatChanges) {
  { Preferences(file).setText(key, QStringLiteral("same")); }
  {
    Preferences preferences(file);
    ASSERT_TRUE(QFile::remove(file));
    preferences.setText(key, QStringLiteral("same"));
    preferences.remove(QStringLiteral("never there"));
  }
  EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PreferencesTest, ARemovedValueStaysAway) {
  {
    Preferences preferences(file);
    preferences.setText(key, QStringLiteral("x"));
  }
  {
    Preferences preferences(file);
    preferences.remove(key);
    EXPECT_EQ(preferences.text(key), std::nullopt);
  }
  EXPECT_EQ(Preferences(file).text(key), std::nullopt);
}

TEST_F(PreferencesTest, DamagedValuesReadAsAbsent) {
  QDir().mkpath(folder.filePath(QStringLiteral("sub folder")));
  QFile raw(file);
  ASSERT_TRUE(raw.open(QFile::WriteOnly));
  raw.write("[General]\nfavorites-A=\"[\\\"live:1\\\",7]\"\nvantor.server=@ByteArray(\\x0)\n" +
            key.toLatin1() + "=\"{\\\"movies:1\\\":[1,\\\"x\\\"]}\"\n" + '\0' +
            "\xff garbage [[[\n");
  raw.close();
  const Preferences preferences(file);
  EXPECT_TRUE(preferences.textList(QStringLiteral("favorites-A")).isEmpty());
  EXPECT_EQ(preferences.text(QStringLiteral("vantor.server")), std::nullopt);
  EXPECT_TRUE(preferences.numberLists(key).isEmpty());
}

}  // namespace
}  // namespace vantor
