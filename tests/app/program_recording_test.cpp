// Recording by D-Bus in the program as a process, and what is left of it when the process ends.
#include <QDBusConnection>
#include <QDBusMessage>

#include "program_fixture.h"
#include "support/test_media.h"

namespace vantor::test {
namespace {

class ProgramRecordingTest : public ProgramFixture {
 protected:
  const QDir recordings{home.filePath(u"data/Vantor Player/Recordings"_s)};

  static QDBusMessage call(const QString& method) {
    return QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        ServiceValues::ofBuild().bundleIdentifier, u"/tv/vantor/player/Recording"_s,
        u"tv.vantor.player.Recording"_s, method));
  }
  static bool succeeds(const QString& method) {
    return call(method).type() == QDBusMessage::ReplyMessage;
  }
  /// Plays the file and starts to record it.
  testing::AssertionResult recordsFrom(const QString& file) {
    if (!start({file})) return testing::AssertionFailure() << "no process";
    // It plays once it can be recorded.
    if (!eventually([] { return succeeds(u"Start"_s); }))
      return testing::AssertionFailure() << call(u"Start"_s).errorMessage().toStdString();
    return testing::AssertionSuccess();
  }
  QFileInfo recording() const {
    const QFileInfoList files = recordings.entryInfoList(QDir::Files, QDir::Time);
    return files.isEmpty() ? QFileInfo() : files.first();
  }
  bool grows(qint64 bytes) {
    return eventually([&] { return recording().size() > bytes; });
  }
  static bool isWhole(const QFileInfo& file) {
    const Probed found = probe(file.filePath());
    return found.pictures.size() == 1 && found.sounds.size() == 1 && found.seconds > 1;
  }
};

TEST_F(ProgramRecordingTest, QuittingFinishesTheFile) {
  for (const char* source : {"channel0.ts", "movie.mkv"}) {
    for (const bool saving : {false, true}) {
      SCOPED_TRACE(std::string(source) + (saving ? " saving" : ""));
      ASSERT_TRUE(recordsFrom(media(source)));
      // The engine keeps what is no transport stream in memory at first, so no file shows how far
      // it is, and begins with a key picture, which come every two seconds.
      program.waitForReadyRead(4'500);
      EXPECT_TRUE(!saving || succeeds(u"Stop"_s));
      EXPECT_EQ(quit(), 0);
      EXPECT_EQ(recordings.entryList(QDir::Files).size(), 1);
      EXPECT_TRUE(recording().fileName().startsWith(u"Vantor-"_s))
          << recording().fileName().toStdString();
      EXPECT_TRUE(isWhole(recording()));
      EXPECT_TRUE(QFile::remove(recording().filePath()));
    }
  }
}

TEST_F(ProgramRecordingTest, KilledLeavesAFileThatPlays) {
  ASSERT_TRUE(recordsFrom(media("channel0.ts")));
  ASSERT_TRUE(grows(1'000'000));
  const qint64 size = recording().size();
  QProcess second;
  startToo(second, {u"--demo"_s});
  second.waitForReadyRead(2000);
  kill(second);
  EXPECT_TRUE(succeeds(u"ListRecordings"_s)) << "a second window takes nothing from the first";

  kill(program);
  const QFileInfo left = recording();
  EXPECT_GE(left.size(), size);
  EXPECT_TRUE(isWhole(left));
  ASSERT_TRUE(recordsFrom(left.filePath())) << "the player plays it";
  EXPECT_TRUE(
      call(u"ListRecordings"_s).arguments().value(0).toStringList().contains(left.filePath()));
}

}  // namespace
}  // namespace vantor::test
