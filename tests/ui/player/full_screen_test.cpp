#include <QSignalSpy>
#include <QTest>

#include "playback/playback.h"
#include "ui/player/persistent_video_overlay.h"
#include "ui/window/window_fixture.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class FullScreenTest : public test::WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    transport.always(action(LibraryKind::live), rows(LibraryKind::live, 1, 5));
    transport.always(categoryAction(LibraryKind::live), "[]");
    open();
    connectAccount(account);
    transport.answer(QString(), acceptedSignIn());
    ASSERT_TRUE(
        test::eventually([&] { return signInOver && app->browsing().items().size() == 5; }));
    views->connectView()->close();
    overlay = window->findChild<PersistentVideoOverlay*>();
    ASSERT_TRUE(overlay);
  }
  void play() {
    app->play(app->browsing().items().item(0));
    test::settle();
    showPicture();
  }
  void playMovie() {
    app->playback().play(
        {.url = QUrl(u"http://tv.example/1.mp4"_s), .title = u"Film"_s, .id = u"movies:1"_s});
    test::settle();
    engine.now = {.state = EngineState::playing,
                  .hasMedia = true,
                  .time = 30'000,
                  .length = 90'000,
                  .seekable = true,
                  .decodedVideo = 5};
    clock.advance(250ms);
  }
  bool isFull() {
    QTest::qWait(0);
    return window->visibility() == QWindow::FullScreen;
  }
  /// The picture has all of the window, and nothing is left of the screen under it.
  void expectFull(bool full) {
    EXPECT_EQ(isFull(), full);
    EXPECT_EQ(views->remote()->fullScreen(), full);
    QTest::qWait(50);
    EXPECT_EQ(overlay->size() == window->contentItem()->size(), full);
    EXPECT_EQ(find("text", u"Live TV"_s) == nullptr, full);
  }

  /// Where the engine was told to go since the last look, in milliseconds.
  QStringList jumps() { return engine.takeCalls().filter(u"setTime"_s); }

  PersistentVideoOverlay* overlay = nullptr;
};

TEST_F(FullScreenTest, EveryWayInLeadsOutAgain) {
  press(Qt::Key_F11);
  press(Qt::Key_F);
  expectFull(false);

  play();
  const auto doubleClick = [&] {
    const QPoint place = overlay->mapToScene(overlay->boundingRect().center()).toPoint();
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, place);
  };
  const std::function<void()> ways[] = {
      [&] { press(Qt::Key_F11); },
      [&] { press(Qt::Key_F); },
      doubleClick,
      [&] { views->remote()->toggleFullScreen(); },
  };
  for (const auto& in : ways)
    for (const auto& out : ways) {
      in();
      expectFull(true);
      out();
      expectFull(false);
    }
  EXPECT_FALSE(app->playback().paused());
  expectMoves("full screen");

  views->player()->toggleExpanded();
  press(Qt::Key_F);
  press(Qt::Key_Escape);
  expectFull(false);
  EXPECT_TRUE(app->playback().expanded());
  press(Qt::Key_Escape);
  EXPECT_FALSE(app->playback().expanded());
}

TEST_F(FullScreenTest, WhatNeedsTheWindowEndsIt) {
  play();
  const std::function<void()> ends[] = {
      [&] { press(Qt::Key_2, Qt::ControlModifier); },
      [&] { press(Qt::Key_1, Qt::ControlModifier); },
      [&] { window->showNormal(); },
      [&] { app->setShowingSettings(true); },
      [&] { app->setShowingSettings(false), app->setShowingConnect(true); },
      [&] { press(Qt::Key_Period, Qt::ControlModifier); },
  };
  for (const auto& end : ends) {
    app->playback().setFullScreen(true);
    EXPECT_TRUE(isFull());
    end();
    EXPECT_FALSE(isFull());
  }
  EXPECT_FALSE(app->playback().source());
}

TEST_F(FullScreenTest, ControlsGoWhenNobodyNeedsThem) {
  play();
  PlayerRemote& remote = *views->remote();
  press(Qt::Key_F);
  EXPECT_TRUE(remote.controlsShown());
  clock.advance(2900ms);
  EXPECT_TRUE(remote.controlsShown());
  clock.advance(200ms);
  EXPECT_FALSE(remote.controlsShown());

  QTest::mouseMove(window, QPoint(300, 200));
  QTest::mouseMove(window, QPoint(320, 220));
  EXPECT_TRUE(remote.controlsShown());
  clock.advance(3s);
  EXPECT_FALSE(remote.controlsShown());

  press(Qt::Key_Space);
  clock.advance(10s);
  EXPECT_TRUE(remote.controlsShown());
  press(Qt::Key_Space);
  EXPECT_FALSE(remote.controlsShown());

  remote.moved();
  press(Qt::Key_Tab);
  EXPECT_TRUE(remote.busy());
  clock.advance(10s);
  EXPECT_TRUE(remote.controlsShown());
}

TEST_F(FullScreenTest, TheKeysOfARemoteControl) {
  playMovie();
  press(Qt::Key_Right);
  press(Qt::Key_M);
  clock.advance(1s);
  EXPECT_EQ(app->playback().transport()->volume(), 100);
  EXPECT_EQ(jumps(), QStringList());

  press(Qt::Key_F);
  struct Skip {
    QList<std::pair<Qt::Key, bool>> keys;  // and whether Shift is held
    std::int64_t to;                       // milliseconds
  };
  const Skip skips[] = {{{{Qt::Key_Right, false}}, 40'000},
                        {{{Qt::Key_Right, false}, {Qt::Key_Right, false}}, 50'000},
                        {{{Qt::Key_Right, false}, {Qt::Key_Left, false}}, 30'000},
                        {{{Qt::Key_Left, true}}, 0},
                        {{{Qt::Key_Right, true}, {Qt::Key_Right, true}}, 90'000}};
  for (const auto& [keys, to] : skips) {
    for (const auto& [key, shift] : keys) press(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    EXPECT_EQ(jumps(), QStringList());
    EXPECT_EQ(views->transport()->sliderValue() * 1000, to);
    clock.advance(300ms);
    EXPECT_EQ(jumps(), QStringList{u"setTime %1"_s.arg(to)});
  }
  EXPECT_NE(views->remote()->note(), QString());
  clock.advance(2s);
  EXPECT_EQ(views->remote()->note(), QString());

  const std::pair<Qt::Key, double> volumes[] = {
      {Qt::Key_Minus, 95}, {Qt::Key_Plus, 100}, {Qt::Key_Plus, 100},     {Qt::Key_Minus, 95},
      {Qt::Key_M, 0},      {Qt::Key_M, 95},     {Qt::Key_VolumeMute, 0}, {Qt::Key_Plus, 5}};
  for (const auto& [key, volume] : volumes) {
    press(key);
    EXPECT_EQ(app->playback().transport()->volume(), volume) << key;
  }
  play();
  press(Qt::Key_Right);
  clock.advance(1s);
  EXPECT_EQ(jumps(), QStringList()) << "a broadcast has no position";
}

}  // namespace
}  // namespace vantor
