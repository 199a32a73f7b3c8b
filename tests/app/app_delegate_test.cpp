#include "app/app_delegate.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/worker.h"
#include "playback/playback.h"
#include "support/fake_engine.h"
#include "support/manual_clock.h"
#include "support/waiting.h"

namespace vantor {
namespace {

using namespace std::chrono_literals;

class AppDelegateTest : public ::testing::Test {
 protected:
  QTemporaryDir home;
  test::FakeEngine engine;
  test::ManualClock clock;
  Worker worker;
  std::unique_ptr<Playback> playback = std::make_unique<Playback>(
      engine, clock, worker, Folders{home.path(), home.path(), home.path()}, Output::discarded);
  AppDelegate delegate;
  int ends = 0;

  void SetUp() override {
    QObject::connect(&delegate, &AppDelegate::terminate, [this] { ++ends; });
  }
  void play() {
    playback->play(
        {.url = QUrl(QStringLiteral("http://tv.example/1.ts")), .id = QStringLiteral("x")});
    test::settle();
    engine.now.state = EngineState::playing;
    engine.now.hasMedia = true;
    engine.now.decodedVideo = 1;
    engine.now.recordable = true;
    clock.advance(250ms);
  }
};

TEST_F(AppDelegateTest, EndsAtOnceBeforeTheWindowAppeared) {
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now);
  EXPECT_EQ(ends, 1);
}

TEST_F(AppDelegateTest, EndsAfterPlaybackHasStopped) {
  delegate.setPlayback(playback.get());
  play();
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(ends, 0);
  test::settle();
  EXPECT_FALSE(playback->source());
  EXPECT_EQ(ends, 1) << "however often the user asks";
}

TEST_F(AppDelegateTest, WaitsForARecordingButNotForEver) {
  delegate.setPlayback(playback.get());
  play();
  playback->startRecording(home.filePath(QStringLiteral("recordings")));
  ASSERT_EQ(playback->recording().stage(), Recording::Stage::running);
  delegate.applicationShouldTerminate();
  clock.advance(4900ms);
  EXPECT_EQ(ends, 0) << "the file is still being written";
  clock.advance(200ms);
  EXPECT_EQ(ends, 1);
}

TEST_F(AppDelegateTest, EndsWhenTheControllerIsGone) {
  delegate.setPlayback(playback.get());
  playback.reset();
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now);
  EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace vantor
