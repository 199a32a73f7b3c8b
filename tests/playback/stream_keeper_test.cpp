#include "playback/stream_keeper.h"

#include "platform/app_error.h"
#include "playback/video_frame_queue.h"
#include "playback_fixture.h"
#include "support/fake_transport.h"

namespace vantor::test {
namespace {

const QString question = u"1.ts"_s;

class StreamKeeperTest : public PlaybackFixture {
 protected:
  VideoFrameQueue frames;
  FakeTransport transport;
  std::unique_ptr<StreamKeeper> keeper =
      std::make_unique<StreamKeeper>(playback, engine, frames, transport, clock);

  static PlayRequest source(SourceKind kind, double resume = 0) {
    PlayRequest request = channel(u"1"_s, resume);
    request.kind = kind;
    return request;
  }
  void openBroadcast() { openPlaying(source(SourceKind::broadcast)); }
  /// A broadcast that has played breaks off.
  void breakOff() {
    openBroadcast();
    see(EngineState::ended);
  }
  void openFilm(std::int64_t time, std::int64_t length) {
    openPlaying(source(SourceKind::onDemand));
    engine.now.seekable = true;
    engine.now.time = time;
    engine.now.length = length;
    clock.advance(250ms);
  }

  void plays(std::chrono::milliseconds duration) {
    for (auto left = duration; left > 0ms; left -= 250ms) {
      ++engine.now.decoded;
      clock.advance(250ms);
    }
  }
  void starts() {
    engine.now.decodedVideo = 1;
    see(EngineState::playing);
  }
  /// An attempt fails, for which the server has no reason to give.
  void failsAgain() {
    see(EngineState::error);
    clock.advance(50ms);
    ASSERT_TRUE(transport.fail(question, HTTPFailure(500)));
    settle();
  }
  qsizetype openings() const { return engine.calls.filter(u"load http"_s).size(); }
  /// How long it takes until the next one.
  std::chrono::milliseconds untilOpened() {
    const qsizetype before = openings();
    const SteadyTime begin = clock.steadyNow();
    while (openings() == before && clock.steadyNow() - begin < 10min) clock.advance(50ms);
    return std::chrono::duration_cast<std::chrono::milliseconds>(clock.steadyNow() - begin);
  }
};

TEST_F(StreamKeeperTest, TellsWhatStoppedByItself) {
  using Step = std::function<void()>;
  const auto quiet = [this](std::chrono::milliseconds time) {
    return [=, this] { clock.advance(time); };
  };
  const auto playing = [this](std::chrono::milliseconds time) {
    return [=, this] { plays(time); };
  };
  const auto lastPicture = [this] {
    for (int times = 0; times < 10; ++times) ++engine.now.decodedVideo, clock.advance(1s);
  };
  const auto film = [this](std::int64_t time, std::int64_t length) {
    return [=, this] { openFilm(time, length); };
  };
  const auto broadcast = [this] { openBroadcast(); };
  const auto file = [this] { openPlaying(source(SourceKind::file)); };
  const auto unstarted = [this] { open(source(SourceKind::broadcast)); };
  const auto ends = [this] { see(EngineState::ended); };
  const auto fails = [this] { see(EngineState::error); };
  const auto pause = [this] { playback.togglePause(); };
  const std::tuple<const char*, std::vector<Step>, bool> rows[] = {
      {"broadcast ends", {broadcast, ends}, true},
      {"broadcast fails", {broadcast, fails}, true},
      {"broadcast is frozen", {broadcast, quiet(10s)}, true},
      {"broadcast stutters", {broadcast, quiet(9'750ms), playing(1s)}, false},
      {"goes on", {broadcast, playing(20s)}, false},
      {"goes on slowly",
       {broadcast, playing(250ms), quiet(9s), playing(250ms), quiet(9s), playing(250ms), quiet(9s)},
       false},
      {"shows its last picture", {broadcast, lastPicture}, true},
      {"paused", {broadcast, pause, quiet(5min)}, false},
      {"paused, then over", {broadcast, pause, ends}, false},
      {"never started", {unstarted, fails}, false},
      {"file fails", {file, quiet(20s)}, false},
      {"film is cut off", {film(300'000, 900'000), ends}, true},
      {"film fails in the middle", {film(300'000, 900'000), fails}, true},
      {"film is frozen", {film(300'000, 900'000), quiet(10s)}, true},
      {"film ends", {film(899'000, 900'000), ends}, false},
      {"film ends in its credits", {film(880'000, 900'000), ends}, false},
      {"film without a length ends", {film(300'000, 0), ends}, false},
  };
  for (const auto& [name, steps, comesBack] : rows) {
    SCOPED_TRACE(name);
    for (const Step& step : steps) step();
    EXPECT_EQ(keeper->bringingBack(), comesBack);
    const qsizetype before = openings();
    clock.advance(2s);
    EXPECT_EQ(openings(), before + (comesBack ? 1 : 0));
    playback.stop();
  }
}

TEST_F(StreamKeeperTest, OpensAgainAfterGrowingWaitsForThreeMinutes) {
  breakOff();
  const SteadyTime interrupted = clock.steadyNow();
  for (const auto wait : {1s, 2s, 4s, 8s, 15s, 15s, 15s}) {
    EXPECT_THAT(untilOpened().count(),
                testing::AllOf(testing::Ge(wait / 1ms), testing::Le(wait / 1ms + 300)));
    EXPECT_TRUE(keeper->bringingBack());
    failsAgain();
  }
  while (keeper->bringingBack()) {
    const qsizetype before = openings();
    clock.advance(50ms);
    if (openings() > before) failsAgain();
  }
  EXPECT_LE(clock.steadyNow() - interrupted, 3min);
  EXPECT_EQ(playback.state(), PlaybackState::failed);
  EXPECT_TRUE(playback.message());
  const qsizetype all = openings();
  clock.advance(30min);
  EXPECT_EQ(openings(), all);
  EXPECT_EQ(transport.open(question), 0);
}

TEST_F(StreamKeeperTest, AnAttemptThatSaysNothingEndsWithTheThreeMinutesToo) {
  breakOff();
  for (int failures = 0; failures < 3; ++failures) {
    untilOpened();
    engine.now.state = EngineState::opening;
    clock.advance(31s);
    ASSERT_EQ(transport.open(question), 1);
    clock.advance(20s);
    ASSERT_TRUE(transport.fail(question, URLError(URLError::Code::timedOut)));
    settle();
  }
  untilOpened();
  EXPECT_EQ(playback.state(), PlaybackState::opening);
  clock.advance(20s);
  EXPECT_FALSE(keeper->bringingBack());
  EXPECT_EQ(playback.state(), PlaybackState::failed);
  EXPECT_TRUE(playback.message());
  EXPECT_FALSE(engine.now.hasMedia);
}

TEST_F(StreamKeeperTest, StartsAnewAfterPlayingSteadilyOnly) {
  breakOff();
  EXPECT_LE(untilOpened(), 1'300ms);
  starts();
  EXPECT_FALSE(keeper->bringingBack());
  plays(29s);
  see(EngineState::ended);
  EXPECT_GE(untilOpened(), 2s);
  starts();
  plays(31s);
  see(EngineState::ended);
  EXPECT_LE(untilOpened(), 1'300ms);
  starts();

  // One that never plays steadily has its three minutes, spread over as many tries.
  const qsizetype before = openings();
  while (openings() < before + 100) {
    plays(5s);
    see(EngineState::ended);
    if (untilOpened() >= 10min) break;
    starts();
  }
  EXPECT_LT(openings() - before, 20);
  EXPECT_EQ(playback.state(), PlaybackState::failed);
}

TEST_F(StreamKeeperTest, WhatThawsIsNotOpenedAgain) {
  openBroadcast();
  const qsizetype before = openings();
  clock.advance(10s);
  ASSERT_TRUE(keeper->bringingBack());
  clock.advance(500ms);
  plays(30s);
  EXPECT_FALSE(keeper->bringingBack());
  EXPECT_EQ(openings(), before);
}

TEST_F(StreamKeeperTest, AFilmGoesOnFromWhereItWas) {
  openFilm(300'000, 900'000);
  // It is at its beginning when it breaks off again.
  for (int times = 0; times < 2; ++times) {
    see(EngineState::ended);
    untilOpened();
    EXPECT_EQ(playback.source()->resume, 300);
    starts();
  }
  engine.now.length = 900'000;
  engine.now.seekable = true;
  engine.takeCalls();
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setTime 300000"_s});
  engine.now.time = 400'000;
  plays(1s);
  see(EngineState::error);
  untilOpened();
  EXPECT_EQ(playback.source()->resume, 400);
}

/// The ways into each stage, and each command there.
TEST_F(StreamKeeperTest, StopsForGoodWhateverTheUserDoes) {
  using Step = std::function<void()>;
  const auto interrupt = [this] { see(EngineState::error); };
  const auto attempt = [this] { untilOpened(); };
  const auto fail = [this] { see(EngineState::error); };
  const auto unloads = [this] {
    engine.now.releasing = true;
    engine.now.state = EngineState::error;
    engine.now.hasMedia = true;
    engine.releasesLate = true;
    clock.advance(250ms);
  };
  const std::vector<std::vector<Step>> ways = {
      {interrupt}, {interrupt, attempt}, {interrupt, attempt, unloads}, {interrupt, attempt, fail}};
  const std::pair<const char*, Step> commands[] = {
      {"stop", [this] { playback.stop(); }},
      {"play", [this] { playback.play(channel(u"2"_s)); }},
      {"retry", [this] { playback.retry(); }},
      {"pause", [this] { playback.togglePause(); }},
      {"restart", [this] { playback.restart(); }},
      {"seek", [this] { playback.seek(20); }},
      {"quit", [this] { keeper.reset(); }},
      {"give up", [this] { keeper->giveUp(); }},
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    for (const auto& [name, command] : commands) {
      for (const bool networkChanges : {false, true}) {
        SCOPED_TRACE(testing::Message() << "stage " << way << ", " << name);
        if (!keeper)
          keeper = std::make_unique<StreamKeeper>(playback, engine, frames, transport, clock);
        engine.releasesLate = false;
        openBroadcast();
        for (const Step& go : ways[way]) go();
        ASSERT_TRUE(keeper->bringingBack());
        if (networkChanges) keeper->hurry();
        const qsizetype before = openings();
        command();
        const bool opens = std::string_view("play retry").find(name) != std::string_view::npos;
        EXPECT_FALSE(keeper && keeper->bringingBack());
        settle();
        if (networkChanges && keeper) keeper->hurry();
        engine.now.releasing = false;
        clock.advance(5min);
        EXPECT_EQ(openings() - before, opens ? 1 : 0);
        EXPECT_EQ(transport.open(question), 0);
        EXPECT_FALSE(keeper && keeper->bringingBack());
        playback.stop();
      }
    }
  }
}

TEST_F(StreamKeeperTest, GivesUpWhenTheServerRefuses) {
  using Ends = std::function<void()>;
  const auto says = [this](int code) {
    return [=, this] { transport.fail(question, HTTPFailure(code)); };
  };
  const std::tuple<const char*, Ends, bool> rows[] = {
      {"no account", says(401), true},
      {"no right, or no connection left", says(403), true},
      {"too many", says(429), true},
      {"not there", says(404), false},
      {"broken", says(503), false},
      {"cannot be reached",
       [this] { transport.fail(question, URLError(URLError::Code::unreachable)); }, false},
      {"sends", [this] { transport.fail(question, AppError(u""_s)); }, false},
      {"sends nothing", [this] { transport.answer(question, ""); }, false},
  };
  for (const auto& [name, answer, refused] : rows) {
    SCOPED_TRACE(name);
    breakOff();
    untilOpened();
    see(EngineState::error);
    ASSERT_EQ(transport.open(question), 1);
    EXPECT_EQ(transport.exchanges().back()->request.userAgent, "Agent/1");
    answer();
    settle();
    EXPECT_EQ(keeper->bringingBack(), !refused);
    const qsizetype before = openings();
    clock.advance(3s);
    EXPECT_EQ(openings() - before, refused ? 0 : 1);
    playback.stop();
    settle();
  }
}

TEST_F(StreamKeeperTest, AsksOnlyWhenTheEngineHasLetGo) {
  breakOff();
  untilOpened();
  engine.releasesLate = true;
  see(EngineState::error);
  clock.advance(20s);
  EXPECT_EQ(transport.open(question), 0);
  engine.now.releasing = false;
  clock.advance(100ms);
  EXPECT_EQ(transport.open(question), 1);
}

TEST_F(StreamKeeperTest, OpeningWaitsForTheEndOfTheQuestion) {
  transport.cancelsAtOnce = false;
  breakOff();
  untilOpened();
  see(EngineState::error);
  ASSERT_EQ(transport.open(question), 1);
  const qsizetype before = openings();
  playback.play(channel(u"2"_s));
  playback.play(channel(u"3"_s));
  clock.advance(1s);
  EXPECT_EQ(openings(), before);
  transport.answer(question, "");
  settle();
  EXPECT_EQ(openings(), before + 1);
  EXPECT_EQ(engine.source.address.fileName(), u"3.ts"_s);
}

TEST_F(StreamKeeperTest, ChangedNetworkSavesTheWait) {
  breakOff();
  for (int times = 0; times < 2; ++times) {
    untilOpened();
    failsAgain();
  }
  clock.advance(1s);
  const qsizetype before = openings();
  for (int times = 0; times < 10; ++times) keeper->hurry();
  settle();
  EXPECT_EQ(openings(), before + 1) << "at once, and once";
  // The news are still new when this attempt, begun before them, has failed.
  keeper->hurry();
  failsAgain();
  EXPECT_LE(untilOpened(), 1'300ms);
  failsAgain();
  EXPECT_GE(untilOpened(), 14s);
  // A flood of news while attempts fail makes one a second at most.
  const qsizetype calm = openings();
  for (int step = 0; step < 100; ++step) {
    keeper->hurry();
    if (engine.now.hasMedia) failsAgain();
    clock.advance(100ms);
  }
  EXPECT_LE(openings() - calm, 13);
}

TEST_F(StreamKeeperTest, AfterAChangedNetworkAFrozenPictureIsBelievedSooner) {
  openBroadcast();
  plays(5s);
  keeper->hurry();
  plays(10s);
  EXPECT_FALSE(keeper->bringingBack()) << "what goes on is let be";
  keeper->hurry();
  clock.advance(2s);
  EXPECT_TRUE(keeper->bringingBack());
}

TEST_F(StreamKeeperTest, FinishesARecordingFirst) {
  openBroadcast();
  engine.now.recordable = true;
  ASSERT_FALSE(playback.startRecording());
  clock.advance(10s);
  ASSERT_TRUE(keeper->bringingBack());
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::saving);
  const qsizetype before = openings();
  clock.advance(20s);
  EXPECT_EQ(openings(), before);
  engine.onRecordingStopped({});
  clock.advance(1s);
  EXPECT_EQ(openings(), before + 1);
}

TEST_F(StreamKeeperTest, HoldsTheLastPictureUntilItGivesUp) {
  const auto show = [this](SourceNumber number) {
    const auto frame = std::make_shared<VideoFrame>();
    frame->source = number;
    frames.expect(number);
    frames.present(frame);
  };
  const auto shown = [this] {
    const SharedFrame frame = frames.take();
    return frame ? frame->source : 0;
  };
  show(1);
  openBroadcast();
  see(EngineState::error);
  frames.expect(2);
  EXPECT_EQ(shown(), 1u);
  EXPECT_FALSE(frames.latest()) << "which is of the source before";
  untilOpened();
  show(3);
  EXPECT_EQ(shown(), 3u);
  frames.expect(4);
  EXPECT_EQ(shown(), 3u);
  keeper->giveUp();
  EXPECT_EQ(shown(), 0u);

  show(5);
  openBroadcast();
  playback.play(channel(u"2"_s));
  frames.expect(6);
  EXPECT_EQ(shown(), 0u) << "another source holds no picture of the one before";
}

}  // namespace
}  // namespace vantor::test
