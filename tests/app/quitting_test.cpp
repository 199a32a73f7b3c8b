// What ends the program: the user, the desktop's signals, and a limit when something does not let
// it go.
#include <cerrno>
#include <csignal>
#include <thread>

#include "app/app_delegate.h"
#include "app/quit_limit.h"
#include "app/termination_signals.h"
#include "playback/playback_fixture.h"

namespace vantor::test {
namespace {

class AppDelegateTest : public PlaybackFixture {
 protected:
  AppDelegate delegate;
  int ends = 0;

  void SetUp() override {
    delegate.setPlayback(&playback);
    QObject::connect(&delegate, &AppDelegate::terminate, [this] { ++ends; });
  }
};

TEST_F(AppDelegateTest, EndsAfterPlaybackHasStopped) {
  openPlaying(channel(u"1"_s));
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::later);
  EXPECT_EQ(ends, 0);
  settle();
  EXPECT_FALSE(playback.source());
  EXPECT_EQ(ends, 1) << "however often the user asks";
}

TEST_F(AppDelegateTest, EndsAfterWhatWasGivenUpForIt) {
  const QDir folder(folders().temporary);
  const auto stills = [&] { return folder.entryList({u"quillet-frame-*"_s}, QDir::Dirs); };
  openPlaying(channel(u"1"_s));
  playback.play(channel(u"2"_s));
  settle();
  ASSERT_EQ(stills().size(), 1);
  QObject::connect(&delegate, &AppDelegate::terminate,
                   [&] { EXPECT_EQ(stills(), QStringList()) << "nothing goes on after the end"; });
  delegate.applicationShouldTerminate();
  settle();
  EXPECT_EQ(ends, 1);
}

TEST_F(AppDelegateTest, WaitsForARecordingButNotForEver) {
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
    EXPECT_EQ(look(), "idle");
    if (!saved) engine.onRecordingStopped({});
  }
}

TEST_F(AppDelegateTest, EndsAtOnceWithoutPlayback) {
  delegate.setPlayback(nullptr);
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now) << "not yet there";
  EXPECT_EQ(ends, 1);
  delegate.setPlayback(
      std::make_unique<Playback>(engine, clock, worker, folders(), Output::discarded).get());
  EXPECT_EQ(delegate.applicationShouldTerminate(), AppDelegate::Reply::now) << "gone";
  EXPECT_EQ(ends, 2);
}

TEST(TerminationSignals, AreToldOnceAndLeaveErrnoAlone) {
  TerminationSignals signals;
  int received = 0;
  QObject::connect(&signals, &TerminationSignals::received, [&] { ++received; });
  errno = 0;
  // More than a pipe holds.
  for (int i = 0; i < 100'000 && errno == 0; ++i) std::raise(SIGTERM);
  EXPECT_EQ(errno, 0);
  EXPECT_TRUE(eventually([&] { return received > 0; }));
  EXPECT_EQ(received, 1);
  limitQuitting(0, 0ms);  // takes back what the signal set
}

TEST(QuitLimitDeathTest, EndsTheProcessWhateverItWaitsFor) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        limitQuitting(3, 10ms);
        std::this_thread::sleep_for(24h);
      },
      testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace vantor::test
