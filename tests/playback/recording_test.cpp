#include <QFile>

#include "playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

class RecordingTest : public PlaybackFixture {
 protected:
  const QString folder = temporary.path() + u"/data/Vantor Player/Recordings"_s;
  const Recording& recording = playback.recording();

  void SetUp() override { playRecordable(); }

  void playRecordable() {
    openPlaying(channel(u"1"_s));
    engine.now.recordable = true;
    engine.takeCalls();
  }
  void begin() {
    if (!playback.source()) playRecordable();
    playback.startRecording();
    ASSERT_EQ(recording.stage(), Recording::Stage::running);
  }
  /// Records into a file of the engine's; without content there is none.
  void record(const QString& path, const std::optional<QByteArray>& content) {
    begin();
    playback.finishRecording();
    if (content) writeFile(path, *content);
    engine.onRecordingStopped(path);
  }
  QStringList names() const {
    QStringList list;
    for (const QUrl& file : recording.files()) list.append(file.fileName());
    return list;
  }
};

TEST_F(RecordingTest, IsSavedInAPrivateFolderUnderANameThatSortsByTime) {
  playback.startRecording(writeFile(temporary.filePath(u"file"_s)) + u"/below"_s);
  EXPECT_EQ(recording.notice(), u"The recording folder could not be created."_s);
  EXPECT_TRUE(engine.calls.isEmpty());
  begin();
  playback.startRecording();
  EXPECT_EQ(engine.calls, QStringList{u"startRecording "_s + folder}) << "twice at once";
  EXPECT_EQ(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther),
            QFile::Permissions());
  engine.onRecordingStopped(writeFile(folder + u"/vlc-record-1.TS"_s, "x"));
  clock.advance(1500ms);
  record(folder + u"/b.mp4"_s, "x");
  ASSERT_EQ(names().size(), 2);
  EXPECT_THAT(names().last().toStdString(),
              testing::MatchesRegex("Vantor-1800000000-[0-9A-F]{8}\\.TS"));
  EXPECT_TRUE(names().first().startsWith(u"Vantor-1800000001-"_s));
}

TEST_F(RecordingTest, KeepsTheSourceUntilItIsSaved) {
  begin();
  for (const bool saving : {false, true}) {
    SCOPED_TRACE(saving);
    if (saving) playback.finishRecording();
    engine.takeCalls();
    playback.play(channel(u"2"_s));
    EXPECT_EQ(recording.notice(), u"Stop recording before changing sources."_s);
    playback.retry();
    settle();
    EXPECT_TRUE(engine.calls.isEmpty());
    EXPECT_EQ(look(), "1 playing");
  }
  engine.onRecordingStopped({});
  open(channel(u"2"_s));
  EXPECT_EQ(look(), "2 opening");
}

TEST_F(RecordingTest, StopAndFailureFinishIt) {
  for (const bool failing : {false, true}) {
    SCOPED_TRACE(failing);
    playback.stop();
    begin();
    engine.takeCalls();
    failing ? see(EngineState::error) : playback.stop();
    EXPECT_EQ(engine.calls, (QStringList{u"stopRecording"_s, u"unload"_s}));
    EXPECT_EQ(recording.stage(), Recording::Stage::saving);
    engine.onRecordingStopped({});
  }
}

TEST_F(RecordingTest, OutcomesGetTheirSentences) {
  ASSERT_TRUE(QDir().mkpath(folder));
  ASSERT_TRUE(QFile::link(folder, temporary.filePath(u"link"_s)));
  const QString noFile =
      u"No recording file was produced. This source may not support recording."_s;
  const QString foreign = temporary.filePath(u"elsewhere/a.ts"_s);
  const std::tuple<QString, std::optional<QByteArray>, QString, int> cases[] = {
      {foreign, "x", noFile, 0},
      {folder + u"/missing.ts"_s, {}, noFile, 0},
      {{}, {}, noFile, 0},
      {folder + u"/empty.ts"_s, QByteArray(),
       u"No video was recorded. Try recording for longer or choose another source."_s, 0},
      {temporary.filePath(u"link/through.ts"_s), "x", u"Recording saved."_s, 1},
  };
  for (const auto& [path, written, notice, files] : cases) {
    SCOPED_TRACE(path.toStdString());
    record(path, written);
    EXPECT_EQ(recording.notice(), notice);
    EXPECT_EQ(names().size(), files);
  }
  EXPECT_TRUE(QFile::exists(foreign));
  EXPECT_FALSE(QFile::exists(folder + u"/empty.ts"_s));

  begin();
  engine.recordingStops = false;
  playback.finishRecording();
  EXPECT_EQ(recording.notice(), u"Recording could not be finalized. Check the recording folder."_s);
  EXPECT_EQ(recording.stage(), Recording::Stage::idle);
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
