// What the engine's recorder really writes, and what becomes of it when something goes wrong.
#include <sys/mount.h>

#include <QDir>

#include "engine_fixture.h"
#include "stream_server.h"
#include "support/simulated_streams.h"

namespace vantor::test {
namespace {

const QString savedNotice = u"Recording saved."_s;
const QString noFile = u"No recording file was produced. This source may not support recording."_s;
const QString nothingSaved =
    u"No video was recorded. Try recording for longer or choose another source."_s;

/// Two megabytes, mounted over a folder.
struct SmallDisk {
  const QByteArray point;
  const bool mounted = ::mount("tmpfs", point.constData(), "tmpfs", 0, "size=2m") == 0;
  ~SmallDisk() {
    if (mounted) ::umount2(point.constData(), MNT_DETACH);
  }
  bool refuseWriting() {
    return ::mount(nullptr, point.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  }
};

class EngineRecordingTest : public EngineFixture {
 protected:
  const sim::Options options = simulated("open-sesame");
  sim::Server server{options};
  const QString recordings = playback.recording().folder();

  void SetUp() override {
    if (libVLCInternals() == LibVLCInternals::left)
      GTEST_SKIP() << "recording is off with this version of libVLC";
  }

  QUrl address(sim::Kind kind, const QString& extension) const {
    QUrl stream = streamOf(server, options, kind, sim::entryId(kind, 0), extension);
    stream.setQuery(u"key=open-sesame"_s);
    return stream;
  }
  testing::AssertionResult startsRecordable() {
    if (const auto started = starts(); !started) return started;
    // The time of a live playlist jumps from nothing to its place in the list.
    return eventually([&] { return engine.status().recordable && engine.status().time > 0; })
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "not recordable";
  }
  void record(const std::optional<QString>& target = {}) {
    playback.startRecording(target);
    EXPECT_EQ(playback.recording().stage(), Recording::Stage::running);
  }
  /// Lets the source play on for so many milliseconds of the media, in which neither the picture
  /// nor the time may stop or begin again.
  testing::AssertionResult plays(std::int64_t milliseconds) {
    const EngineStatus begin = engine.status();
    EngineStatus last = begin;
    bool begunAgain = false;
    const bool passed = eventually([&] {
      const EngineStatus now = engine.status();
      // The library guesses between two times, and takes that back.
      begunAgain |= now.decodedVideo < last.decodedVideo || now.time + 1'000 < last.time;
      last = now;
      return now.time >= begin.time + milliseconds;
    });
    const std::int64_t pictures = last.decodedVideo - begin.decodedVideo;
    // There are 25 in a second of the media, counted now and then.
    if (passed && !begunAgain && pictures >= milliseconds / 200) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "from " << begin.time << " to " << last.time << " ms, "
                                       << pictures << " pictures, begun again: " << begunAgain;
  }
  /// Waits until the source plays no further while another one plays a second of its media.
  bool stands() {
    LibVLCEngine other(std::make_shared<VideoFrameQueue>(), Output::discarded);
    other.load(
        {.address = QUrl::fromLocalFile(QString::fromStdString(server.mediaPath("movie.mkv")))});
    other.play();
    std::int64_t time = -1;
    std::int64_t since = 0;
    return eventually([&] {
      const std::int64_t elsewhere = other.status().time;
      const std::int64_t before = std::exchange(time, engine.status().time);
      if (time != before) since = elsewhere;
      return time > 0 && elsewhere > since + 1'000;
    });
  }
  /// The notice once nothing is recorded or saved any more.
  QString outcome() {
    EXPECT_TRUE(eventually([&] { return playback.recording().stage() == Recording::Stage::idle; }));
    return playback.recording().notice().value_or(QString());
  }
  QString newest() { return playback.recording().files().value(0).toLocalFile(); }
};

TEST_F(EngineRecordingTest, RecordsEveryKindOfSourceWhileItPlaysOn) {
  // Files begin with a key picture, except those of a channel, which hold its bytes as they come.
  const struct {
    sim::Kind kind;
    QString extension;
    std::string source;  // file of the simulator with the same streams
    QString container;
    double keyPictures;  // seconds from one to the next
  } rows[] = {
      {sim::Kind::live, u"ts"_s, "channel0.ts", u"ts"_s, 1},
      {sim::Kind::live, u"m3u8"_s, "channel0.ts", u"mp4"_s, 1},
      {sim::Kind::movie, u"mp4"_s, "movie.mp4", u"mp4"_s, 2},
      {sim::Kind::movie, u"mkv"_s, "movie.mkv", u"mp4"_s, 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.extension.toStdString());
    server.resetCounters();
    playAddress(address(row.kind, row.extension));
    ASSERT_TRUE(startsRecordable());
    ASSERT_TRUE(plays(1'000));
    const sim::Counters before = server.counters();
    int changes = 0;
    const auto count = QObject::connect(&playback, &Playback::stateChanged, [&] { ++changes; });

    record();
    const std::int64_t begin = engine.status().time;
    EXPECT_TRUE(plays(2'500));
    for (const QString& name : QDir(recordings).entryList(QDir::Files)) {
      EXPECT_FALSE(name.contains(u"sesame"_s)) << name.toStdString();
    }
    playAddress(address(sim::Kind::live, u"ts"_s));
    EXPECT_EQ(playback.recording().notice(), u"Stop recording before changing sources."_s);
    EXPECT_TRUE(plays(2'500));
    const double recorded = static_cast<double>(engine.status().time - begin) / 1000;
    playback.finishRecording();
    EXPECT_EQ(outcome(), savedNotice);
    EXPECT_TRUE(plays(1'000));
    EXPECT_EQ(changes, 0);
    QObject::disconnect(count);

    const sim::Counters after = server.counters();
    if (row.extension == u"m3u8"_s) {
      EXPECT_EQ(after.requests.at("segment"), after.targets.at("segment").size())
          << "a segment was fetched twice";
      EXPECT_EQ(after.mostAtOnce.at("segment"), 1);
      EXPECT_EQ(after.mostAtOnce.at("live"), 1);
    } else {
      EXPECT_EQ(after.requests, before.requests);
      EXPECT_EQ(after.connectionsAccepted, before.connectionsAccepted);
    }
    EXPECT_THAT(newest().toStdString(),
                testing::MatchesRegex(recordings.toStdString() + "/Vantor-[0-9]+-[0-9A-F]{8}\\." +
                                      row.container.toStdString()));
    const Probed source = probe(QString::fromStdString(server.mediaPath(row.source)));
    const Probed file = probe(newest());
    EXPECT_EQ(file.pictures, source.pictures);
    EXPECT_EQ(file.sounds, source.sounds.first(1)) << "those that play";
    EXPECT_GT(file.seconds, recorded - row.keyPictures - 0.7);
    EXPECT_LT(file.seconds, recorded + 1.5);
    playback.stop();
  }
}

TEST_F(EngineRecordingTest, FileIsWholeHoweverTheSourceEnds) {
  const QUrl film =
      QUrl::fromLocalFile(make(u"film.mkv"_s, solidColor(u"red"_s, u"320x180"_s, 5) + tone(5) +
                                                  u" -pix_fmt yuv420p -g 12 -c:a aac"_s));
  server.setFault("live", sim::Fault::cutOff);
  for (const bool stopped : {false, true}) {
    for (const QUrl& source : {address(sim::Kind::live, u"ts"_s), film}) {
      SCOPED_TRACE(source.fileName().toStdString() + (stopped ? " stopped" : " ends"));
      playAddress(source);
      ASSERT_TRUE(startsRecordable());
      record();
      if (stopped) {
        ASSERT_TRUE(plays(2'000));
        playback.stop();
      }
      EXPECT_EQ(outcome(), savedNotice);
      const Probed file = probe(newest());
      EXPECT_EQ(file.pictures.size(), 1);
      EXPECT_EQ(file.sounds.size(), 1);
      EXPECT_GT(file.seconds, 0.5);
    }
  }
  EXPECT_EQ(playback.recording().files().size(), 4);
}

TEST_F(EngineRecordingTest, SourceThatStallsKeepsWhatItHadGiven) {
  StreamServer stalling(readFile(movie(u"a.ts"_s)));
  stalling.promised = 1 << 30;
  stalling.stalls = true;
  for (const bool before : {true, false}) {
    SCOPED_TRACE(before ? "recorded before" : "recorded after");
    playAddress(stalling.address("/a.ts"));
    ASSERT_TRUE(startsRecordable());
    if (before) record();
    ASSERT_TRUE(stands());
    if (!before) record();
    playback.finishRecording();
    EXPECT_EQ(outcome(), before ? savedNotice : noFile);
    // Without a file the saving ends with the playing only.
    EXPECT_TRUE(before || eventually([&] { return playback.paused(); }));
    EXPECT_FALSE(playback.message());
    playback.stop();
    EXPECT_EQ(QDir(recordings).entryList(QDir::Files).size(), 1);
  }
  EXPECT_EQ(probe(newest()).pictures.size(), 1);
}

TEST_F(EngineRecordingTest, QuittingWaitsForASourceThatStallsButNotForEver) {
  // The engine cannot end this recording while it waits for more of the film.
  const QByteArray whole =
      readFile(make(u"film.mkv"_s, u"-f lavfi -i testsrc2=s=1280x720:r=25:d=10"_s + tone(10) +
                                       u" -g 12 -c:a aac"_s));
  StreamServer stalling(whole.first(whole.size() / 2));
  stalling.type = "video/x-matroska";
  stalling.promised = static_cast<int>(whole.size());
  stalling.stalls = true;
  playAddress(stalling.address("/film.mkv"));
  ASSERT_TRUE(startsRecordable());
  record();
  ASSERT_TRUE(stands());
  const Job quitting = Job::start([this](std::stop_token) { return playback.shutdown(); });
  ASSERT_TRUE(eventually([&] { return !quitting.running(); }));
  EXPECT_FALSE(playback.source());
  EXPECT_EQ(outcome(), savedNotice);
  EXPECT_GT(probe(newest()).seconds, 1);
}

TEST_F(EngineRecordingTest, RecordingsOfOneSecondHaveFilesOfTheirOwn) {
  QStringList paths;
  engine.onRecordingStopped = [&](const QString& written) { paths.append(written); };
  playAddress(address(sim::Kind::live, u"ts"_s));
  ASSERT_TRUE(startsRecordable());
  for (int number = 1; number <= 5; ++number) {
    EXPECT_TRUE(engine.startRecording(folder.path()));
    ASSERT_TRUE(eventually([&] {
      const QFileInfoList files = QDir(folder.path()).entryInfoList({u"*.ts"_s}, QDir::Files);
      return files.size() == number &&
             std::all_of(files.begin(), files.end(), [](auto& file) { return file.size() > 0; });
    }));
    EXPECT_TRUE(engine.stopRecording());
    ASSERT_TRUE(eventually([&] { return paths.size() == number; }));
  }
  paths.removeDuplicates();
  EXPECT_EQ(paths.size(), 5);
  for (const QString& written : paths) EXPECT_TRUE(QFile::exists(written)) << written.toStdString();
}

TEST_F(EngineRecordingTest, DiskThatIsFullOrReadOnlyLeavesPlaybackAlone) {
  const QDir disk(path(u"disk"_s));
  ASSERT_TRUE(QDir().mkpath(disk.path()));
  SmallDisk small{QFile::encodeName(disk.path())};
  if (!small.mounted) GTEST_SKIP() << "mounting a small disk needs root";
  const auto files = [&] { return disk.entryInfoList(QDir::Files); };

  // What is worth nothing without its end stops in time for that.
  playAddress(address(sim::Kind::movie, u"mkv"_s));
  EXPECT_TRUE(startsRecordable());
  EXPECT_TRUE(plays(2'000));
  record(disk.path());
  EXPECT_EQ(outcome(), savedNotice);
  ASSERT_EQ(files().size(), 1);
  EXPECT_GT(probe(files().first().filePath()).seconds, 2);
  EXPECT_TRUE(plays(500));
  EXPECT_TRUE(QFile::remove(files().first().filePath()));

  playAddress(address(sim::Kind::live, u"ts"_s));
  EXPECT_TRUE(startsRecordable());
  record(disk.path());
  EXPECT_TRUE(plays(8'000));
  playback.finishRecording();
  EXPECT_EQ(outcome(), savedNotice);
  ASSERT_EQ(files().size(), 1);
  EXPECT_LE(files().first().size(), 2 << 20);
  EXPECT_GT(probe(files().first().filePath()).seconds, 1) << "what the disk could take plays";

  for (const bool full : {true, false}) {
    SCOPED_TRACE(full);
    EXPECT_TRUE(full || small.refuseWriting());
    record(disk.path());
    EXPECT_TRUE(plays(1'000));
    playback.finishRecording();
    EXPECT_EQ(outcome().toStdString(), (full ? nothingSaved : noFile).toStdString());
    EXPECT_EQ(files().size(), 1);
  }
  EXPECT_TRUE(plays(500));
}

}  // namespace
}  // namespace vantor::test
