#include <QSemaphore>

#include "playback_fixture.h"
#include "support/awaited.h"
#include "support/files.h"

namespace vantor::test {
namespace {

/// The still of the previous source that is shown while the next one loads.
class HeldFrameTest : public PlaybackFixture {
 protected:
  QImage picture{1280, 720, QImage::Format_RGB32};

  void SetUp() override {
    picture.fill(Qt::red);
    playFirst();
  }
  void playFirst() {
    playback.stop();
    engine.picture = picture;
    openPlaying(channel(u"1"_s));
    engine.takeCalls();
  }

  bool nothingIsLeft() const { return playback.heldFrame().isNull() && leftOvers().isEmpty(); }
  bool loaded() const { return engine.calls.contains(u"play"_s); }
};

TEST_F(HeldFrameTest, ShowsThePreviousPictureUntilTheNextSourceHasOneFailsOrIsStopped) {
  const std::function<void()> ends[] = {[this] { starts(); }, [this] { see(EngineState::error); },
                                        [this] { playback.stop(); }};
  for (const auto& end : ends) {
    playback.play(channel(u"2"_s));
    ASSERT_TRUE(eventually([&] { return loaded(); }));
    EXPECT_EQ(engine.calls.first(2), (QStringList{u"saveSnapshot 640"_s, u"unload"_s}));
    ASSERT_EQ(playback.heldFrame().size(), QSize(640, 360));
    EXPECT_EQ(playback.heldFrame().pixelColor(320, 180), QColor(Qt::red));
    EXPECT_TRUE(leftOvers().isEmpty());
    end();
    EXPECT_TRUE(playback.heldFrame().isNull()) << &end - ends;
    playFirst();
  }
}

TEST_F(HeldFrameTest, IsGivenUpAfterSixWaitsWhateverHoldsItUp) {
  QSemaphore free;
  const std::function<void()> hindrances[] = {
      [&] { worker.post([&] { free.acquire(); }); },
      [&] { engine.picture = {}; },
      [&] { ASSERT_TRUE(temporary.remove() && !writeFile(temporary.path()).isEmpty()); },
  };
  for (const auto& hinder : hindrances) {
    SCOPED_TRACE(&hinder - hindrances);
    playFirst();
    hinder();
    open(channel(u"2"_s));
    clock.advance(179ms);
    EXPECT_FALSE(loaded());
    clock.advance(1ms);
    EXPECT_TRUE(loaded());
    free.release();
    EXPECT_TRUE(awaited<bool>(worker.run([] { return true; })));
    settle();
    EXPECT_TRUE(nothingIsLeft());
  }
  QFile::remove(temporary.path());
}

TEST_F(HeldFrameTest, ArrivesLateAndIsTaken) {
  engine.picture = {};
  open(channel(u"2"_s));
  clock.advance(30ms);
  ASSERT_FALSE(loaded());
  ASSERT_TRUE(picture.save(engine.snapshot, "PNG"));
  clock.advance(30ms);
  ASSERT_TRUE(eventually([&] { return loaded(); }));
  EXPECT_EQ(playback.heldFrame().pixelColor(10, 10), QColor(Qt::red));
}

TEST_F(HeldFrameTest, StopDuringTheWaitLeavesNoPictureAndNoFile) {
  engine.picture = {};
  open(channel(u"2"_s));
  playback.stop();
  clock.advance(1s);
  EXPECT_FALSE(loaded());
  EXPECT_EQ(look(), "idle");
  EXPECT_TRUE(nothingIsLeft());
}

TEST_F(HeldFrameTest, IsNotTakenWithoutAPictureNorHeadless) {
  engine.now.decodedVideo = 0;
  open(channel(u"2"_s));
  EXPECT_EQ(engine.calls.first(), u"unload"_s);
  EXPECT_TRUE(loaded());
  Playback headless(engine, clock, worker, folders(), Output::discarded);
  engine.now.decodedVideo = 1;
  engine.takeCalls();
  headless.play(channel(u"2"_s));
  settle();
  EXPECT_EQ(engine.calls.first(), u"unload"_s);
  EXPECT_TRUE(loaded());
}

}  // namespace
}  // namespace vantor::test
