#include <gmock/gmock.h>

#include "support/model_fixture.h"
#include "ui/menu_commands.h"
#include "ui/player_pane.h"
#include "ui/transport_controls.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(ClockText, CountsWholeSecondsFromZero) {
  struct Row {
    double seconds;
    QString text;
  };
  for (const Row& row :
       {Row{0, u"0:00"_s}, Row{59.9, u"0:59"_s}, Row{545, u"9:05"_s}, Row{3599.99, u"59:59"_s},
        Row{3600, u"1:00:00"_s}, Row{36061, u"10:01:01"_s}, Row{-3, u"0:00"_s},
        Row{std::numeric_limits<double>::quiet_NaN(), u"0:00"_s}})
    EXPECT_EQ(TransportControls::clock(row.seconds), row.text) << row.seconds;
}

class PlayerTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch();
  Playback& playback = app.playback();
  PlayerPane pane{playback};
  TransportControls controls{playback};

  ~PlayerTest() override { playback.disconnect(); }

  void play() {
    playback.play(
        {.url = QUrl(u"http://tv.example/1.ts"_s), .title = u"News"_s, .id = u"live:1"_s});
    test::settle();
  }
  void firstPicture(std::int64_t length = 0) {
    engine.now.state = EngineState::playing;
    engine.now.decodedVideo = 1;
    engine.now.length = length;
    engine.now.seekable = length > 0;
    clock.advance(250ms);
  }
};

TEST_F(PlayerTest, HasThreeLooks) {
  EXPECT_TRUE(pane.idle());
  EXPECT_FALSE(pane.surfaceVisible());
  play();
  EXPECT_FALSE(pane.idle());
  EXPECT_TRUE(pane.surfaceVisible());
  EXPECT_TRUE(pane.loading());
  EXPECT_EQ(pane.openingText(), u"Opening News"_s);
  firstPicture();
  EXPECT_FALSE(pane.loading());
  engine.now.state = EngineState::error;
  clock.advance(250ms);
  EXPECT_FALSE(pane.message().isEmpty());
  EXPECT_FALSE(pane.surfaceVisible());
  EXPECT_FALSE(pane.idle());
  pane.retry();
  test::settle();
  EXPECT_TRUE(pane.message().isEmpty());
  EXPECT_TRUE(pane.loading());
  pane.stop();
  EXPECT_TRUE(pane.idle());
}

TEST_F(PlayerTest, ButtonsShowWhatTheyWillDo) {
  play();
  firstPicture();
  EXPECT_EQ(pane.playPauseSymbol(), u"pause.fill"_s);
  pane.togglePause();
  engine.now.state = EngineState::paused;
  clock.advance(250ms);
  EXPECT_EQ(pane.playPauseSymbol(), u"play.fill"_s);
  EXPECT_EQ(pane.expandSymbol(), u"arrow.up.left.and.arrow.down.right"_s);
  pane.toggleExpanded();
  EXPECT_TRUE(playback.expanded());
  EXPECT_EQ(pane.expandSymbol(), u"arrow.down.right.and.arrow.up.left"_s);
}

