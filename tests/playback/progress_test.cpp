#include <cmath>
#include <limits>

#include "playback_fixture.h"

namespace vantor::test {
namespace {

const std::string notOpened =
    "failed: This source could not be opened. It may be offline or your provider may be refusing "
    "the connection.";

class ProgressTest : public PlaybackFixture {
 protected:
  void openMovie() {
    openPlaying(channel(u"m"_s));
    see(filmAt(0, 60'000));
    engine.takeCalls();
  }
};

TEST_F(ProgressTest, TheFirstLookDecidesTheOpening) {
  using enum EngineState;
  const std::tuple<const char*, EngineStatus, std::string> cases[] = {
      {"nothing decoded", {.state = playing, .hasMedia = true, .time = 5000}, "opening"},
      {"a picture", {.state = playing, .hasMedia = true, .decodedVideo = 1}, "playing"},
      {"counts without media", {.state = playing, .decodedVideo = 1}, "opening"},
      {"sound while a picture is expected",
       {.state = playing, .hasMedia = true, .time = 9000, .decodedAudio = 40, .videoTracks = {0}},
       "opening"},
      {"audio alone at 1000",
       {.state = playing, .hasMedia = true, .time = 1000, .decodedAudio = 40},
       "opening"},
      {"audio alone at 1001",
       {.state = playing, .hasMedia = true, .time = 1001, .decodedAudio = 40},
       "playing"},
      {"error", {.state = error, .hasMedia = true}, notOpened},
      {"end",
       {.state = ended, .hasMedia = true},
       "failed: The source ended before playback could start."},
      {"end after a picture", {.state = ended, .hasMedia = true, .decodedVideo = 3}, "ended"},
  };
  for (const auto& [what, status, expected] : cases) {
    SCOPED_TRACE(what);
    open(channel(u"7"_s));
    ASSERT_EQ(look(), "7 opening");
    see(status);
    EXPECT_EQ(look(), "7 " + expected);
    EXPECT_EQ(clock.waiting(), status.state == playing ? 1u : 0u);
    EXPECT_EQ(engine.now.hasMedia, status.hasMedia && !playback.message())
        << "a failure unloads the media";
    playback.stop();
  }
}

TEST_F(ProgressTest, StartLimitIsThirtySecondsAndOnlyWhileLoading) {
  open(channel(u"1"_s));
  engine.now.state = EngineState::playing;
  clock.advance(30s);
  EXPECT_EQ(look(), "1 opening");
  clock.advance(250ms);
  EXPECT_EQ(look(),
            "1 failed: This source did not start within 30 seconds. Retry or choose another item.");

  openPlaying(channel(u"2"_s));
  clock.advance(60s);
  EXPECT_EQ(look(), "2 playing");
  see(EngineState::error);
  EXPECT_EQ(look(), "2 " + notOpened) << "it fails later as well";
}

TEST_F(ProgressTest, AnnouncedChangeIsSeenWithoutWaitingForTheTick) {
  open(channel(u"1"_s));
  engine.now.decodedVideo = 1;
  for (const EngineState state : {EngineState::playing, EngineState::ended}) {
    engine.now.state = state;
    const std::string before = look();
    settle();
    EXPECT_EQ(look(), before);
    engine.announce();
    settle();
    EXPECT_EQ(look(), state == EngineState::playing ? "1 playing" : "1 ended");
  }
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
  const TransportState& transport = *playback.transport();
  EXPECT_EQ(transport.seconds(), 0);
  clock.advance(1ms);
  EXPECT_EQ(transport.seconds(), 1.5);
  EXPECT_EQ(transport.duration(), 60);
  EXPECT_TRUE(transport.seekable());
  EXPECT_EQ(transport.audio(), engine.now.audioTracks);
  EXPECT_EQ(transport.subtitles(), engine.now.subtitleTracks);
  EXPECT_EQ(transport.audioTrack(), 2);
  EXPECT_EQ(transport.subtitleTrack(), 3);
  EXPECT_EQ(transport.rate(), 1.5);
  EXPECT_EQ(progress.last(), u"m 1.5/60"_s);
  engine.now.time = engine.now.length = -1;
  clock.advance(250ms);
  EXPECT_EQ(transport.seconds(), 0);
  EXPECT_EQ(transport.duration(), 0);
  EXPECT_FALSE(transport.seekable()) << "not without a duration";
}

TEST_F(ProgressTest, LiveSourceReportsNothingAndCannotSeek) {
  PlayRequest live = channel(u"1"_s, 15);
  live.kind = SourceKind::broadcast;
  openPlaying(live);
  engine.now = filmAt(90'000, 12'000);  // in the window of a playlist
  clock.advance(1s);
  playback.seek(5);
  EXPECT_TRUE(progress.isEmpty());
  EXPECT_TRUE(engine.calls.filter(u"setTime"_s).isEmpty());
}

TEST_F(ProgressTest, ResumesOnceInsideItsWindowOnly) {
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
    const auto length = static_cast<std::int64_t>(seconds * 1000);
    engine.now.length = length;
    clock.advance(250ms);
    EXPECT_TRUE(engine.calls.isEmpty()) << "waits until the source can seek";
    for (const bool seekable : {true, false, true}) {
      engine.now.seekable = seekable;
      clock.advance(250ms);
    }
    EXPECT_EQ(engine.calls, expected) << "once for each opening";
    engine.takeCalls();
    see(EngineState::error);
    playback.retry();
    settle();
    see(filmAt(0, length));
    EXPECT_TRUE(engine.calls.filter(u"setTime"_s).isEmpty()) << "a retry does not resume";
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

TEST_F(ProgressTest, TracksChosenBeforeAreInForceAlsoWhenTheEngineChoosesLater) {
  PlayRequest film = channel(u"1"_s);
  film.tracks = {.audio = {{.language = u"de"_s}}, .subtitles = {{.off = true}}};
  open(film);
  see(filmAt(100, 60'000));
  engine.takeCalls();
  engine.now.audioTracks = {{1, {}, u"eng"_s}, {2, {}, u"deu"_s}};
  engine.now.subtitleTracks = {{3, {}, u"eng"_s}};
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 2"_s});
  engine.now.subtitleTrack = 3;
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setSubtitleTrack -1"_s});
  playback.setSubtitleTrack(3);
  engine.takeCalls();
  see(EngineState::playing);
  EXPECT_EQ(engine.takeCalls(), QStringList()) << "what is chosen now stays";
}

TEST(TrackChoices, FindTheTrackByLanguageThenByName) {
  const QString names = u"Kommentar"_s;
  const std::tuple<EngineTrack, QList<EngineTrack>, std::optional<std::int32_t>> cases[] = {
      {{9, {}, u"ger"_s}, {{1, {}, u"eng"_s}, {2, {}, u"deu"_s}}, 2},
      {{9, {}, u"de-AT"_s}, {{1, {}, u"DE"_s}}, 1},
      {{9, {}, u"fre"_s}, {{1, {}, u"fra"_s}, {2, {}, u"fr"_s}}, 1},
      {{9, {}, u"qaa"_s}, {{1, {}, u"qab"_s}, {2, {}, u"qaa"_s}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"de"_s}, {2, {}, u"de"_s, names}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"eng"_s, names}, {2, {}, u"und"_s, names}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"eng"_s, names}}, {}},
      {{9, {}, {}, names}, {{1}, {2, {}, u"eng"_s, u" Kommentar "_s}}, 2},
      {{9, u"Track 2"_s}, {{1, u"Track 1"_s}, {2, u"Track 2"_s}}, 2},
      {{9, {}, u"??"_s}, {{1, {}, u"und"_s}, {2}, {3, {}, u"\u00e4\u00e4\u00e4"_s}}, {}},
  };
  for (const auto& [chosen, tracks, found] : cases)
    EXPECT_EQ(trackOf({*choiceOf(9, {chosen})}, tracks), found)
        << (chosen.language + u' ' + chosen.title).toStdString();
}

}  // namespace
}  // namespace vantor::test
