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
    transport.always(action(LibraryKind::live), rows(LibraryKind::live, 1, 60));
    transport.always(categoryAction(LibraryKind::live), "[]");
    open();
    connectAccount(account);
    transport.answer(QString(), acceptedSignIn());
    ASSERT_TRUE(
        test::eventually([&] { return signInOver && app->browsing().items().size() == 60; }));
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

  /// Also keys that QTest does not know.
  void send(Qt::Key key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      QCoreApplication::sendEvent(window, &event);
    }
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

TEST_F(FullScreenTest, TheSmallWindowHasThePictureOnly) {
  PlayerRemote& remote = *views->remote();
  press(Qt::Key_P);
  EXPECT_FALSE(remote.small()) << "nothing plays";
  play();
  const auto enter = [&] {
    press(Qt::Key_P);
    EXPECT_TRUE(remote.small());
    EXPECT_EQ(overlay->size(), window->contentItem()->size());
    EXPECT_EQ(find("text", u"Live TV"_s), nullptr);
  };
  const auto doubleClick = [&] {
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, QPoint(300, 200));
  };
  const std::function<void()> ends[] = {
      [&] { press(Qt::Key_P); },
      [&] { press(Qt::Key_Escape); },
      doubleClick,
      [&] { click(appears("help", u"Back to the window"_s)); },
      [&] { press(Qt::Key_2, Qt::ControlModifier), press(Qt::Key_1, Qt::ControlModifier); },
      [&] { app->setShowingSettings(true), app->setShowingSettings(false); },
      [&] { press(Qt::Key_F), expectFull(true), press(Qt::Key_F); },
  };
  for (const auto& end : ends) {
    enter();
    remote.moved();
    end();
    EXPECT_FALSE(remote.small());
    expectFull(false);
    EXPECT_FALSE(app->playback().paused());
  }
  press(Qt::Key_F);
  press(Qt::Key_P);
  EXPECT_TRUE(remote.small());
  EXPECT_FALSE(app->playback().fullScreen());
  press(Qt::Key_Up);
  clock.advance(250ms);
  showPicture();
  EXPECT_EQ(app->playback().title(), u"Title 2"_s) << "the keys are the player's";
  press(Qt::Key_Return);
  EXPECT_FALSE(remote.chooser()) << "there is no room for it";
  click(appears("help", u"Stop playback"_s));
  EXPECT_FALSE(remote.small());
  expectMoves("the small window");
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
  press(Qt::Key_Z);
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fill);
  app->playback().retry();
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fill);
  for (int i = 0; i < 5; ++i) press(Qt::Key_Z);
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fill);
  play();
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fit) << "another source";
  press(Qt::Key_Right);
  clock.advance(1s);
  EXPECT_EQ(jumps(), QStringList()) << "a broadcast has no position";
}

TEST_F(FullScreenTest, KeysGoRoundTracksAndMenusOpenOnWhatIsInForce) {
  const auto notes = [&](QList<Qt::Key> keys) {
    QStringList seen;
    for (const Qt::Key key : keys) press(key), seen.append(views->remote()->note());
    return seen;
  };
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
  clock.advance(2s);
  engine.now.audioTrack = 4;
  engine.now.subtitleTrack = -1;
  engine.now.rate = 1.5;
  clock.advance(250ms);
  EXPECT_EQ(notes({Qt::Key_A}), QStringList{u"Sound: English"_s});

  const auto delay = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    press(key, modifiers);
    return views->remote()->note();
  };
  EXPECT_EQ((QStringList{delay(Qt::Key_Minus, Qt::ControlModifier),
                         delay(Qt::Key_Equal, Qt::ControlModifier),
                         delay(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier),
                         delay(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier)}),
            (QStringList{u"Sound 25 ms before the picture"_s, u"Sound with the picture"_s,
                         u"Sound 25 ms after the picture"_s, u"Sound 50 ms after the picture"_s}));
  engine.devices = {.present = {{u"tv"_s, u"TV"_s}, {u"bar"_s, u"Bar"_s}}, .inForce = u"bar"_s};
  app->playback().setAudioDevice(u"bar"_s);
  clock.advance(2s);
  app->playback().setAudioDelay(50);

  const std::pair<const char*, const char*> menus[] = {
      {"Audio tracks", "Français"},
      {"Subtitles", "Off"},
      {"Playback speed", "1.5×"},
      {"Sound output", "Bar"},
      {"Sound and picture", "Sound 50 ms after the picture"}};
  for (const auto& [button, inForce] : menus) {
    views->remote()->moved();
    click(appears("help", QString::fromLatin1(button)));
    const QString name = QString::fromUtf8(inForce);
    const QQuickItem* row = appears("text", name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return row->property("highlighted").toBool(); })) << inForce;
    EXPECT_TRUE(row->property("marked").toBool()) << inForce;
    press(Qt::Key_Escape);
    EXPECT_TRUE(test::eventually([&] { return !find("text", name); }));
  }
  EXPECT_TRUE(isFull());
}

