#include <QTest>

#include "playback/playback.h"
#include "ui/player/persistent_video_overlay.h"
#include "ui/window/window_fixture.h"
#include "ui/window/window_place.h"

namespace vantor::test {
namespace {

class FullScreenTest : public WindowTest {
 protected:
  void SetUp() override {
    open(60);
    overlay = window->findChild<PersistentVideoOverlay*>();
    remote = views->remote();
    ASSERT_TRUE(overlay);
  }
  void play() {
    app->play(item(0));
    showPicture();
  }
  void playMovie(const QString& id = u"movies:1"_s) {
    app->playback().play({.url = QUrl(u"http://tv.example/1.mp4"_s), .title = u"Film"_s, .id = id});
    become(filmAt(30'000, 90'000));
  }
  /// Also a key that QTest's clicks do not know.
  void pressRaw(Qt::Key key) {
    for (const bool pressed : {true, false})
      QTest::simulateEvent(window, pressed, key, Qt::NoModifier, QString(), false);
  }
  QString title() const { return app->playback().title(); }
  bool isFull() {
    QTest::qWait(0);
    return window->visibility() == QWindow::FullScreen;
  }
  /// The picture has all of the window, and nothing is left of the screen under it.
  void expectPictureOnly(bool only) {
    QTest::qWait(50);
    EXPECT_EQ(overlay->size() == window->contentItem()->size(), only);
    EXPECT_EQ(find("text", u"Live TV"_s) == nullptr, only);
    EXPECT_FALSE(only && find("help", u"Expand player"_s));
  }
  void expectFull(bool full) {
    EXPECT_EQ(isFull(), full);
    EXPECT_EQ(remote->fullScreen(), full);
    expectPictureOnly(full);
  }
  /// The notes that the keys lead to, one after the other.
  QStringList notes(const QList<QKeyCombination>& keys) {
    QStringList seen;
    for (const QKeyCombination key : keys) press(key), seen.append(remote->note());
    return seen;
  }
  /// Where the engine was told to go since the last look, in milliseconds.
  QStringList jumps() { return engine.takeCalls().filter(u"setTime"_s); }

  PersistentVideoOverlay* overlay = nullptr;
  PlayerRemote* remote = nullptr;
};

TEST_F(FullScreenTest, EveryWayInLeadsOutAgain) {
  press(Qt::Key_F11, Qt::Key_F);
  expectFull(false);

  play();
  const std::function<void()> ways[] = {
      [&] { press(Qt::Key_F11); },
      [&] { press(Qt::Key_F); },
      [&] { doubleClick(middleOf(overlay)); },
      [&] { remote->toggleFullScreen(); },
  };
  for (const auto& in : ways)
    for (const auto& out : ways) {
      in();
      expectFull(true);
      out();
      expectFull(false);
    }
  press(Qt::Key_F);
  expectFull(true);
  window->showNormal();
  expectFull(false);
  EXPECT_FALSE(app->playback().paused());
  expectMoves("full screen");

  views->player()->toggleExpanded();
  press(Qt::Key_F, Qt::Key_Escape);
  expectFull(false);
  EXPECT_TRUE(app->playback().expanded());
  press(Qt::Key_Escape);
  EXPECT_FALSE(app->playback().expanded());
}

TEST_F(FullScreenTest, AmongTheGroupsLettersAreForTheGroups) {
  play();
  find("name", u"Group"_s)->forceActiveFocus(Qt::TabFocusReason);
  for (const char* where : {"closed", "open"}) {
    press(Qt::Key_P, Qt::Key_F, Qt::SHIFT | Qt::Key_Question);
    EXPECT_FALSE(remote->pictureOnly()) << where;
    EXPECT_FALSE(find("text", u"List of channels"_s)) << where;
    press(Qt::Key_Space);
  }
  press(Qt::Key_Escape, Qt::Key_F11);
  expectFull(true);
}

TEST_F(FullScreenTest, TheExpandedPlayerHasItsPictureAndItsKeys) {
  const auto covers = [&](bool expanded) {
    return QTest::qWaitFor([&] {
      const QQuickItem* area = overlay->area();
      const double width = overlay->width();
      return area && (expanded ? width > 2 * 355 : width == 355) &&
             area->size() == overlay->size() && area->mapToScene({}) == overlay->mapToScene({});
    });
  };
  EXPECT_TRUE(covers(false));
  press(Qt::Key_Return);
  app->playback().setExpanded(true);
  EXPECT_TRUE(covers(true));
  press(Qt::Key_Escape);
  EXPECT_FALSE(app->playback().expanded());
  EXPECT_TRUE(covers(false));
  expectMoves("the expanded player");

  showPicture();
  app->playback().setExpanded(true);
  engine.takeCalls();
  press(Qt::Key_Space);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"pause"_s});
  press(Qt::Key_Tab);
  tabTo(u"Back to browsing"_s);
  press(Qt::Key_Space);
  EXPECT_FALSE(app->playback().expanded());
  EXPECT_EQ(engine.takeCalls(), QStringList());
}

