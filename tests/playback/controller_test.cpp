#include "playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

class ControllerTest : public PlaybackFixture {};

TEST_F(ControllerTest, OpensASourceInOrderAndWithItsValues) {
  EXPECT_EQ(look(), Look{});
  EXPECT_EQ(playback.title(), u"Nothing playing yet"_s);
  EXPECT_EQ(playback.transport()->volume(), 100);
  EXPECT_FALSE(playback.isLocal());
  playback.transport()->setSeconds(5);
  playback.setVolume(42.9);
  engine.takeCalls();
  playback.play(channel(u"7"_s));
  EXPECT_EQ(look(), (Look{u"7"_s, true, {}, false}));
  EXPECT_EQ(playback.title(), u"Channel 7"_s);
  EXPECT_TRUE(engine.calls.isEmpty()) << "the engine is touched from the event loop only";
  settle();
  EXPECT_EQ(
      engine.calls,
      (QStringList{u"unload"_s, u"load http://tv.example/live/7.ts agent=Agent/1 caching=1200"_s,
                   u"setVolume 42"_s, u"play"_s}));
  EXPECT_EQ(playback.transport()->seconds(), 0);
  EXPECT_EQ(playback.transport()->volume(), 42.9);
}

/// Each way into a state, and what each operation and event makes of it.
TEST_F(ControllerTest, GoesFromStateToState) {
  using enum PlaybackState;
  const auto begin = [&] { open(channel(u"7"_s)); };
  const auto start = [&] {
    engine.now.decodedVideo = 1;
    see(EngineState::playing);
  };
  const auto toggle = [&] { playback.togglePause(); };
  const auto end = [&] { see(EngineState::ended); };
  const auto fail = [&] { see(EngineState::error); };
  const auto restart = [&] { playback.restart(); };
  const auto stop = [&] { playback.stop(); };
  const auto retry = [&] { playback.retry(); };
  using Step = std::function<void()>;
  // After: start, toggle, end, fail, restart, stop, retry, another one.
  const std::tuple<PlaybackState, std::vector<Step>, std::array<PlaybackState, 8>> rows[] = {
      {idle, {}, {idle, idle, idle, idle, idle, idle, idle, opening}},
      {opening, {begin}, {playing, suspended, failed, failed, opening, idle, opening, opening}},
      {suspended,
       {begin, toggle},
       {paused, opening, failed, failed, opening, idle, opening, opening}},
      {playing, {begin, start}, {playing, paused, ended, failed, playing, idle, opening, opening}},
      {paused,
       {begin, start, toggle},
       {paused, playing, ended, failed, playing, idle, opening, opening}},
      {ended, {begin, start, end}, {ended, playing, ended, ended, playing, idle, opening, opening}},
      {failed, {begin, fail}, {failed, failed, failed, failed, failed, idle, opening, opening}},
  };
  const Step steps[] = {start, toggle, end, fail, restart, stop, retry, begin};
  for (const auto& [state, way, after] : rows) {
    for (std::size_t step = 0; step < after.size(); ++step) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(state) << ", step " << step);
      playback.stop();
      for (const Step& go : way) go();
      ASSERT_EQ(playback.state(), state);
      steps[step]();
      EXPECT_EQ(playback.state(), after[step]);
      EXPECT_EQ(playback.source().has_value(), playback.state() != idle);
      EXPECT_EQ(playback.message().has_value(), playback.state() == failed);
    }
  }
}

TEST_F(ControllerTest, OfTwoPlaysInARowOnlyTheSecondReachesTheEngine) {
  playback.play(channel(u"1"_s));
  playback.play(channel(u"2"_s));
  settle();
  EXPECT_EQ(engine.calls.filter(u"load http"_s),
            QStringList{u"load http://tv.example/live/2.ts agent=Agent/1 caching=1200"_s});
  clock.advance(30s);
  EXPECT_EQ(look(), (Look{u"2"_s, true, {}, false}));
}

TEST_F(ControllerTest, RetryOpensTheSameSourceFromItsBeginning) {
  open(channel(u"7"_s, 15));
  see(EngineState::error);
  ASSERT_TRUE(playback.message());
  engine.takeCalls();
  playback.retry();
  EXPECT_EQ(look(), (Look{u"7"_s, true, {}, false}));
  EXPECT_EQ(playback.title(), u"Channel 7"_s);
  settle();
  EXPECT_TRUE(
      engine.calls.contains(u"load http://tv.example/live/7.ts agent=Agent/1 caching=1200"_s));
  engine.now = filmAt(0, 60'000);
  clock.advance(250ms);
  EXPECT_TRUE(engine.calls.filter(u"setTime"_s).isEmpty()) << "a retry does not resume";
  playback.stop();
  engine.takeCalls();
  playback.retry();
  settle();
  EXPECT_TRUE(engine.calls.isEmpty()) << "there is no source";
  EXPECT_EQ(look(), Look{});
}

TEST_F(ControllerTest, StopReportsTheLastPositionOnceAndReturnsToIdle) {
  openPlaying(channel(u"7"_s));
  engine.now.time = 12'500;
  engine.now.length = 60'000;
  clock.advance(250ms);
  playback.setExpanded(true);
  progress.clear();
  engine.takeCalls();
  playback.stop();
  EXPECT_EQ(progress, QStringList{u"7 12.5/60"_s});
  EXPECT_EQ(engine.calls, QStringList{u"unload"_s});
  EXPECT_EQ(look(), Look{});
  EXPECT_EQ(playback.title(), u"Nothing playing yet"_s);
  EXPECT_FALSE(playback.expanded());
  EXPECT_EQ(playback.transport()->seconds(), 12.5);
  clock.advance(1s);
  EXPECT_EQ(progress.size(), 1);
  EXPECT_EQ(clock.waiting(), 0u) << "the progress loop goes on after a stop";
}

TEST_F(ControllerTest, DeletedLocalFileFailsAndCanBeTriedAgain) {
  const QString path = temporary.filePath(u"film.mkv"_s);
  open({.url = QUrl::fromLocalFile(path),
        .title = u"Film"_s,
        .id = u"local"_s,
        .kind = SourceKind::file});
  const Look gone{u"local"_s, false, u"This media file is no longer available."_s, true};
  EXPECT_EQ(look(), gone);
  EXPECT_TRUE(playback.isLocal());
  EXPECT_TRUE(engine.calls.filter(u"load "_s).isEmpty());
  playback.retry();
  settle();
  EXPECT_EQ(look(), gone);
  ASSERT_TRUE(QDir().mkdir(path));
  playback.retry();
  settle();
  EXPECT_EQ(look(), gone) << "a folder is no media file";
  ASSERT_TRUE(QDir().rmdir(path));

  writeFile(path);
  playback.retry();
  settle();
  EXPECT_EQ(look(), (Look{u"local"_s, true, {}, false}));
  EXPECT_EQ(engine.calls.filter(u"load "_s).size(), 1);
}

TEST_F(ControllerTest, DestroyedWhileItOpensLeavesTheEngineAlone) {
  for (const bool begun : {false, true}) {
    engine.calls.clear();
    auto other = std::make_unique<Playback>(engine, clock, worker, folders(), Output::shown);
    other->play(channel(u"7"_s));
    if (begun) settle();
    const QStringList calls = engine.calls;
    other.reset();
    engine.announce();
    clock.advance(40s);
    EXPECT_EQ(engine.calls, calls);
    EXPECT_EQ(clock.waiting(), 0u);
  }
}

}  // namespace
}  // namespace vantor::test
