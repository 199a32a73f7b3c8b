#include "playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

class ControllerTest : public PlaybackFixture {};

TEST_F(ControllerTest, OpensTheLastOfSourcesInARowInOrderAndWithItsValues) {
  EXPECT_EQ(look(), "idle");
  EXPECT_EQ(playback.title(), u"Nothing playing yet"_s);
  EXPECT_FALSE(playback.isLocal());
  playback.transport()->setSeconds(5);
  playback.setVolume(42.9);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setVolume 42"_s});
  playback.play(channel(u"1"_s));
  playback.play(channel(u"7"_s));
  EXPECT_EQ(look(), "7 opening");
  EXPECT_EQ(playback.title(), u"Channel 7"_s);
  EXPECT_TRUE(engine.calls.isEmpty()) << "the engine is touched from the event loop only";
  settle();
  EXPECT_EQ(engine.calls,
            (QStringList{u"unload"_s, u"load http://tv.example/live/7.ts agent=Agent/1"_s,
                         u"setVolume 42"_s, u"play"_s}));
  EXPECT_EQ(playback.transport()->seconds(), 0);
  EXPECT_EQ(playback.transport()->volume(), 42.9);
}

/// Each way into a state, and what each operation and event makes of it.
TEST_F(ControllerTest, GoesFromStateToState) {
  using enum PlaybackState;
  using Step = std::function<void()>;
  const Step begin = [&] { open(channel(u"7"_s)); };
  const Step start = [&] { starts(); };
  const Step toggle = [&] { playback.togglePause(); };
  const auto become = [&](EngineState engineState) {
    return [this, engineState] {
      engine.now.state = engineState;
      engine.announce();
      clock.advance(250ms);
    };
  };
  const Step end = become(EngineState::ended);
  const Step fail = become(EngineState::error);
  const Step restart = [&] { playback.restart(); };
  const Step stop = [&] { playback.stop(); };
  const Step retry = [&] { playback.retry(); };
  const Step steps[] = {start, toggle, end, fail, restart, stop, retry, begin};
  // After each of these.
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
      // Again, with no loop that follows it.
      {playing,
       {begin, start, end, toggle},
       {playing, paused, ended, failed, playing, idle, opening, opening}},
      {paused,
       {begin, start, end, restart, toggle},
       {paused, playing, ended, failed, playing, idle, opening, opening}},
      {failed, {begin, fail}, {failed, failed, failed, failed, failed, idle, opening, opening}},
  };
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

TEST_F(ControllerTest, TogglesTheEngineWhichPlaysAgainFromTheEnd) {
  openPlaying(channel(u"7"_s));
  engine.takeCalls();
  playback.togglePause();
  playback.togglePause();
  see(EngineState::ended);
  playback.togglePause();
  engine.now.state = EngineState::ended;  // which nobody has seen yet
  playback.togglePause();
  playback.restart();
  EXPECT_EQ(engine.calls,
            (QStringList{u"pause"_s, u"play"_s, u"play"_s, u"play"_s, u"setTime 0"_s, u"play"_s}));
}

TEST_F(ControllerTest, StopReportsTheLastPositionOnceAndReturnsToIdle) {
  openPlaying(channel(u"7"_s));
  see(filmAt(12'500, 60'000));
  playback.setExpanded(true);
  playback.setFullScreen(true);
  progress.clear();
  engine.takeCalls();
  playback.stop();
  playback.retry();
  clock.advance(1s);
  EXPECT_EQ(progress, QStringList{u"7 12.5/60"_s});
  EXPECT_EQ(engine.calls, QStringList{u"unload"_s});
  EXPECT_EQ(look(), "idle");
  EXPECT_FALSE(playback.expanded() || playback.fullScreen());
  EXPECT_EQ(playback.transport()->seconds(), 12.5);
  EXPECT_EQ(clock.waiting(), 0u) << "the progress loop goes on after a stop";
}

TEST_F(ControllerTest, DeletedLocalFileFailsAndCanBeTriedAgain) {
  const QString path = temporary.filePath(u"film.mkv"_s);
  const std::string gone = "local failed: This media file is no longer available.";
  open({.url = QUrl::fromLocalFile(path), .id = u"local"_s, .kind = SourceKind::file});
  EXPECT_EQ(look(), gone);
  EXPECT_TRUE(playback.isLocal());
  ASSERT_TRUE(QDir().mkpath(path));
  playback.retry();
  settle();
  EXPECT_EQ(look(), gone) << "a folder is no media file";
  EXPECT_TRUE(engine.calls.filter(u"load "_s).isEmpty());
  ASSERT_TRUE(QDir().rmdir(path));
  writeFile(path);
  playback.retry();
  settle();
  EXPECT_EQ(look(), "local opening");
  EXPECT_EQ(engine.source.address, QUrl::fromLocalFile(path));
  playback.stop();
  EXPECT_TRUE(playback.isLocal()) << "as the last source was";
}

TEST_F(ControllerTest, FilesFromDiskHaveTheirIDInCommonAndNothingElse) {
  const auto file = [this](const QString& name) {
    const QString path = temporary.filePath(name);
    writeFile(path);
    return PlayRequest{
        .url = QUrl::fromLocalFile(path), .id = u"local"_s, .kind = SourceKind::file};
  };
  openPlaying(file(u"a.mkv"_s));
  engine.now.audioTracks = {{1, {}, u"eng"_s}, {2, {}, u"deu"_s}};
  see(EngineState::playing);
  playback.setAudioTrack(2);
  playback.setPictureShape(PictureShape::fill);
  openPlaying(file(u"a.mkv"_s));
  EXPECT_EQ(playback.pictureShape(), PictureShape::fill);
  EXPECT_EQ(playback.tracks().audio.size(), 1);
  open(file(u"b.mkv"_s));
  EXPECT_EQ(playback.pictureShape(), PictureShape::fit);
  EXPECT_TRUE(playback.tracks().audio.isEmpty());
}

TEST_F(ControllerTest, DestroyedWhileItOpensLeavesTheEngineAlone) {
  for (const bool begun : {false, true}) {
    auto other = std::make_unique<Playback>(engine, clock, worker, folders(), Output::shown);
    other->play(channel(u"7"_s));
    if (begun) settle();
    engine.takeCalls();
    other.reset();
    engine.announce();
    clock.advance(40s);
    EXPECT_TRUE(engine.calls.isEmpty());
    EXPECT_EQ(clock.waiting(), 0u);
  }
}

}  // namespace
}  // namespace vantor::test