TEST_F(FullScreenTest, TheKeysOfChannels) {
  press(Qt::Key_3);
  play();
  press(Qt::Key_3);
  press(Qt::Key_PageDown);
  clock.advance(2s);
  EXPECT_EQ(app->playback().title(), u"Title 1"_s) << "beside the list the keys are the list's";

  const std::function<void()> places[] = {[&] { press(Qt::Key_F); },
                                          [&] {
                                            press(Qt::Key_Escape);
                                            views->player()->toggleExpanded();
                                          }};
  struct Case {
    QList<Qt::Key> keys;
    const char* title;
  };
  const Case cases[] = {{{Qt::Key_Up}, "Title 2"},
                        {{Qt::Key_PageUp, Qt::Key_ChannelUp, Qt::Key_MediaNext}, "Title 5"},
                        {{Qt::Key_Down}, "Title 4"},
                        {{Qt::Key_PageDown, Qt::Key_ChannelDown, Qt::Key_MediaPrevious}, "Title 1"},
                        {{Qt::Key_Backspace}, "Title 4"},
                        {{Qt::Key_Backspace}, "Title 1"},
                        {{Qt::Key_0, Qt::Key_3, Qt::Key_Return}, "Title 3"},
                        {{Qt::Key_1}, "Title 1"}};
  for (const auto& enter : places) {
    enter();
    for (const auto& [keys, title] : cases) {
      for (const Qt::Key key : keys) send(key);
      clock.advance(1500ms);
      test::settle();
      showPicture();
      EXPECT_EQ(app->playback().title(), QString::fromLatin1(title));
    }
  }
}

