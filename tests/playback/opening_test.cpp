#include <atomic>
#include <future>

#include "playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

/// The still of the previous source that is shown while the next one loads.
class HeldFrameTest : public PlaybackFixture {
 protected:
  void SetUp() override {
    PlaybackFixture::SetUp();
    engine.picture = QImage(1280, 720, QImage::Format_RGB32);
    engine.picture.fill(Qt::red);
    openPlaying(channel(u"1"_s));
    engine.takeCalls();
  }

  bool nothingIsLeft() const { return playback.heldFrame().isNull() && leftOvers().isEmpty(); }
  bool loaded() const { return engine.calls.contains(u"play"_s); }
};

TEST_F(HeldFrameTest, ShowsThePreviousPictureUntilTheNextSourceHasOneFailsOrIsStopped) {
  const auto starts = [this] {
    engine.now.decodedVideo = 1;
    see(EngineState::playing);
  };
  const std::function<void()> ends[] = {starts, [this] { see(EngineState::error); },
                                        [this] { playback.stop(); }};
  for (const auto& end : ends) {
    playback.play(channel(u"2"_s));
    ASSERT_TRUE(eventually([&] { return loaded(); }));
    EXPECT_EQ(engine.calls.first(), u"saveSnapshot 640"_s);
    EXPECT_EQ(engine.calls.at(1), u"unload"_s);
    ASSERT_EQ(playback.heldFrame().size(), QSize(640, 360));
    EXPECT_EQ(playback.heldFrame().pixelColor(320, 180), QColor(Qt::red));
    EXPECT_TRUE(leftOvers().isEmpty());
    end();
    EXPECT_TRUE(playback.heldFrame().isNull()) << &end - ends;
    playback.stop();
    openPlaying(channel(u"1"_s));
    engine.takeCalls();
  }
}

TEST_F(HeldFrameTest, IsGivenUpAfterSixWaits) {
  engine.picture = {};
  open(channel(u"2"_s));
  for (int wait = 1; wait <= 6; ++wait) {
    EXPECT_FALSE(loaded()) << "before wait " << wait;
    clock.advance(29ms);
    EXPECT_FALSE(loaded()) << "during wait " << wait;
    clock.advance(1ms);
  }
  EXPECT_TRUE(loaded());
  EXPECT_TRUE(nothingIsLeft());
}

TEST_F(HeldFrameTest, ArrivesLateAndIsTaken) {
  const QImage picture = std::exchange(engine.picture, {});
  open(channel(u"2"_s));
  clock.advance(30ms);
  ASSERT_FALSE(loaded());
  ASSERT_TRUE(picture.save(engine.snapshot, "PNG"));
  clock.advance(30ms);
  ASSERT_TRUE(eventually([&] { return loaded(); }));
  EXPECT_EQ(playback.heldFrame().pixelColor(10, 10), QColor(Qt::red));
}

TEST_F(HeldFrameTest, BusyWorkerHoldsUpTheOpeningNoLongerThanAMissingPicture) {
  std::promise<void> free;
  worker.post([&] { free.get_future().wait(); });
  open(channel(u"2"_s));
  EXPECT_FALSE(loaded());
  clock.advance(180ms);
  EXPECT_TRUE(loaded());
  free.set_value();
  std::atomic<bool> over = false;
  worker.post([&] { over = true; });
  EXPECT_TRUE(eventually([&] { return over.load(); }));
  settle();
  EXPECT_TRUE(nothingIsLeft());
}

TEST_F(HeldFrameTest, StopDuringTheWaitLeavesNoPictureAndNoFile) {
  engine.picture = {};
  open(channel(u"2"_s));
  playback.stop();
  clock.advance(1s);
  EXPECT_FALSE(loaded());
  EXPECT_EQ(look(), Look{});
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
  EXPECT_FALSE(engine.calls.contains(u"saveSnapshot 640"_s));
  EXPECT_TRUE(loaded());
}

TEST_F(HeldFrameTest, FailureToMakeTheFolderDoesNotStopTheOpening) {
  ASSERT_TRUE(temporary.remove());
  writeFile(temporary.path());
  playback.play(channel(u"2"_s));
  clock.advance(180ms);
  EXPECT_TRUE(loaded());
  EXPECT_TRUE(playback.heldFrame().isNull());
  QFile::remove(temporary.path());
}

}  // namespace
}  // namespace vantor::test