TEST_F(FullScreenTest, WhatNeedsTheWindowEndsThePictureAlone) {
  const std::function<void()> ends[] = {
      [&] { press(Qt::CTRL | Qt::Key_2); },
      [&] { press(Qt::CTRL | Qt::Key_1); },
      [&] { press(Qt::CTRL | Qt::Key_1); },  // where it is already
      [&] { app->setShowingSettings(true); },
      [&] { app->setShowingSettings(false), app->setShowingConnect(true); },
      [&] { app->setShowingConnect(false); },
      [&] { press(Qt::CTRL | Qt::Key_Period); },
  };
  for (const bool full : {true, false}) {
    play();
    for (const auto& end : ends) {
      full ? remote->setFullScreen(true) : remote->setSmall(true);
      EXPECT_EQ(isFull(), full);
      EXPECT_TRUE(remote->pictureOnly());
      end();
      EXPECT_FALSE(isFull());
      EXPECT_FALSE(remote->pictureOnly());
    }
    EXPECT_FALSE(app->playback().source());
  }
}

TEST_F(FullScreenTest, TheSmallWindowHasThePictureOnly) {
  press(Qt::Key_P);
  EXPECT_FALSE(remote->small()) << "nothing plays";
  play();
  const std::function<void()> ends[] = {
      [&] { press(Qt::Key_P); },
      [&] { press(Qt::Key_Escape); },
      [&] { doubleClick(QPoint(300, 200)); },
      [&] { click(appears("help", u"Back to the window"_s)); },
      [&] { press(Qt::Key_F), expectFull(true), press(Qt::Key_F); },
  };
  for (const auto& end : ends) {
    press(Qt::Key_P);
    expectPictureOnly(true);
    remote->moved();
    end();
    EXPECT_FALSE(remote->small());
    expectFull(false);
    EXPECT_FALSE(app->playback().paused());
  }
  press(Qt::Key_F, Qt::Key_P);
  EXPECT_TRUE(remote->small());
  EXPECT_FALSE(app->playback().fullScreen());
  press(Qt::Key_Up);
  clock.advance(250ms);
  showPicture();
  EXPECT_EQ(title(), u"Title 2"_s) << "the keys are the player's";
  press(Qt::Key_Return);
  EXPECT_FALSE(remote->chooser()) << "there is no room for it";
  click(appears("help", u"Stop playback"_s));
  EXPECT_FALSE(remote->small());
  expectMoves("the small window");
}

TEST_F(FullScreenTest, AMaximizedWindowIsOneAgainAfterTheSmallOneAndTheWholeScreen) {
  WindowPlace place(*window, *preferences);
  QObject::connect(remote, &PlayerRemote::smallChanged, &place,
                   [&] { place.setSmall(remote->small()); });
  window->showMaximized();
  play();
  press(Qt::Key_P);
  expectPictureOnly(true);
  press(Qt::Key_F);
  expectFull(true);
  press(Qt::Key_F);
  expectFull(false);
  EXPECT_EQ(window->visibility(), QWindow::Maximized);
}