TEST_F(FullScreenTest, TheBannerTellsOfTheChannelWhileItIsChosen) {
  const QString guide = u"get_short_epg"_s;
  const qint64 now = clock.now().time_since_epoch() / 1s;
  const auto programme = [&](qint64 from, const char* title) {
    return QByteArray("{\"start_timestamp\":") + QByteArray::number(now + from) +
           ",\"stop_timestamp\":" + QByteArray::number(now + from + 3600) + ",\"title\":\"" +
           QByteArray(title).toBase64() + "\"}";
  };
  transport.always(guide, "{\"epg_listings\":[" + programme(-900, "News") + "," +
                              programme(2700, "Film") + "]}");
  play();
  press(Qt::Key_F);
  const ChannelBanner& banner = *views->banner();
  for (const Qt::Key key : {Qt::Key_4, Qt::Key_0, Qt::Key_Return}) press(key);
  clock.advance(5s);
  for (int i = 0; i < 3; ++i) press(Qt::Key_Up), clock.advance(100ms);
  EXPECT_TRUE(banner.shown());
  EXPECT_NE(find("text", u"Title 43"_s), nullptr);
  EXPECT_EQ(banner.number(), u"43"_s);
  clock.advance(150ms);
  EXPECT_TRUE(test::eventually([&] {
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
  press(Qt::Key_7);
  EXPECT_EQ(banner.number(), u"7"_s);
  EXPECT_EQ(banner.name(), u"Title 7"_s);
  press(Qt::Key_8);
  EXPECT_EQ(banner.name(), u"No such channel"_s);
  app->playback().stop();
  EXPECT_FALSE(banner.shown());
}

TEST_F(FullScreenTest, TheListOfChannelsLiesOverThePicture) {
  const PlayerRemote& remote = *views->remote();
  const auto title = [&] { return app->playback().title(); };
  const auto load = [&](const QByteArray& entries, const QByteArray& categories) {
    transport.always(action(LibraryKind::live), entries);
    transport.always(categoryAction(LibraryKind::live), categories);
    const QSignalSpy loaded(&app->libraries(), &Libraries::catalogsChanged);
    app->load(LibraryKind::live, LoadMode::refresh);
    ASSERT_TRUE(test::eventually([&] { return !loaded.isEmpty(); }));
  };
  const auto channel = [](int id, const char* category) {
    return QByteArray("{\"stream_id\":%1,\"name\":\"Title %1\",\"category_id\":\"%2\"}")
        .replace("%1", QByteArray::number(id))
        .replace("%2", category);
  };
  play();
  press(Qt::Key_Return);
  EXPECT_EQ(remote.chooser(), nullptr) << "the list has the keys";
  for (const bool full : {true, false}) {
    if (full) {
      press(Qt::Key_F);
    } else {
      press(Qt::Key_Escape);
      views->player()->toggleExpanded();
    }
    press(Qt::Key_Return);
    ASSERT_TRUE(remote.chooser());
    EXPECT_EQ(remote.chooser()->currentRow(), full ? 0 : 2);
    press(Qt::Key_Escape);
    EXPECT_FALSE(remote.chooser());
    EXPECT_EQ(isFull(), full);

    press(Qt::Key_Return);
    engine.takeCalls();
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Down, Qt::Key_Home})
      press(key), clock.advance(1s);
    EXPECT_EQ(remote.chooser()->currentRow(), 0);
    EXPECT_EQ(engine.takeCalls(), QStringList()) << "nothing is opened on the way";
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(remote.chooser());
    showPicture();
    EXPECT_EQ(title(), u"Title 3"_s);
  }

  // While it is open the library is another one.
  press(Qt::Key_Return);
  load("[" + channel(3, "a") + "," + channel(4, "b") + "," + channel(5, "b") + "]",
       R"([{"category_id":"a","category_name":"A"},{"category_id":"b","category_name":"B"},
           {"category_id":"c","category_name":"C"}])");
  EXPECT_EQ(remote.chooser()->currentRow(), 0);
  const QString groups[] = {u"A"_s, u"B"_s, u"C"_s, u"All channels"_s, u"A"_s};
  for (const QString& group : groups) {
    press(Qt::Key_Right);
    EXPECT_EQ(remote.chooser()->group(), group);
    EXPECT_EQ(remote.chooser()->currentRow(), group == u"C"_s ? -1 : 0);
    EXPECT_EQ(find("text", u"No channels in this group"_s) != nullptr, group == u"C"_s);
  }
  press(Qt::Key_Right);
  click(appears("name", u"Title 5"_s));
  showPicture();
  EXPECT_EQ(title(), u"Title 5"_s);
  press(Qt::Key_Up);
  clock.advance(250ms);
  showPicture();
  EXPECT_EQ(title(), u"Title 4"_s) << "goes on within the group";
  EXPECT_EQ(app->browsing().category(), QString()) << "what is browsed stays";

  press(Qt::Key_Return);
  load("[]", "[]");
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_EQ(title(), u"Title 4"_s);
  app->playback().stop();
  EXPECT_FALSE(remote.chooser());
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
  press(Qt::Key_I, Qt::ControlModifier);
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
  press(Qt::Key_I, Qt::ControlModifier);
  EXPECT_EQ(shown(), QString());
  press(Qt::Key_I, Qt::ControlModifier);
  app->playback().stop();
  EXPECT_FALSE(views->statistics()->shown());
}

