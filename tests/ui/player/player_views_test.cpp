#include "playback/playback_fixture.h"
#include "playback/stream_keeper.h"
#include "playback/video_frame_queue.h"
#include "support/fake_transport.h"
#include "ui/player/player_pane.h"
#include "ui/player/transport_controls.h"

namespace vantor::test {
namespace {

TEST(TransportClock, WritesMinutesAndHours) {
  const std::pair<double, const char16_t*> cases[] = {
      {0, u"0:00"},        {-3, u"0:00"},      {59.9, u"0:59"},       {545, u"9:05"},
      {3599.99, u"59:59"}, {3600, u"1:00:00"}, {36'061, u"10:01:01"}, {1e300, u"277777777:46:40"}};
  for (const auto& [seconds, text] : cases)
    EXPECT_EQ(TransportControls::clock(seconds), QString::fromUtf16(text));
}

class PlayerViewsTest : public PlaybackFixture {
 protected:
  VideoFrameQueue frames;
  FakeTransport transport;
  StreamKeeper keeper{playback, engine, frames, transport, clock};
  PlayerPane pane{playback, keeper};
  TransportControls controls{playback};

  void showMovie() {
    engine.now = filmAt(30'000, 90'000);
    clock.advance(250ms);
  }
};

TEST_F(PlayerViewsTest, ThePaneFollowsTheController) {
  EXPECT_TRUE(pane.idle());
  EXPECT_EQ(pane.placeholder(), u"Choose something to watch"_s);
  EXPECT_FALSE(pane.surfaceVisible());
  open(channel(u"1"_s));
  EXPECT_TRUE(pane.loading() && pane.surfaceVisible() && !pane.idle());
  EXPECT_EQ(pane.openingText(), u"Opening Channel 1"_s);
  EXPECT_EQ(pane.playPauseSymbol(), u"pause.fill"_s);
  showMovie();
  EXPECT_FALSE(pane.loading());
  pane.togglePause();
  EXPECT_EQ(pane.playPauseSymbol(), u"play.fill"_s);
  pane.toggleExpanded();
  EXPECT_EQ(pane.expandSymbol(), u"arrow.down.right.and.arrow.up.left"_s);
  pane.togglePause();
  see(EngineState::error);
  EXPECT_TRUE(pane.surfaceVisible()) << "which holds the last picture";
  EXPECT_EQ(pane.message(), QString());
  EXPECT_EQ(pane.interruption(), u"Interrupted. Trying again…"_s);
  clock.advance(2s);
  EXPECT_EQ(playback.state(), PlaybackState::opening);
  EXPECT_FALSE(pane.loading() || pane.holdingFrame());
  pane.giveUp();
  EXPECT_EQ(pane.interruption(), QString());
  EXPECT_FALSE(pane.surfaceVisible());
  EXPECT_EQ(pane.message(),
            u"This source could not be opened. It may be offline or your provider may be refusing "
            "the connection."_s);
  pane.stop();
  EXPECT_TRUE(pane.idle());
}

TEST_F(PlayerViewsTest, ADragMovesPlaybackOnceAtItsEnd) {
  open(channel(u"1"_s));
  showMovie();
  EXPECT_EQ(controls.positionText() + u" of "_s + controls.durationText(), u"0:30 of 1:30"_s);
  EXPECT_EQ(controls.sliderEnd(), 90);
  engine.calls.clear();
  controls.beginSeek();
  controls.dragTo(60);
  showMovie();
  EXPECT_EQ(controls.positionText(), u"1:00"_s) << "follows the drag, not playback";
  controls.dragTo(45);
  controls.endSeek();
  EXPECT_EQ(controls.positionText(), u"0:45"_s) << "until playback tells where it is";
  controls.beginSeek();
  EXPECT_EQ(controls.sliderValue(), 45);
  controls.dragTo(10);
  controls.abandonSeek();
  EXPECT_EQ(controls.sliderValue(), 30);

  engine.now.length = 0;
  engine.now.seekable = false;
  clock.advance(250ms);
  EXPECT_EQ(controls.sliderEnd(), 1);
  EXPECT_EQ(controls.sliderValue(), 0);
  controls.beginSeek();
  controls.endSeek();
  EXPECT_EQ(engine.calls, QStringList{u"setTime 45000"_s}) << "a broadcast stays where it is";

  showMovie();
  engine.now.state = EngineState::ended;
  clock.advance(250ms);
  playback.restart();
  controls.beginSeek();
  controls.dragTo(45);
  controls.endSeek();
  EXPECT_EQ(controls.sliderValue(), 30) << "nobody will tell where it is";
}

TEST_F(PlayerViewsTest, TheChoicesFollowWhatIsInForce) {
  EXPECT_FALSE(controls.audioEnabled());
  EXPECT_EQ(controls.subtitles().first().toMap()[u"name"_s], u"Off"_s);
  open(channel(u"1"_s));
  showMovie();
  engine.now.audioTracks = {{1, u"English"_s}, {2, u"Deutsch"_s}};
  engine.now.subtitleTracks = {{5, u"English"_s}};
  engine.devices.present = {{u"tv"_s, u"TV"_s}, {u"bar"_s, u"Bar"_s}};
  const struct {
    int audio, subtitle;
    float rate;
    QString wanted, inForce;
    QList<int> choices;  // of sound, subtitles, speed, output
  } cases[] = {
      {1, -1, 1, u""_s, u"bar"_s, {0, 0, 1, 0}},
      {2, 5, 2, u"bar"_s, u"bar"_s, {1, 1, 4, 2}},
      {-1, 9, 3, u"bar"_s, u""_s, {-1, 0, -1, -1}},
      {1, 5, 0.5, u"gone"_s, u"tv"_s, {0, 1, 0, 1}},
  };
  for (const auto& [audio, subtitle, rate, wanted, inForce, choices] : cases) {
    controls.chooseOutput(wanted);
    engine.now.audioTrack = audio;
    engine.now.subtitleTrack = subtitle;
    engine.now.rate = rate;
    engine.devices.inForce = inForce;
    clock.advance(250ms);
    EXPECT_EQ((QList{controls.audioChoice(), controls.subtitleChoice(), controls.speedChoice(),
                     controls.outputChoice()}),
              choices);
  }
  EXPECT_TRUE(controls.audioEnabled());
  engine.calls.clear();
  controls.chooseAudio(2);
  controls.chooseSubtitle(-1);
  controls.chooseSpeed(1.25);
  EXPECT_EQ(engine.calls,
            (QStringList{u"setAudioTrack 2"_s, u"setSubtitleTrack -1"_s, u"setRate 1.25"_s}));
}

TEST_F(PlayerViewsTest, DelaysAroundThePresentOneAndNoneAreOffered) {
  open(channel(u"1"_s));
  const std::tuple<int, int, int, int> cases[] = {
      {0, -100, 100, 9}, {-250, -350, 0, 10}, {2000, 0, 2000, 6}};
  for (const auto& [delay, first, last, count] : cases) {
    controls.chooseDelay(delay);
    const QVariantList list = controls.delays();
    EXPECT_EQ(list.first().toMap()[u"delay"_s], first);
    EXPECT_EQ(list.last().toMap()[u"delay"_s], last);
    EXPECT_EQ(list.size(), count);
    EXPECT_EQ(list.value(controls.delayChoice()).toMap()[u"delay"_s], delay);
  }
}

}  // namespace
}  // namespace vantor::test