TEST_F(PlayerTest, ADragSeeksOnceWhenItEnds) {
  play();
  firstPicture(600'000);
  engine.now.time = 5'000;
  clock.advance(250ms);
  EXPECT_EQ(controls.positionText(), u"0:05"_s);
  EXPECT_EQ(controls.durationText(), u"10:00"_s);
  engine.takeCalls();

  controls.beginSeek();
  EXPECT_EQ(controls.positionText(), u"0:05"_s);
  controls.dragTo(100);
  controls.dragTo(200);
  engine.now.time = 6'000;
  clock.advance(250ms);
  EXPECT_EQ(controls.positionText(), u"3:20"_s);
  EXPECT_EQ(controls.sliderValue(), 200);
  EXPECT_THAT(engine.takeCalls(), ::testing::IsEmpty());
  controls.endSeek();
  EXPECT_EQ(engine.takeCalls().size(), 1);

  controls.beginSeek();
  controls.dragTo(300);
  controls.abandonSeek();
  controls.endSeek();
  EXPECT_THAT(engine.takeCalls(), ::testing::IsEmpty());
}

TEST_F(PlayerTest, ALiveStreamHasAnEmptySlider) {
  play();
  firstPicture();
  engine.now.time = 90'000;
  clock.advance(250ms);
  engine.takeCalls();
  EXPECT_EQ(controls.sliderEnd(), 1);
  EXPECT_EQ(controls.sliderValue(), 0);
  EXPECT_EQ(controls.positionText(), u"1:30"_s);
  controls.beginSeek();
  controls.dragTo(1);
  controls.endSeek();
  EXPECT_THAT(engine.takeCalls(), ::testing::IsEmpty());
}

TEST_F(PlayerTest, OffersTracksAndSpeeds) {
  const auto names = [](const QVariantList& list) {
    QStringList result;
    for (const QVariant& entry : list) result.append(entry.toMap().value(u"name"_s).toString());
    return result;
  };
  EXPECT_FALSE(controls.audioEnabled());
  EXPECT_EQ(names(controls.subtitles()), QStringList{u"Off"_s});
  QLocale::setDefault(QLocale::c());
  EXPECT_EQ(names(controls.speeds()),
            (QStringList{u"0.5×"_s, u"1×"_s, u"1.25×"_s, u"1.5×"_s, u"2×"_s}));
  play();
  engine.now.audioTracks = {{1, u"English"_s}, {2, u"Deutsch"_s}};
  engine.now.subtitleTracks = {{5, u"English"_s}};
  firstPicture(60'000);
  EXPECT_TRUE(controls.audioEnabled());
  EXPECT_EQ(names(controls.audio()), (QStringList{u"English"_s, u"Deutsch"_s}));
  EXPECT_EQ(names(controls.subtitles()), (QStringList{u"Off"_s, u"English"_s}));
  EXPECT_EQ(controls.subtitles().first().toMap().value(u"id"_s), -1);
}

TEST_F(PlayerTest, MenuCommandsActFromAnywhere) {
  MenuCommands menu(app);
  const QVariantList commands = menu.commands();
  const auto run = [&](const QString& keys) {
    for (int i = 0; i < commands.size(); ++i)
      if (commands[i].toMap().value(u"keys"_s) == keys) return menu.run(i);
    FAIL() << "no command has the keys " << keys.toStdString();
  };
  QStringList headings;
  for (const QVariant& command : commands)
    if (const QString heading = command.toMap().value(u"heading"_s).toString(); !heading.isEmpty())
      headings.append(heading);
  EXPECT_EQ(headings, (QStringList{u"File"_s, u"Playback"_s, u"Library"_s, u"Vantor Player"_s}));

  run(u"Ctrl+2"_s);
  EXPECT_EQ(app.section(), u"movies"_s);
  run(u"Ctrl+3"_s);
  EXPECT_EQ(app.section(), u"shows"_s);
  run(u"Ctrl+1"_s);
  EXPECT_EQ(app.section(), u"live"_s);
  run(u"Ctrl+K"_s);
  EXPECT_TRUE(app.showingConnect());
  run(u"Ctrl+,"_s);
  EXPECT_TRUE(app.showingSettings());
  run(u"Ctrl+O"_s);
  EXPECT_TRUE(test::eventually([&] { return filePanel.shown == 1; }));
  play();
  firstPicture();
  engine.takeCalls();
  run(u"Space"_s);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"pause"_s});
  run(u"Ctrl+."_s);
  EXPECT_TRUE(pane.idle());
  bool quit = false;
  QObject::connect(&menu, &MenuCommands::quitRequested, &menu, [&] { quit = true; });
  menu.run(-1);
  menu.run(99);
  EXPECT_FALSE(quit);
  run(u"Ctrl+Q"_s);
  EXPECT_TRUE(quit);
}

}  // namespace
}  // namespace vantor