TEST_F(FullScreenTest, TheKeysAreListed) {
  play();
  for (const bool full : {false, true}) {
    app->playback().setFullScreen(full);
    for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Down, Qt::Key_Return}) {
      QTest::keyClick(window, '?', Qt::ShiftModifier);
      EXPECT_NE(appears("text", u"List of channels"_s), nullptr);
      const QString before = selectedID();
      press(end);
      EXPECT_TRUE(test::eventually([&] { return !find("text", u"List of channels"_s); }));
      EXPECT_EQ(selectedID(), before);
      EXPECT_EQ(isFull(), full);
    }
  }
  EXPECT_FALSE(app->playback().paused());
}

TEST_F(FullScreenTest, TheNextEpisodeIsOfferedNearTheEnd) {
  transport.always(action(LibraryKind::shows), rows(LibraryKind::shows, 1, 1));
  transport.always(categoryAction(LibraryKind::shows), "[]");
  transport.always(u"get_series_info"_s, R"({"episodes":{"1":[{"id":"1","title":"One"},
      {"id":"2","title":"Two"},{"id":"3","title":"Three"},{"id":"4","title":"Four"}]}})");
  app->navigate(Section::shows);
  ASSERT_TRUE(test::eventually([&] { return app->browsing().items().size() == 1; }));
  app->select(app->browsing().items().item(0));
  ASSERT_TRUE(test::eventually([&] { return app->details().episodes().size() == 4; }));
  const NextEpisode& next = *views->nextEpisode();
  const auto at = [&](EngineState state, std::int64_t seconds) {
    test::settle();
    engine.now = {.state = state,
                  .hasMedia = true,
                  .time = seconds * 1000,
                  .length = 1'000'000,
                  .seekable = true,
                  .decodedVideo = 5};
    clock.advance(250ms);
    QTest::qWait(0);
  };
  const auto playing = [&] { return app->playback().itemID().value_or(QString()); };
  const auto playFirst = [&] { app->play(app->details().episodes().first()); };

  playFirst();
  at(EngineState::playing, 100);
  press(Qt::Key_N);
  EXPECT_EQ(playing(), u"episode:1"_s) << "the list has the keys";
  press(Qt::Key_F);
  press(Qt::Key_N);
  EXPECT_EQ(playing(), u"episode:2"_s);
  at(EngineState::playing, 969);
  EXPECT_FALSE(next.offered());
  at(EngineState::playing, 971);
  EXPECT_TRUE(next.offered());
  EXPECT_NE(find("text", next.title()), nullptr);
  press(Qt::Key_Escape);
  EXPECT_FALSE(next.offered());
  EXPECT_TRUE(isFull());
  at(EngineState::ended, 1000);
  clock.advance(20s);
  EXPECT_EQ(playing(), u"episode:2"_s) << "refused";

  press(Qt::Key_N);
  at(EngineState::playing, 980);
  press(Qt::Key_Return);
  EXPECT_EQ(playing(), u"episode:4"_s);
  at(EngineState::playing, 980);
  EXPECT_FALSE(next.offered()) << "nothing follows";

  playFirst();
  at(EngineState::playing, 990);
  at(EngineState::ended, 1000);
  clock.advance(9s);
  EXPECT_EQ(playing(), u"episode:1"_s);
  views->remote()->setFullScreen(false);
  clock.advance(30s);
  EXPECT_EQ(playing(), u"episode:1"_s) << "only in full screen it plays by itself";
  views->remote()->setFullScreen(true);
  clock.advance(10s);
  EXPECT_EQ(playing(), u"episode:2"_s);
}

}  // namespace
}  // namespace vantor
