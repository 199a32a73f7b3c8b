#include "playback/stream_keeper.h"

#include "platform/app_error.h"
#include "playback/video_frame_queue.h"
#include "playback_fixture.h"
#include "support/fake_transport.h"

namespace vantor::test {
namespace {

using Step = std::function<void()>;

const QString question = u"1.ts"_s;

class StreamKeeperTest : public PlaybackFixture {
 protected:
  VideoFrameQueue frames;
  FakeTransport transport;
  std::unique_ptr<StreamKeeper> keeper = makeKeeper();

  std::unique_ptr<StreamKeeper> makeKeeper() {
    return std::make_unique<StreamKeeper>(playback, engine, frames, transport, clock);
  }
  bool bringsBack() const { return keeper && keeper->bringingBack(); }

  static PlayRequest source(SourceKind kind) {
    PlayRequest request = channel(u"1"_s);
    request.kind = kind;
    return request;
  }
  const Step broadcast = [this] { openPlaying(source(SourceKind::broadcast)); };
  const Step ends = [this] { see(EngineState::ended); };
  const Step fails = [this] { see(EngineState::error); };
  /// A broadcast that has played breaks off.
  void breakOff() {
    broadcast();
    ends();
  }
  void openFilm(std::int64_t time, std::int64_t length) {
    openPlaying(source(SourceKind::onDemand));
    see(filmAt(time, length));
  }
  void plays(std::chrono::milliseconds duration) {
    for (auto left = duration; left > 0ms; left -= 250ms) {
      ++engine.now.decoded;
      clock.advance(250ms);
    }
  }
  /// An attempt fails, for which the server has no reason to give.
  void failsAgain() {
    fails();
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
  const auto quiet = [this](std::chrono::milliseconds time) {
    return [=, this] { clock.advance(time); };
  };
  const auto playing = [this](std::chrono::milliseconds time) {
    return [=, this] { plays(time); };
  };
  const auto film = [this](std::int64_t time, std::int64_t length) {
    return [=, this] { openFilm(time, length); };
  };
  const Step unstarted = [this] { open(source(SourceKind::broadcast)); };
  const Step file = [this] { openPlaying(source(SourceKind::file)); };
  const Step pause = [this] { playback.togglePause(); };
  const Step again = [this] {
    playback.restart();
    engine.now = filmAt(300'000, 900'000);
    clock.advance(250ms);
  };
  const Step endsAgain = [this] {
    engine.now.state = EngineState::ended;
    engine.announce();
  };
  const Step news = [this] { keeper->hurry(); };
  const Step lastPicture = [this] {
    ++engine.now.decodedVideo;
    clock.advance(5s);
  };
  const std::tuple<const char*, std::vector<Step>, bool> rows[] = {
      {"broadcast ends", {broadcast, ends}, true},
      {"broadcast fails", {broadcast, fails}, true},
      {"broadcast is frozen", {broadcast, quiet(10s)}, true},
      {"broadcast thaws", {broadcast, quiet(10'500ms), playing(500ms)}, false},
      {"is frozen after news", {broadcast, playing(5s), news, quiet(2s)}, true},
      {"goes on after news", {broadcast, playing(5s), news, playing(1s), quiet(5s)}, false},
      {"broadcast stutters", {broadcast, quiet(9'750ms), playing(1s)}, false},
      {"goes on", {broadcast, playing(20s)}, false},
      {"goes on slowly", {broadcast, playing(1s), quiet(9s), playing(1s), quiet(9s)}, false},
      {"shows its last picture", {broadcast, lastPicture, lastPicture}, true},
      {"paused", {broadcast, pause, quiet(5min)}, false},
      {"paused, then over", {broadcast, pause, ends}, false},
      {"never started", {unstarted, fails}, false},
      {"file is frozen", {file, quiet(20s)}, false},
      {"film is cut off", {film(300'000, 900'000), ends}, true},
      {"film fails in the middle", {film(300'000, 900'000), fails}, true},
      {"film is frozen", {film(300'000, 900'000), quiet(10s)}, true},
      {"film ends in its credits", {film(880'000, 900'000), ends}, false},
      {"film played again is cut off", {film(890'000, 900'000), ends, again, endsAgain}, true},
      {"film played again is frozen", {film(890'000, 900'000), ends, again, quiet(10s)}, true},
      {"film without a length ends", {film(300'000, 0), ends}, false},
  };
  for (const auto& [name, steps, comesBack] : rows) {
    SCOPED_TRACE(name);
    for (const Step& step : steps) step();
    EXPECT_EQ(bringsBack(), comesBack);
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
    EXPECT_TRUE(bringsBack());
    failsAgain();
  }
  while (bringsBack()) {
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

TEST_F(StreamKeeperTest, GivesUpAfterThreeMinutesAlsoInAnAttemptThatSaysNothing) {
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
  EXPECT_EQ(look(), "1 opening");
  clock.advance(20s);
  EXPECT_FALSE(bringsBack());
  EXPECT_TRUE(playback.message());
  EXPECT_FALSE(engine.now.hasMedia);
  EXPECT_EQ(untilOpened(), 10min);
}

TEST_F(StreamKeeperTest, StartsAnewAfterPlayingSteadilyOnly) {
  breakOff();
  EXPECT_LE(untilOpened(), 1'300ms);
  starts();
  EXPECT_FALSE(bringsBack());
  plays(29s);
  ends();
  EXPECT_GE(untilOpened(), 2s);
  starts();
  plays(31s);
  ends();
  EXPECT_LE(untilOpened(), 1'300ms);

  // One that never plays steadily has its three minutes, spread over as many tries.
  int tries = 0;
  do {
    starts();
    plays(5s);
    ends();
  } while (untilOpened() < 10min && ++tries < 20);
  EXPECT_LT(tries, 20);
  EXPECT_EQ(playback.state(), PlaybackState::failed);
}

TEST_F(StreamKeeperTest, AFilmGoesOnFromWhereItWasAtItsSpeed) {
  openFilm(300'000, 900'000);
  // It is at its beginning when it breaks off again.
  for (int times = 0; times < 2; ++times) {
    ends();
    untilOpened();
    EXPECT_EQ(playback.source()->resume, 300);
    starts();
  }
  engine.takeCalls();
  see(filmAt(0, 900'000));
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setTime 300000"_s});
  engine.now.time = 400'000;
  engine.now.rate = 1.5;
  plays(1s);
  fails();
  untilOpened();
  EXPECT_EQ(playback.source()->resume, 400);
  starts();
  EXPECT_EQ(engine.calls.last(), u"setRate 1.5"_s);
}

/// The ways into each stage, and each command there.
TEST_F(StreamKeeperTest, StopsForGoodWhateverTheUserDoes) {
  const Step attempt = [this] { untilOpened(); };
  const Step unload = [this] {
    engine.now.releasing = engine.releasesLate = true;
    fails();
  };
  const std::vector<Step> ways[] = {
      {fails}, {fails, attempt}, {fails, attempt, unload}, {fails, attempt, fails}};
  const std::tuple<const char*, Step, int> commands[] = {
      {"stop", [this] { playback.stop(); }, 0},
      {"play", [this] { playback.play(channel(u"2"_s)); }, 1},
      {"retry", [this] { playback.retry(); }, 1},
      {"pause", [this] { playback.togglePause(); }, 0},
      {"restart", [this] { playback.restart(); }, 0},
      {"quit", [this] { keeper.reset(); }, 0},
      {"give up", [this] { keeper->giveUp(); }, 0},
  };
  for (const auto& way : ways) {
    for (const auto& [name, command, opened] : commands) {
      for (const bool networkChanges : {false, true}) {
        SCOPED_TRACE(testing::Message() << "stage " << &way - ways << ", " << name);
        if (!keeper) keeper = makeKeeper();
        const auto news = [&] {
          if (networkChanges && keeper) keeper->hurry();
        };
        broadcast();
        for (const Step& go : way) go();
        ASSERT_TRUE(bringsBack());
        news();
        const qsizetype before = openings();
        command();
        EXPECT_FALSE(bringsBack());
        settle();
        news();
        engine.now.releasing = engine.releasesLate = false;
        clock.advance(5min);
        EXPECT_EQ(openings() - before, opened);
        EXPECT_EQ(transport.open(question), 0);
        EXPECT_FALSE(bringsBack());
        playback.stop();
      }
    }
  }
}

TEST_F(StreamKeeperTest, OnlyASeekThatMovesSomethingIsACommand) {
  const Step film = [this] { openFilm(300'000, 900'000); };
  const Step freezes = [this] { clock.advance(10s); };
  const std::tuple<const char*, Step, Step, bool> rows[] = {
      {"broadcast ends", broadcast, ends, true}, {"broadcast is frozen", broadcast, freezes, true},
      {"film is cut off", film, ends, true},     {"film fails", film, fails, true},
      {"film is frozen", film, freezes, false},
  };
  for (const auto& [name, begin, stops, comesBack] : rows) {
    SCOPED_TRACE(name);
    begin();
    stops();
    ASSERT_TRUE(bringsBack());
    playback.seek(20);
    EXPECT_EQ(bringsBack(), comesBack);
    playback.stop();
  }
}

TEST_F(StreamKeeperTest, GivesUpWhenTheServerRefuses) {
  const auto says = [](int code) { return std::make_exception_ptr(HTTPFailure(code)); };
  const std::pair<std::exception_ptr, bool> rows[] = {
      {says(401), true},
      {says(403), true},  // also when no connection is left
      {says(429), true},
      {says(404), false},
      {says(503), false},
      {std::make_exception_ptr(URLError(URLError::Code::unreachable)), false},
      {std::make_exception_ptr(AppError(u"sends more than a reason"_s)), false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const auto& [failure, refused] = row;
    breakOff();
    untilOpened();
    fails();
    ASSERT_EQ(transport.open(question), 1);
    EXPECT_EQ(transport.exchanges().back()->request.userAgent, "Agent/1");
    const qsizetype before = openings();
    transport.fail(question, failure);
    settle();
    EXPECT_EQ(bringsBack(), !refused);
    clock.advance(3s);
    EXPECT_EQ(openings() - before, refused ? 0 : 1);
    playback.stop();
    settle();
  }
}

TEST_F(StreamKeeperTest, AsksOnlyWhenTheEngineHasLetGoAndOpensWhenTheQuestionIsOver) {
  transport.cancelsAtOnce = false;
  breakOff();
  untilOpened();
  engine.releasesLate = true;
  fails();
  clock.advance(20s);
  EXPECT_EQ(transport.open(question), 0);
  engine.now.releasing = false;
  clock.advance(100ms);
  EXPECT_EQ(transport.open(question), 1);
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

TEST_F(StreamKeeperTest, FinishesARecordingFirst) {
  broadcast();
  engine.now.recordable = true;
  ASSERT_FALSE(playback.startRecording());
  ends();
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::saving);
  const qsizetype before = openings();
  playback.play(channel(u"2"_s));
  playback.retry();
  EXPECT_TRUE(bringsBack()) << "nothing else may play yet";
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
  breakOff();
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
  broadcast();
  playback.play(channel(u"2"_s));
  frames.expect(6);
  EXPECT_EQ(shown(), 0u) << "another source holds no picture of the one before";
}

}  // namespace
}  // namespace vantor::test