TEST_F(FullScreenTest, ADoubleClickCommandsNothingOfWhatHasStopped) {
  playMovie();
  for (const std::int64_t place : {89'000, 30'000}) {
    for (const bool full : {true, false}) {
      engine.now.decodedVideo = 0;
      playMovie();
      full ? remote->setFullScreen(true) : remote->setSmall(true);
      EngineStatus end = filmAt(place, 90'000);
      become(end);
      end.state = EngineState::ended;
      become(end);
      EXPECT_EQ(keeper->bringingBack(), place == 30'000);
      engine.takeCalls();
      doubleClick(QPoint(300, 200));
      EXPECT_FALSE(remote->pictureOnly());
      EXPECT_EQ(engine.takeCalls(), QStringList());
      EXPECT_EQ(keeper->bringingBack(), place == 30'000);
    }
  }
}

TEST_F(FullScreenTest, ControlsGoWhenNobodyNeedsThem) {
  play();
  const auto shownAfter = [&](std::chrono::milliseconds time) {
    clock.advance(time);
    return remote->controlsShown();
  };
  press(Qt::Key_F);
  EXPECT_TRUE(shownAfter(2900ms));
  EXPECT_FALSE(shownAfter(200ms));
  QTest::mouseMove(window, QPoint(300, 200));
  QTest::mouseMove(window, QPoint(320, 220));
  EXPECT_TRUE(shownAfter(0ms));
  EXPECT_FALSE(shownAfter(3s));
  for (const bool full : {true, false}) {
    remote->setSmall(!full);
    remote->setFullScreen(full);
    play();
    remote->moved();
    const QPoint button = middleOf(appears("help", u"Stop playback"_s));
    QTest::mouseMove(window, button);
    EXPECT_TRUE(shownAfter(2s));
    QTest::mouseMove(window, button + QPoint(2, 2));
    EXPECT_TRUE(shownAfter(2s)) << "the pointer moves over them";
    appears("text", u"Stop playback"_s);
    EXPECT_FALSE(shownAfter(2s)) << "it lies on them";
    QTest::qWait(50);
    EXPECT_FALSE(shownAfter(0ms));
  }
  play();
  remote->setFullScreen(true);
  remote->moved();
  const QPoint handle = middleOf(find([](const QQuickItem* item) {
    return QByteArrayView(item->metaObject()->className()).startsWith("ThinSlider");
  }));
  QTest::mousePress(window, Qt::LeftButton, {}, handle);
  EXPECT_TRUE(shownAfter(5s)) << "a slider is held";
  QTest::mouseRelease(window, Qt::LeftButton, {}, handle);
  EXPECT_TRUE(shownAfter(2s));
  EXPECT_FALSE(shownAfter(2s));
  press(Qt::Key_Space);
  EXPECT_TRUE(shownAfter(10s)) << "it is paused";
  press(Qt::Key_Space);
  EXPECT_FALSE(shownAfter(0ms));
  for (const Qt::Key way : {Qt::Key_F, Qt::Key_P})
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
      remote->setFullScreen(way == Qt::Key_F);
      remote->setSmall(way == Qt::Key_P);
      play();
      EXPECT_FALSE(shownAfter(4s));
      press(key);
      EXPECT_TRUE(shownAfter(10s)) << "they have the keys";
      press(Qt::Key_Escape);
      EXPECT_TRUE(remote->pictureOnly());
      EXPECT_FALSE(shownAfter(3s)) << "the player has them again";
    }
}

TEST_F(FullScreenTest, TheKeysOfARemoteControl) {
  playMovie();
  press(Qt::Key_Right, Qt::Key_M);
  clock.advance(1s);
  EXPECT_EQ(app->playback().transport()->volume(), 100);
  EXPECT_EQ(jumps(), QStringList());

  press(Qt::Key_F);
  clock.advance(3s);
  EXPECT_FALSE(remote->controlsShown());
  const std::pair<QList<QKeyCombination>, std::int64_t> skips[] = {
      {{Qt::Key_Right}, 40'000},  // milliseconds
      {{Qt::Key_Right, Qt::Key_Right}, 50'000},
      {{Qt::Key_Right, Qt::Key_Left}, 30'000},
      {{Qt::SHIFT | Qt::Key_Left}, 0},
      {{Qt::SHIFT | Qt::Key_Right}, 90'000},
      {{Qt::SHIFT | Qt::Key_Right, Qt::SHIFT | Qt::Key_Right}, 90'000}};
  for (const auto& [keys, to] : skips) {
    for (const QKeyCombination key : keys) press(key);
    EXPECT_EQ(jumps(), QStringList());
    EXPECT_EQ(views->transport()->sliderValue() * 1000, to);
    EXPECT_TRUE(remote->controlsShown());
    clock.advance(300ms);
    EXPECT_EQ(jumps(), QStringList{u"setTime %1"_s.arg(to)});
    for (const std::int64_t place : {to, std::int64_t(30'000)}) become(filmAt(place, 90'000));
  }
  EXPECT_NE(remote->note(), QString());
  clock.advance(2s);
  EXPECT_EQ(remote->note(), QString());

  press(Qt::Key_Right, Qt::Key_Escape);
  clock.advance(300ms);
  EXPECT_EQ(jumps(), QStringList{u"setTime 40000"_s}) << "the screen's slider has gone";
  for (const std::int64_t place : {40'000, 30'000}) become(filmAt(place, 90'000));
  press(Qt::Key_F);
  views->transport()->beginSeek();
  views->transport()->dragTo(70);
  press(Qt::Key_Right);
  clock.advance(300ms);
  EXPECT_EQ(jumps(), QStringList()) << "somebody holds the slider";
  views->transport()->endSeek();
  EXPECT_EQ(jumps(), QStringList{u"setTime 70000"_s});
  for (const std::int64_t place : {70'000, 30'000}) become(filmAt(place, 90'000));

  press(Qt::Key_Right);
  engine.now.decodedVideo = 0;  // of which no still is taken first
  playMovie(u"movies:2"_s);
  clock.advance(300ms);
  EXPECT_EQ(jumps(), QStringList()) << "it was another film's";
  app->playback().retry();
  become(filmAt(0, 90'000, 0));
  press(Qt::Key_Right);
  EXPECT_EQ(views->transport()->sliderValue(), 0) << "it is still opening";
  become(filmAt(90'000, 90'000));
  engine.now.state = EngineState::ended;
  clock.advance(250ms);
  app->playback().restart();
  jumps();
  press(Qt::Key_Right);
  clock.advance(300ms);
  EXPECT_EQ(jumps(), QStringList()) << "it plays again, nobody knows where";
  app->playback().retry();
  become(filmAt(30'000, 90'000));

  const std::pair<Qt::Key, double> volumes[] = {
      {Qt::Key_Minus, 95}, {Qt::Key_Plus, 100}, {Qt::Key_Plus, 100},     {Qt::Key_Minus, 95},
      {Qt::Key_M, 0},      {Qt::Key_M, 95},     {Qt::Key_VolumeMute, 0}, {Qt::Key_Minus, 0},
      {Qt::Key_M, 95},     {Qt::Key_M, 0},      {Qt::Key_Plus, 100}};
  for (const auto& [key, volume] : volumes) {
    press(key);
    EXPECT_EQ(app->playback().transport()->volume(), volume) << key;
  }
  EXPECT_EQ(
      notes({Qt::Key_Z, Qt::Key_Z, Qt::Key_Z, Qt::Key_Z, Qt::Key_Z}),
      (QStringList{u"Fill the screen"_s, u"Stretch"_s, u"4:3"_s, u"16:9"_s, u"Whole picture"_s}));
  press(Qt::Key_Z);
  app->playback().retry();
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fill);
  play();
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fit) << "another source";
  press(Qt::Key_Right);
  clock.advance(1s);
  EXPECT_EQ(jumps(), QStringList()) << "a broadcast has no position";
}

TEST_F(FullScreenTest, KeysGoRoundTracksAndMenusOpenOnWhatIsInForce) {
  playMovie();
  press(Qt::Key_F);
  EXPECT_EQ(notes({Qt::Key_A, Qt::Key_S}), (QStringList{u"No other sound"_s, u"No subtitles"_s}));
  engine.now.audioTracks = {{1, u"English"_s}, {2, u"Deutsch"_s}, {4, u"Français"_s}};
  engine.now.audioTrack = 2;
  engine.now.subtitleTracks = {{5, u"English"_s}};
  clock.advance(2s);
  engine.takeCalls();
  EXPECT_EQ(notes({Qt::Key_A, Qt::Key_A, Qt::Key_A, Qt::Key_S, Qt::Key_S}),
            (QStringList{u"Sound: Français"_s, u"Sound: English"_s, u"Sound: Deutsch"_s,
                         u"Subtitles: English"_s, u"Subtitles: Off"_s}))
      << "faster than the engine tells";
  EXPECT_EQ(engine.takeCalls(),
            (QStringList{u"setAudioTrack 4"_s, u"setAudioTrack 1"_s, u"setAudioTrack 2"_s,
                         u"setSubtitleTrack 5"_s, u"setSubtitleTrack -1"_s}));
  EXPECT_EQ(notes({Qt::CTRL | Qt::Key_Minus, Qt::CTRL | Qt::Key_Equal,
                   Qt::CTRL | Qt::SHIFT | Qt::Key_Plus,
                   QKeyCombination(Qt::ControlModifier | Qt::KeypadModifier, Qt::Key_Plus)}),
            (QStringList{u"Sound 25 ms before the picture"_s, u"Sound with the picture"_s,
                         u"Sound 25 ms after the picture"_s, u"Sound 50 ms after the picture"_s}));

  engine.devices = {.present = {{u"tv"_s, u"TV"_s}, {u"bar"_s, u"Bar"_s}}, .inForce = u"bar"_s};
  app->playback().setAudioDevice(u"bar"_s);
  engine.now.audioTrack = 4;
  engine.now.rate = 1.5;
  clock.advance(2s);
  app->playback().setAudioDelay(50);
  const std::pair<const char*, QString> menus[] = {
      {"Audio tracks", u"Français"_s},
      {"Subtitles", u"Off"_s},
      {"Playback speed", u"1.5×"_s},
      {"Sound output", u"Bar"_s},
      {"Sound and picture", u"Sound 50 ms after the picture"_s}};
  for (const auto& [button, inForce] : menus) {
    SCOPED_TRACE(button);
    remote->moved();
    click(appears("help", QString::fromLatin1(button)));
    const QQuickItem* row = appears("text", inForce);
    EXPECT_TRUE(QTest::qWaitFor([&] { return row->property("highlighted").toBool(); }));
    EXPECT_TRUE(row->property("marked").toBool());
    const auto zoom = [](const QQuickItem* item) {
      return item->mapRectToScene(item->boundingRect()).height() / item->height();
    };
    EXPECT_NEAR(zoom(row), zoom(find("help", QString::fromLatin1(button))), 0.001);
    press(Qt::Key_Escape);
    EXPECT_TRUE(eventually([&] { return !find("text", inForce); }));
  }
  EXPECT_TRUE(isFull());
}

TEST_F(FullScreenTest, TheKeysOfChannels) {
  press(Qt::Key_3);
  play();
  press(Qt::Key_3, Qt::Key_PageDown);
  clock.advance(2s);
  EXPECT_EQ(title(), u"Title 1"_s) << "beside the list the keys are the list's";

  const std::function<void()> places[] = {
      [&] { press(Qt::Key_F); }, [&] { press(Qt::Key_Escape), views->player()->toggleExpanded(); }};
  const std::pair<QList<Qt::Key>, QString> cases[] = {
      {{Qt::Key_Up}, u"Title 2"_s},
      {{Qt::Key_PageUp, Qt::Key_ChannelUp, Qt::Key_MediaNext}, u"Title 5"_s},
      {{Qt::Key_Down}, u"Title 4"_s},
      {{Qt::Key_PageDown, Qt::Key_ChannelDown, Qt::Key_MediaPrevious}, u"Title 1"_s},
      {{Qt::Key_Backspace}, u"Title 4"_s},
      {{Qt::Key_Backspace}, u"Title 1"_s},
      {{Qt::Key_0, Qt::Key_3, Qt::Key_Return}, u"Title 3"_s},
      {{Qt::Key_1}, u"Title 1"_s}};
  for (const auto& enter : places) {
    enter();
    for (const auto& [keys, expected] : cases) {
      for (const Qt::Key key : keys) pressRaw(key);
      clock.advance(1500ms);
      showPicture();
      EXPECT_EQ(title(), expected);
    }
  }
  press(Qt::SHIFT | Qt::Key_3);
  clock.advance(1500ms);
  showPicture();
  EXPECT_EQ(title(), u"Title 3"_s) << "as some layouts write digits";

  press(Qt::Key_1, Qt::Key_Escape);
  EXPECT_TRUE(app->playback().expanded()) << "first the number is taken back";
  press(Qt::Key_1);
  app->playback().setExpanded(false);
  clock.advance(2s);
  EXPECT_EQ(title(), u"Title 3"_s) << "whoever typed it has left";
  for (int i = 0; i < 2; ++i) views->zapping().step(1);
  clock.advance(250ms);
  showPicture();
  EXPECT_EQ(title(), u"Title 5"_s) << "the desktop's keys need nobody who watches";
  press(Qt::Key_F, Qt::Key_Up, Qt::Key_P);
  clock.advance(2s);
  EXPECT_EQ(title(), u"Title 6"_s) << "the small window watches, too";
}

TEST_F(FullScreenTest, TheBannerTellsOfTheChannelWhileItIsChosen) {
  const QByteArray programmes = guide({{"News", -15min, 45min}, {"Film", 45min, 105min}});
  transport.always(guideRequest, programmes);
  while (transport.answer(guideRequest, programmes)) settle();  // to the list
  play();
  press(Qt::Key_F);
  const ChannelBanner& banner = *views->banner();
  press(Qt::Key_4, Qt::Key_0, Qt::Key_Return);
  clock.advance(5s);
  for (int i = 0; i < 3; ++i) press(Qt::Key_Up), clock.advance(100ms);
  EXPECT_NE(find("text", u"Title 43"_s), nullptr);
  EXPECT_EQ(banner.number(), u"43"_s);
  clock.advance(150ms);
  EXPECT_TRUE(eventually([&] {
    // No faster than real time, or a slow answer finds a channel that was given up.
    QTest::qWait(1);
    clock.advance(1ms);
    return banner.now() == u"News"_s;
  }));
  for (const int passed : {41, 42})
    EXPECT_FALSE(app->guide().guideOf(entry(LibraryKind::live, passed).id)) << "nobody asks for it";
  EXPECT_NEAR(banner.progress(), 0.25, 0.01);
  EXPECT_TRUE(banner.next().endsWith(u"Film"_s));
  showPicture();
  clock.advance(4s);
  EXPECT_FALSE(banner.shown());
  press(Qt::Key_I);
  EXPECT_TRUE(banner.shown());
  clock.advance(4s);
  EXPECT_FALSE(banner.shown());
  for (const auto& [key, number, name] :
       {std::tuple(Qt::Key_7, u"7"_s, u"Title 7"_s), {Qt::Key_8, u"78"_s, u"No such channel"_s}}) {
    press(key);
    EXPECT_EQ(banner.number(), number);
    EXPECT_EQ(banner.name(), name);
  }
  app->playback().stop();
  EXPECT_FALSE(banner.shown());
}

TEST_F(FullScreenTest, TheListOfChannelsLiesOverThePicture) {
  play();
  press(Qt::Key_Return);
  EXPECT_EQ(remote->chooser(), nullptr) << "the list has the keys";
  for (const bool full : {true, false}) {
    press(full ? Qt::Key_F : Qt::Key_Escape);
    if (!full) views->player()->toggleExpanded();
    press(Qt::Key_Return);
    ASSERT_TRUE(remote->chooser());
    EXPECT_EQ(remote->chooser()->currentRow(), full ? 0 : 2);
    press(Qt::Key_Escape);
    EXPECT_FALSE(remote->chooser());
    EXPECT_EQ(isFull(), full);

    remote->moved();
    tabTo(has("help", u"List of channels"_s));
    press(Qt::Key_Return);
    engine.takeCalls();
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Down, Qt::Key_Home})
      press(key), clock.advance(1s);
    EXPECT_EQ(remote->chooser()->currentRow(), 0);
    EXPECT_EQ(engine.takeCalls(), QStringList()) << "nothing is opened on the way";
    press(Qt::Key_Down, Qt::Key_Down, Qt::Key_Return);
    EXPECT_FALSE(remote->chooser());
    showPicture();
    EXPECT_EQ(title(), u"Title 3"_s);
  }

  // While it is open the library is another one.
  press(Qt::Key_Return);
  app->load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live,
         R"([{"stream_id":3,"name":"Title 3","category_id":"a"},
             {"stream_id":4,"name":"Title 4","category_id":"b"},
             {"stream_id":5,"name":"Title 5","category_id":"b"}])",
         R"([{"category_id":"a","category_name":"A"},{"category_id":"b","category_name":"B"},
             {"category_id":"c","category_name":"C"}])");
  EXPECT_EQ(remote->chooser()->currentRow(), 0);
  for (const QString& group : {u"A"_s, u"B"_s, u"C"_s, u"All channels"_s, u"A"_s}) {
    press(Qt::Key_Right);
    EXPECT_EQ(remote->chooser()->group(), group);
    EXPECT_EQ(remote->chooser()->currentRow(), group == u"C"_s ? -1 : 0);
    EXPECT_EQ(find("text", u"No channels in this group"_s) != nullptr, group == u"C"_s);
  }
  for (const auto& [button, group] :
       {std::pair("Next group", u"B"_s), {"Previous group", u"A"_s}, {"Next group", u"B"_s}}) {
    click(appears("help", QString::fromLatin1(button)));
    EXPECT_EQ(remote->chooser()->group(), group);
  }
  click(appears("name", u"Title 5"_s));
  showPicture();
  EXPECT_EQ(title(), u"Title 5"_s);
  press(Qt::Key_Up);
  clock.advance(250ms);
  showPicture();
  EXPECT_EQ(title(), u"Title 4"_s) << "goes on within the group";
  EXPECT_EQ(app->browsing().category(), QString()) << "what is browsed stays";

  press(Qt::Key_Return);
  app->load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live, "[]");
  press(Qt::Key_Down, Qt::Key_Return);
  EXPECT_EQ(title(), u"Title 4"_s);
  app->playback().stop();
  EXPECT_FALSE(remote->chooser());
}

TEST_F(FullScreenTest, ThePointerOpensTheListOfChannelsAndPutsItAway) {
  play();
  app->playback().setExpanded(true);
  for (const bool full : {false, true}) {
    remote->setFullScreen(full);
    expectPictureOnly(full);
    const QPoint beside =
        overlay->mapToScene({overlay->width() - 20, overlay->height() / 2}).toPoint();
    const std::function<void()> ends[] = {
        [&] { click(appears("help", u"List of channels"_s)); },
        [&] { QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, beside); },
        [&] { doubleClick(beside); }};
    for (const auto& end : ends) {
      remote->moved();
      click(appears("help", u"List of channels"_s));
      EXPECT_TRUE(remote->chooser());
      end();
      EXPECT_FALSE(remote->chooser());
      EXPECT_FALSE(app->playback().paused());
      EXPECT_EQ(engine.takeCalls().count(u"pause"_s), 0);
    }
    EXPECT_EQ(remote->fullScreen(), !full) << "as after any double click";
  }
}

TEST_F(FullScreenTest, WhatIsKnownOfThePictureIsShown) {
  play();
  press(Qt::Key_F);
  engine.now.picture = {.codec = u"H264"_s,
                        .decoder = PictureDecoder::vaapi,
                        .size = QSize(1920, 1080),
                        .rate = 25,
                        .bitsPerSecond = 4.25e6,
                        .shown = 100,
                        .lost = 2};
  const auto shown = [&] { return views->statistics()->text(); };
  press(Qt::CTRL | Qt::Key_I);
  EXPECT_EQ(shown(),
            u"Codec: H264\nPicture: 1920 × 1080, 8 bit\n"
            u"Decoded by: graphics card (VA-API)\nIn the source: 25.0 pictures a second\n"
            u"Lost: 2 pictures\nBit rate: 4.25 Mbit/s\nBuffer: 1200 ms"_s);
  engine.now.picture.shown = 150;
  clock.advance(1s);
  EXPECT_TRUE(shown().contains(u"\nShown: 50.0 pictures a second\n"_s));
  EXPECT_NE(find("text", shown()), nullptr);
  engine.now.picture = {};
  clock.advance(1s);
  EXPECT_EQ(shown(), u"Lost: 0 pictures\nBuffer: 1200 ms"_s) << "another source counts anew";
  press(Qt::CTRL | Qt::Key_I);
  EXPECT_EQ(shown(), QString());
  press(Qt::CTRL | Qt::Key_I);
  app->playback().stop();
  EXPECT_FALSE(views->statistics()->shown());
}

TEST_F(FullScreenTest, WhatIsToldOverThePictureOverlapsNothing) {
  play();
  engine.now.picture = {.codec = u"H264"_s, .size = QSize(1920, 1080), .rate = 25};
  press(Qt::CTRL | Qt::Key_I);
  const std::function<void()> places[] = {[&] { views->player()->toggleExpanded(); },
                                          [&] { remote->setFullScreen(true); },
                                          [&] { remote->setSmall(true); }};
  const auto expectApart = [&] {
    QList<QQuickItem*> told{find("text", remote->note())};
    for (const char* kind : {"BannerPanel", "InterruptionStrip", "StatisticsCard", "IconButton"})
      told.append(find([&](const QQuickItem* item) {
        return QByteArrayView(item->metaObject()->className()).startsWith(kind);
      }));
    told.removeAll(nullptr);
    QList<QRectF> taken;
    for (const QQuickItem* item : told) {
      const QRectF place = item->mapRectToScene(item->boundingRect());
      for (const QRectF& other : taken)
        EXPECT_FALSE(place.intersects(other)) << item->metaObject()->className();
      taken.append(place);
    }
    return taken.size();
  };
  for (const auto& enter : places) {
    enter();
    press(Qt::Key_I, Qt::Key_Z);
    clock.advance(1s);
    QTest::qWait(50);
    EXPECT_TRUE(find("text", remote->note())) << "what a key did is told everywhere";
    EXPECT_EQ(expectApart(), 4);
  }
  remote->setFullScreen(true);
  engine.now.state = EngineState::ended;
  engine.announce();
  press(Qt::Key_I, Qt::Key_Z);
  QTest::qWait(50);
  EXPECT_TRUE(find("text", views->player()->interruption()));
  EXPECT_EQ(expectApart(), 5);
}

TEST_F(FullScreenTest, TheKeysAreListed) {
  play();
  for (const bool full : {false, true}) {
    app->playback().setFullScreen(full);
    const std::function<void()> ends[] = {
        [&] { press(Qt::Key_Escape); }, [&] { press(Qt::Key_Down); },
        [&] { press(Qt::Key_Return); }, [&] { click(find("text", u"List of channels"_s)); },
        [&] { QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(600, 30)); }};
    for (const auto& end : ends) {
      QTest::keyClick(window, '?', Qt::ShiftModifier);
      EXPECT_NE(appears("text", u"List of channels"_s), nullptr);
      const QString before = selectedID();
      end();
      EXPECT_TRUE(eventually([&] { return !find("text", u"List of channels"_s); }));
      EXPECT_EQ(selectedID(), before);
      EXPECT_EQ(isFull(), full);
    }
  }
  EXPECT_FALSE(app->playback().paused());
}

TEST_F(FullScreenTest, TheNextEpisodeIsOfferedNearTheEnd) {
  always(LibraryKind::shows, rows(LibraryKind::shows, 1, 1));
  show(Section::shows);
  app->select(item(0));
  answerEpisodes(R"({"1":[{"id":"1","title":"One"},{"id":"2","title":"Two"},
                          {"id":"3","title":"Three"},{"id":"4","title":"Four"}]})");
  const NextEpisode& next = *views->nextEpisode();
  const auto playsAt = [&](std::int64_t seconds) { become(filmAt(seconds * 1000, 1'000'000)); };
  const auto ends = [&] {
    engine.now.state = EngineState::ended;
    clock.advance(250ms);
  };
  const auto playing = [&] { return app->playback().itemID().value_or(QString()); };
  const auto playFirst = [&] { app->play(app->details().episodes().first()); };

  playFirst();
  playsAt(100);
  press(Qt::Key_N);
  EXPECT_EQ(playing(), u"episode:1"_s) << "the list has the keys";
  press(Qt::Key_F, Qt::Key_N);
  EXPECT_EQ(playing(), u"episode:2"_s);
  playsAt(969);
  EXPECT_FALSE(next.offered());
  playsAt(971);
  EXPECT_TRUE(next.offered());
  app->playback().setExpanded(true);
  for (const bool full : {false, true}) {
    remote->setFullScreen(full);
    QTest::qWait(50);
    const QQuickItem* refusal = appears("text", u"Not now"_s);
    const QQuickItem* stop = appears("help", u"Stop playback"_s);
    EXPECT_LT(refusal->mapRectToScene(refusal->boundingRect()).bottom(),
              stop->mapRectToScene(stop->boundingRect()).top());
  }
  app->playback().setExpanded(false);
  EXPECT_NE(find("text", next.title()), nullptr);
  press(Qt::Key_P, Qt::Key_Return, Qt::Key_Escape);
  EXPECT_EQ(playing(), u"episode:2"_s) << "the small window does not show the offer";
  EXPECT_FALSE(remote->small());
  EXPECT_TRUE(next.offered());
  press(Qt::Key_F, Qt::Key_Escape);
  EXPECT_FALSE(next.offered());
  EXPECT_TRUE(isFull());
  ends();
  clock.advance(20s);
  EXPECT_EQ(playing(), u"episode:2"_s) << "refused";
  EXPECT_FALSE(next.countsDown());

  press(Qt::Key_N);
  playsAt(980);
  press(Qt::Key_Return);
  EXPECT_EQ(playing(), u"episode:4"_s);
  playsAt(980);
  EXPECT_FALSE(next.offered()) << "nothing follows";

  playFirst();
  playsAt(990);
  ends();
  EXPECT_TRUE(next.countsDown());
  clock.advance(9s);
  EXPECT_EQ(playing(), u"episode:1"_s);
  remote->setFullScreen(false);
  clock.advance(30s);
  EXPECT_EQ(playing(), u"episode:1"_s) << "only in full screen it plays by itself";
  app->playback().restart();
  EXPECT_FALSE(next.offered()) << "it plays again";
  remote->setFullScreen(true);
  engine.now.state = EngineState::ended;
  engine.announce();
  clock.advance(10s);
  EXPECT_EQ(playing(), u"episode:2"_s);

  playsAt(500);
  ends();
  EXPECT_FALSE(next.offered()) << "it was cut off, and comes back";

  playsAt(100);
  for (const auto& [key, expected] :
       {std::pair(Qt::Key_MediaNext, u"episode:3"_s), {Qt::Key_MediaPrevious, u"episode:2"_s}}) {
    pressRaw(key);
    EXPECT_EQ(playing(), expected);
  }

  playFirst();
  playsAt(990);
  engine.now.recordable = true;
  app->playback().startRecording(home.path());
  ends();
  EXPECT_TRUE(next.countsDown());
  clock.advance(10s);
  EXPECT_EQ(playing(), u"episode:1"_s);
  EXPECT_FALSE(next.offered()) << "it could not be opened";
}

TEST_F(FullScreenTest, TheKeysOfAKeyboardForPlayback) {
  play();
  const std::pair<Qt::Key, bool> keys[] = {{Qt::Key_MediaPause, true},
                                           {Qt::Key_MediaPause, true},
                                           {Qt::Key_MediaTogglePlayPause, false},
                                           {Qt::Key_MediaPlay, true},
                                           {Qt::Key_MediaPlay, false}};
  for (const auto& [key, paused] : keys) {
    pressRaw(key);
    EXPECT_EQ(app->playback().paused(), paused) << key;
  }
  pressRaw(Qt::Key_MediaStop);
  EXPECT_FALSE(app->playback().source());
}

}  // namespace
}  // namespace vantor::test
