#include "app/app_delegate.h"

#include "playback/playback_fixture.h"

namespace vantor::test {
namespace {

class AppDelegateTest : public PlaybackFixture {
 protected:
  AppDelegate delegate;
  int ends = 0;

  void SetUp() override {
    QObject::connect(&delegate, &AppDelegate::terminate, [this] { ++ends; });
  }
};

TEST_F(AppDelegateTest, EndsAfterPlaybackHasStopped) {
  delegate.setPlayback(&playback);
  openPlaying(channel(u"1"_s));
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(ends, 0);
  settle();
  EXPECT_FALSE(playback.source());
  EXPECT_EQ(ends, 1) << "however often the user asks";
}

TEST_F(AppDelegateTest, WaitsForARecordingButNotForEver) {
  delegate.setPlayback(&playback);
  for (const bool saved : {true, false}) {
    SCOPED_TRACE(saved);
    ends = 0;
    openPlaying(channel(u"1"_s));
    engine.now.recordable = true;
    ASSERT_FALSE(playback.startRecording(temporary.filePath(u"recordings"_s)));
    delegate.applicationShouldTerminate();
    clock.advance(4900ms);
    EXPECT_EQ(ends, 0) << "the file is still being written";
    EXPECT_EQ(playback.recording().stage(), Recording::Stage::saving);
    EXPECT_EQ(playback.itemID(), u"1"_s);
    if (saved) engine.onRecordingStopped({});
    clock.advance(100ms);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(look(), Look{});
    if (!saved) engine.onRecordingStopped({});
  }
}

TEST_F(AppDelegateTest, EndsAtOnceWithoutPlayback) {
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now) << "not yet there";
  EXPECT_EQ(ends, 1);
  {
    Playback gone(engine, clock, worker, folders(), Output::discarded);
    delegate.setPlayback(&gone);
  }
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now) << "gone";
  EXPECT_EQ(ends, 2);
}

}  // namespace
}  // namespace vantor::test
