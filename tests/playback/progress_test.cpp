#include <cmath>
#include <limits>

#include "playback_fixture.h"

namespace vantor::test {
namespace {

const QString notOpened =
    u"This source could not be opened. It may be offline or your provider may be refusing the connection."_s;
const QString tooSlow =
    u"This source did not start within 30 seconds. Retry or choose another item."_s;
const QString endedEarly = u"The source ended before playback could start."_s;

class ProgressTest : public PlaybackFixture {
 protected:
  void openMovie(double resume = 0) {
    openPlaying(channel(u"m"_s, resume));
    engine.now.length = 60'000;
    engine.now.seekable = true;
    engine.takeCalls();
    clock.advance(250ms);
  }
};

TEST_F(ProgressTest, TheFirstLookDecidesTheOpening) {
  using enum EngineState;
  const Look loading{u"7"_s, true, {}, false};
  const Look started{u"7"_s, false, {}, false};
  const std::tuple<const char*, EngineStatus, Look> cases[] = {
      {"nothing decoded", {.state = playing, .hasMedia = true, .time = 5000}, loading},
      {"a picture", {.state = playing, .hasMedia = true, .decodedVideo = 1}, started},
      {"counts without media", {.state = playing, .decodedVideo = 1}, loading},
      {"sound while a picture is expected",
       {.state = playing, .hasMedia = true, .time = 9000, .decodedAudio = 40, .videoTracks = {0}},
       loading},
      {"audio alone at 1000",
       {.state = playing, .hasMedia = true, .time = 1000, .decodedAudio = 40},
       loading},
      {"audio alone at 1001",
       {.state = playing, .hasMedia = true, .time = 1001, .decodedAudio = 40},
       started},
      {"error", {.state = error, .hasMedia = true}, {u"7"_s, false, notOpened, true}},
      {"end", {.state = ended, .hasMedia = true}, {u"7"_s, false, endedEarly, true}},
      {"end after a picture",
       {.state = ended, .hasMedia = true, .decodedVideo = 3},
       {u"7"_s, false, {}, true}},
  };
  for (const auto& [what, status, expected] : cases) {
    SCOPED_TRACE(what);
    open(channel(u"7"_s));
    ASSERT_TRUE(playback.loading());
    engine.now = status;
    clock.advance(250ms);
    EXPECT_EQ(look(), expected);
    EXPECT_EQ(clock.waiting(), status.state == playing ? 1u : 0u);
    EXPECT_EQ(engine.now.hasMedia, status.hasMedia && !expected.message)
        << "a failure unloads the media";
    playback.stop();
  }
}

TEST_F(ProgressTest, StartLimitIsThirtySecondsAndOnlyWhileLoading) {
  open(channel(u"1"_s));
  engine.now.state = EngineState::playing;
  clock.advance(30s);
  EXPECT_EQ(look(), (Look{u"1"_s, true, {}, false}));
  clock.advance(250ms);
  EXPECT_EQ(look(), (Look{u"1"_s, false, tooSlow, true}));

  openPlaying(channel(u"2"_s));
  clock.advance(60s);
  EXPECT_EQ(look(), (Look{u"2"_s, false, {}, false}));
  see(EngineState::error);
  EXPECT_EQ(look(), (Look{u"2"_s, false, notOpened, true})) << "it fails later as well";
}

TEST_F(ProgressTest, AnnouncedChangeIsSeenWithoutWaitingForTheTick) {
  open(channel(u"1"_s));
  engine.now.state = EngineState::playing;
  engine.now.decodedVideo = 1;
  settle();
  ASSERT_TRUE(playback.loading());
  engine.announce();
  settle();
  EXPECT_FALSE(playback.loading());
  engine.now.state = EngineState::ended;
  engine.announce();
  settle();
  EXPECT_TRUE(playback.paused());
}

TEST_F(ProgressTest, MirrorsTheEngineFourTimesASecond) {
  openMovie();
  engine.now.time = 1'500;
  engine.now.audioTracks = {{1, u"English"_s}, {2, u"Deutsch"_s}};
  engine.now.subtitleTracks = {{3, u"English"_s}};
  engine.now.audioTrack = 2;
  engine.now.subtitleTrack = 3;
  engine.now.rate = 1.5;
  clock.advance(249ms);
  EXPECT_EQ(playback.transport()->seconds(), 0);
  clock.advance(1ms);
  const TransportState& transport = *playback.transport();
  EXPECT_EQ(transport.seconds(), 1.5);
  EXPECT_EQ(transport.duration(), 60);
  EXPECT_TRUE(transport.seekable());
  EXPECT_EQ(transport.audio(), engine.now.audioTracks);
  EXPECT_EQ(transport.subtitles(), engine.now.subtitleTracks);
  EXPECT_EQ(transport.audioTrack(), 2);
  EXPECT_EQ(transport.subtitleTrack(), 3);
  EXPECT_EQ(transport.rate(), 1.5);
  EXPECT_EQ(progress.last(), u"m 1.5/60"_s);
  engine.now.time = -1;
  engine.now.length = -1;
  clock.advance(250ms);
  EXPECT_EQ(transport.seconds(), 0);
  EXPECT_EQ(transport.duration(), 0);
  EXPECT_FALSE(transport.seekable()) << "not without a duration";
}

TEST_F(ProgressTest, LiveSourceReportsNothingAndCannotSeek) {
  PlayRequest live = channel(u"1"_s, 15);
  live.kind = SourceKind::broadcast;
  openPlaying(live);
  engine.now.seekable = true;
  engine.now.length = 12'000;  // the window of a playlist
  engine.now.time = 90'000;
  clock.advance(1s);
  playback.seek(5);
  EXPECT_TRUE(progress.isEmpty());
  EXPECT_TRUE(engine.calls.filter(u"setTime"_s).isEmpty());
}

TEST_F(ProgressTest, TogglePausesAndResumesAndPlaysAgainFromTheEnd) {
  openMovie();
  for (const bool paused : {true, false}) {
    playback.togglePause();
    EXPECT_EQ(playback.paused(), paused);
  }
  EXPECT_EQ(engine.calls, (QStringList{u"pause"_s, u"play"_s}));
  see(EngineState::ended);
  EXPECT_EQ(look(), (Look{u"m"_s, false, {}, true}));
  EXPECT_EQ(clock.waiting(), 0u);
  engine.takeCalls();
  playback.togglePause();
  EXPECT_EQ(engine.calls, QStringList{u"play"_s});
  EXPECT_FALSE(playback.paused());
  engine.now.state = EngineState::ended;
  playback.togglePause();
  EXPECT_EQ(engine.takeCalls().last(), u"play"_s) << "an ended source is played, never paused";
}

TEST_F(ProgressTest, ProgressReportThatStopsTheSourceEndsTheTick) {
  openPlaying(channel(u"m"_s));
  playback.onProgress = [this](const QString&, double, double) {
    playback.onProgress = nullptr;
    playback.stop();
  };
  engine.now.length = 60'000;
  see(EngineState::ended);
  EXPECT_EQ(look(), Look{});
}

TEST_F(ProgressTest, ResumesInsideItsWindowOnly) {
  const std::tuple<double, double, QStringList> cases[] = {
      {0, 60, {}},
      {10, 60, {}},
      {10.5, 60, {u"setTime 10500"_s}},
      {39.9999, 60, {u"setTime 39999"_s}},
      {40, 60, {}},
      {41, 60, {}},
      {3e6, 4e6, {u"setTime 2147483647"_s}},
      {std::nan(""), 60, {}},
  };
  for (const auto& [resume, seconds, expected] : cases) {
    SCOPED_TRACE(resume);
    openPlaying(channel(u"m"_s, resume));
    engine.takeCalls();
    engine.now.length = static_cast<std::int64_t>(seconds * 1000);
    clock.advance(250ms);
    EXPECT_TRUE(engine.calls.isEmpty()) << "waits until the source can seek";
    engine.now.seekable = true;
    clock.advance(250ms);
    EXPECT_EQ(engine.takeCalls(), expected);
    engine.now.seekable = false;
    clock.advance(250ms);
    engine.now.seekable = true;
    clock.advance(250ms);
    EXPECT_TRUE(engine.calls.isEmpty()) << "once for each opening";
    playback.stop();
  }
}

TEST_F(ProgressTest, SeekConvertsToMilliseconds) {
  openMovie();
  const std::pair<double, qint64> cases[] = {
      {-5, 0},
      {0, 0},
      {12.3456, 12'345},
      {2'147'483.6475, 2'147'483'647},
      {1e300, 2'147'483'647},
      {std::numeric_limits<double>::infinity(), 2'147'483'647},
      {std::nan(""), 0}};
  for (const auto& [seconds, expected] : cases) {
    playback.seek(seconds);
    EXPECT_EQ(engine.takeCalls(), QStringList{u"setTime %1"_s.arg(expected)}) << seconds;
  }
}

TEST_F(ProgressTest, VolumeTracksAndSpeedReachTheEngine) {
  playback.setVolume(0);
  EXPECT_EQ(playback.transport()->volume(), 0);
  playback.setAudioTrack(2);
  playback.setSubtitleTrack(-1);
  playback.setRate(1.25);
  EXPECT_EQ(engine.takeCalls(), (QStringList{u"setVolume 0"_s, u"setAudioTrack 2"_s,
                                             u"setSubtitleTrack -1"_s, u"setRate 1.25"_s}));
  open(channel(u"1"_s));
  EXPECT_TRUE(engine.calls.contains(u"setVolume 0"_s)) << "the volume stays for the next source";
}

TEST_F(ProgressTest, TracksChosenBeforeAreInForceAlsoWhenTheEngineChoosesLater) {
  PlayRequest film = channel(u"1"_s);
  film.tracks = {.audio = {{.language = u"de"_s}}, .subtitles = {{.off = true}}};
  open(film);
  engine.takeCalls();
  engine.now = filmAt(100, 60'000);
  see(EngineState::playing);
  engine.now.audioTracks = {{1, {}, u"eng"_s}, {2, {}, u"deu"_s}};
  engine.now.subtitleTracks = {{3, {}, u"eng"_s}};
  engine.now.audioTrack = engine.now.subtitleTrack = -1;
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 2"_s});
  engine.now.audioTrack = 2;
  engine.now.subtitleTrack = 3;
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setSubtitleTrack -1"_s});
  playback.setSubtitleTrack(3);
  engine.takeCalls();
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList()) << "what is chosen now stays";
}

}  // namespace
}  // namespace vantor::test
