#include <QFile>

#include "playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

const QString refusal = u"Stop recording before changing sources."_s;
const QString noFile = u"No recording file was produced. This source may not support recording."_s;

class RecordingTest : public PlaybackFixture {
 protected:
  const QString folder = temporary.path() + u"/data/Vantor Player/Recordings"_s;

  void SetUp() override {
    PlaybackFixture::SetUp();
    openPlaying(channel(u"1"_s));
    engine.now.recordable = true;
    engine.takeCalls();
  }

  void begin() {
    if (!playback.source()) openPlaying(channel(u"1"_s));
    engine.now.recordable = true;
    playback.startRecording();
    ASSERT_EQ(playback.recording().stage(), Recording::Stage::running);
  }

  QStringList names() {
    QStringList list;
    for (const QUrl& file : playback.recording().files()) list.append(file.fileName());
    return list;
  }
};

TEST_F(RecordingTest, IsSavedUnderANameThatSortsByTime) {
  begin();
  EXPECT_EQ(engine.calls, QStringList{u"startRecording "_s + folder});
  EXPECT_EQ(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther),
            QFile::Permissions());
  playback.finishRecording();
  engine.onRecordingStopped(writeFile(folder + u"/vlc-record-1.TS"_s, "x"));
  ASSERT_EQ(names().size(), 1);
  EXPECT_THAT(names().first().toStdString(),
              testing::MatchesRegex("Vantor-1800000000-[0-9A-F]{8}\\.TS"));

  clock.advance(1500ms);
  begin();
  playback.finishRecording();
  engine.onRecordingStopped(writeFile(folder + u"/b.mp4"_s, "x"));
  ASSERT_EQ(names().size(), 2);
  EXPECT_TRUE(names().first().startsWith(u"Vantor-1800000001-"_s));
}

TEST_F(RecordingTest, StartsOnceAndOnlyInAFolder) {
  playback.startRecording(writeFile(temporary.filePath(u"file"_s), "") + u"/below"_s);
  EXPECT_EQ(playback.recording().notice(), u"The recording folder could not be created."_s);
  begin();
  engine.takeCalls();
  playback.startRecording();
  EXPECT_TRUE(engine.calls.isEmpty()) << "twice at once";
}

TEST_F(RecordingTest, KeepsTheSourceUntilItIsSaved) {
  begin();
  for (const bool saving : {false, true}) {
    SCOPED_TRACE(saving);
    if (saving) playback.finishRecording();
    engine.takeCalls();
    playback.play(channel(u"2"_s));
    EXPECT_EQ(playback.recording().notice(), refusal);
    playback.retry();
    settle();
    EXPECT_TRUE(engine.calls.isEmpty());
    EXPECT_EQ(look(), (Look{u"1"_s, false, {}, false}));
  }
  engine.onRecordingStopped({});
  open(channel(u"2"_s));
  EXPECT_EQ(playback.itemID(), u"2"_s);
}

TEST_F(RecordingTest, StopAndFailureFinishIt) {
  for (const bool failing : {false, true}) {
    SCOPED_TRACE(failing);
    playback.stop();
    begin();
    engine.takeCalls();
    failing ? see(EngineState::error) : playback.stop();
    EXPECT_EQ(engine.calls, (QStringList{u"stopRecording"_s, u"unload"_s}));
    EXPECT_EQ(playback.recording().stage(), Recording::Stage::saving);
    engine.onRecordingStopped({});
  }
}

TEST_F(RecordingTest, OutcomesGetTheirSentences) {
  const QString elsewhere = temporary.path() + u"/elsewhere"_s;
  ASSERT_TRUE(QDir().mkpath(elsewhere));
  ASSERT_TRUE(QDir().mkpath(folder));
  ASSERT_TRUE(QFile::link(folder, temporary.filePath(u"link"_s)));
  const QString foreign = writeFile(elsewhere + u"/a.ts"_s, "x");
  const std::tuple<QString, std::optional<QByteArray>, QString, int> cases[] = {
      {foreign, {}, noFile, 0},
      {folder + u"/missing.ts"_s, {}, noFile, 0},
      {{}, {}, noFile, 0},
      {folder + u"/empty.ts"_s, QByteArray(),
       u"No video was recorded. Try recording for longer or choose another source."_s, 0},
      {temporary.filePath(u"link/through.ts"_s), QByteArray("x"), u"Recording saved."_s, 1},
  };
  for (const auto& [path, written, notice, files] : cases) {
    SCOPED_TRACE(path.toStdString());
    begin();
    playback.finishRecording();
    if (written) writeFile(path, *written);
    engine.onRecordingStopped(path);
    EXPECT_EQ(playback.recording().notice(), notice);
    EXPECT_EQ(names().size(), files);
  }
  EXPECT_TRUE(QFile::exists(foreign));
  EXPECT_FALSE(QFile::exists(folder + u"/empty.ts"_s));

  begin();
  engine.recordingStops = false;
  playback.finishRecording();
  EXPECT_EQ(playback.recording().notice(),
            u"Recording could not be finalized. Check the recording folder."_s);
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::idle);
}

TEST_F(RecordingTest, ListShowsRecordingsOnly) {
  ASSERT_TRUE(QDir().mkpath(folder + u"/folder.ts"_s));
  for (const char* name : {"/a.ts", "/c.MKV", "/b.m4v", "/.hidden.ts", "/d.txt", "/e"})
    writeFile(folder + QLatin1String(name), "x");
  playback.recording().refresh();
  EXPECT_EQ(names(), (QStringList{u"c.MKV"_s, u"b.m4v"_s, u"a.ts"_s}));
  Playback again(engine, clock, worker, folders(), Output::shown);
  EXPECT_EQ(again.recording().files().size(), 3);
  Playback headless(engine, clock, worker, folders(), Output::discarded);
  EXPECT_TRUE(headless.recording().files().isEmpty());
}

}  // namespace
}  // namespace vantor::test
