#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>

#include "ui/style/style.h"
#include "window_fixture.h"

namespace vantor::test {
namespace {

/// From every section to every section, with lists of every length on either side.
TEST_F(WindowTest, EverySectionIsReachedFromEveryOther) {
  open();
  const auto go = [&](Section section) {
    if (const auto kind = libraryOf(section))
      press(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(*kind)));
    else
      app->navigate(section);
    QTest::qWait(0);
    EXPECT_EQ(app->browsing().section(), section);
    EXPECT_EQ(static_cast<std::size_t>(views->items()->rowCount()), app->browsing().items().size());
    press(Qt::Key_Down);
  };
  const auto walk = [&] {
    // Every ordered pair of two sections, one after the other.
    for (const char section : QByteArray("012340241303142043210"))
      go(allSections.at(static_cast<std::size_t>(section - '0')));
  };
  const auto provide = [&](LibraryKind kind, int count) {
    always(kind, count < 0 ? "no library" : rows(kind, 1, count),
           R"([{"category_id":"0","category_name":"One"},
               {"category_id":"9","category_name":"None in it"}])");
  };
  const std::pair<int, int> lengths[] = {{60, 60}, {60, -1}, {1, 0}, {0, 60}, {-1, 1}, {1, 60}};
  for (const auto& [channels, movies] : lengths) {
    SCOPED_TRACE(testing::Message() << channels << " channels, " << movies << " movies");
    provide(LibraryKind::live, channels);
    provide(LibraryKind::movies, movies);
    provide(LibraryKind::shows, movies / 2);
    for (const Section from : allSections) {
      go(from);
      signInToLibraries();
    }
    walk();
    ASSERT_TRUE(idle());
    walk();
    for (const Section section : {Section::live, Section::movies}) {
      go(section);
      app->setCategory(u"9"_s);
      walk();
      go(section);
      app->browsing().setSearch(u"no such name"_s);
      walk();
      if (const Catalog loaded = app->libraries().catalog(*libraryOf(section)); loaded.size() > 0)
        app->favorite(loaded.item(0));
    }
    go(channels > 1 ? Section::favorites : Section::shows);
    signOut();
    walk();
  }
}

/// A key that is held down comes once as itself and then again and again.
TEST_F(WindowTest, OnlyMovementRepeats) {
  open(20);
  const auto hold = [&](Qt::Key key, const QString& text = {}) {
    for (const bool again : {false, true, true, true})
      QTest::simulateEvent(window, true, key, Qt::NoModifier, text, again);
    QTest::simulateEvent(window, false, key, Qt::NoModifier, text, false);
    QTest::qWait(0);
  };
  hold(Qt::Key_Down);
  EXPECT_EQ(selectedID(), u"live:5"_s);
  hold(Qt::Key_F10);
  EXPECT_TRUE(find("startsMenu", true));
  hold(Qt::Key_Escape);
  const QSignalSpy opened(&app->playback(), &Playback::stateChanged);
  hold(Qt::Key_Return);
  EXPECT_EQ(app->playback().itemID(), u"live:5"_s);
  EXPECT_EQ(opened.size(), 1);
  app->setShowingSettings(true);
  QTest::qWait(0);
  hold(Qt::Key_Return);
  EXPECT_EQ(views->settingsView()->title(), u"Playlists"_s) << "one page at a time";
  hold(Qt::Key_Escape);
  EXPECT_TRUE(app->showingSettings());
  hold(Qt::Key_Escape);

  showPicture();
  PlayerRemote& remote = *views->remote();
  hold(Qt::Key_P);
  EXPECT_TRUE(remote.small());
  hold(Qt::Key_F);
  EXPECT_TRUE(remote.fullScreen());
  hold(Qt::Key_Z);
  EXPECT_EQ(app->playback().pictureShape(), PictureShape::fill);
  hold(Qt::Key_Minus);
  EXPECT_EQ(app->playback().transport()->volume(), 80);
  hold(Qt::Key_Up);
  clock.advance(250ms);
  EXPECT_EQ(app->playback().itemID(), u"live:9"_s);
  hold(Qt::Key_Backspace);
  EXPECT_EQ(app->playback().itemID(), u"live:5"_s);
  remote.setFullScreen(false);
  QQuickItem* search = find("objectName", u"library-search"_s);
  search->forceActiveFocus();
  hold(Qt::Key_A, u"a"_s);
  EXPECT_EQ(search->property("text"), u"aaaa"_s);
}

/// After each of these the arrows act on the entries.
TEST_F(WindowTest, TheKeysGoWhereTheEyeIs) {
  open(20);
  always(LibraryKind::movies, rows(LibraryKind::movies, 1, 40),
         R"([{"category_id":"1","category_name":"One"}])");
  QQuickItem* group = find("name", u"Group"_s);
  QQuickItem* search = find("objectName", u"library-search"_s);
  for (const auto& [key, after] :
       {std::pair(Qt::Key_Return, "a group that was chosen by the pointer"),
        {Qt::Key_Escape, "groups of which none was chosen by the pointer"}}) {
    click(group);
    press(key);
    expectMoves(after);
  }
  group->forceActiveFocus(Qt::MouseFocusReason);
  search->forceActiveFocus(Qt::MouseFocusReason);
  press(Qt::Key_Return);
  const auto listIsOpen = [&] {
    return group->property("popup").value<QObject*>()->property("visible").toBool();
  };
  EXPECT_FALSE(listIsOpen());
  expectMoves("Return in the search field");
  group->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyRelease(window, Qt::Key_Return);
  EXPECT_FALSE(listIsOpen()) << "the key was pressed elsewhere";
  press(Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor(listIsOpen));
  press(Qt::Key_Escape, Qt::SHIFT | Qt::Key_Backtab);
  app->play(*app->browsing().selected());
  showPicture();
  appears("help", u"Stop playback"_s)->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Return);
  expectMoves("stopping");
  MediaItem sample;
  sample.isExample = true;
  app->play(sample);
  QTest::qWait(0);
  appears("help", u"Dismiss"_s)->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Return);
  expectMoves("a notice that was dismissed");

  press(Qt::CTRL | Qt::Key_2);
  ASSERT_TRUE(idle());
  QQuickItem* rail = find("text", u"One"_s);
  click(rail);
  EXPECT_EQ(app->browsing().category(), u"1"_s);
  QQuickItem* list = rail->parentItem()->parentItem();
  list->forceActiveFocus(Qt::TabFocusReason);
  EXPECT_EQ(list->property("keyRow"), rail->property("index")) << "the ring is where the click was";
  signOut();
  press(Qt::CTRL | Qt::Key_2, Qt::Key_Tab);
  ASSERT_TRUE(window->activeFocusItem());
  EXPECT_TRUE(window->activeFocusItem()->activeFocusOnTab()) << "an empty section has keys too";
  press(Qt::Key_Escape);
  EXPECT_EQ(app->browsing().section(), Section::live);
}

/// What was pressed is gone afterwards.
TEST_F(WindowTest, TheKeysComeBackFromWhatVanishes) {
  open();
  press(Qt::CTRL | Qt::Key_2);
  tabTo(u"Connect provider"_s);
  press(Qt::Key_Return);
  ASSERT_TRUE(views->connectView()->shown());
  always(LibraryKind::movies, rows(LibraryKind::movies, 1, 40));
  signIn(rows(LibraryKind::live, 1, 20));
  ASSERT_FALSE(views->connectView()->shown());
  expectMoves("the button of an empty section, and a sign-in");

  press(Qt::CTRL | Qt::Key_1);
  for (const QString& way : {u"Retry"_s, u"Close"_s}) {
    press(Qt::Key_Return);
    become({.state = EngineState::error, .hasMedia = true});
    tabTo(way);
    press(Qt::Key_Return);
    expectMoves(qUtf8Printable(way));
  }
  for (const bool expanded : {false, true}) {
    press(Qt::Key_Return);
    showPicture();
    app->playback().setExpanded(expanded);
    become({.state = EngineState::error, .hasMedia = true});
    EXPECT_TRUE(find("text", u"Interrupted. Trying again…"_s));
    EXPECT_FALSE(find("text", u"Retry"_s));
    tabTo(u"Stop trying"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(find("text", u"Stop trying"_s));
    EXPECT_TRUE(find("text", u"Retry"_s));
    press(Qt::Key_Escape);
  }
  expectMoves("the button of an interruption");

  QQuickItem* search = tabTo(u"Search"_s);
  press(Qt::Key_Up);
  EXPECT_EQ(window->activeFocusItem(), search) << "nothing is above the first section";
}

TEST_F(WindowTest, SettingsAreWalkedWithArrowsReturnAndEsc) {
  open();
  const SettingsView& settings = *views->settingsView();
  const auto rowWithKeys = [&] { return window->activeFocusItem()->property("title").toString(); };
  press(Qt::CTRL | Qt::Key_Comma, Qt::Key_Down, Qt::Key_Return);
  EXPECT_EQ(settings.title(), u"Playback"_s);
  press(Qt::Key_Escape);
  EXPECT_EQ(settings.title(), u"Settings"_s);
  for (const QString& back : {u"Done"_s, u"Back"_s}) {
    tabTo(back);
    press(Qt::Key_Down);
    EXPECT_NE(rowWithKeys(), QString()) << "down from the way back";
    if (back == u"Done"_s) press(Qt::Key_Return);
  }
  EXPECT_EQ(settings.title(), u"Playlists"_s);
  press(Qt::Key_Down);
  const QString row = rowWithKeys();
  Q_EMIT views->settingsView()->blocksChanged();
  QTest::qWait(0);
  EXPECT_EQ(rowWithKeys(), row) << "the server changed";
  press(Qt::Key_Up, Qt::Key_Up, Qt::Key_Escape, Qt::Key_Escape);
  EXPECT_FALSE(app->showingSettings());
}

TEST_F(WindowTest, EscLeadsFromThePlayerToTheEpisodesWhereTheyWereAndToTheChannels) {
  open(2, 0, 2);
  show(Section::shows);
  press(Qt::Key_Return);
  answerEpisodes(R"({"1":[{"id":"1","title":"One"},{"id":"2","title":"Two"},
                          {"id":"3","title":"Three"}]})");
  press(Qt::Key_Down, Qt::Key_Return);
  app->playback().setExpanded(true);
  QTest::qWait(0);
  press(Qt::Key_Escape);
  ASSERT_FALSE(app->playback().expanded());
  EXPECT_TRUE(app->browsing().showingEpisodes());
  // The list gives the focus on to its row.
  const auto place = [&] {
    const QQuickItem* row = window->activeFocusItem();
    return row ? row->parentItem()->parentItem()->property("currentIndex").toInt() : -1;
  };
  EXPECT_EQ(place(), 1);
  press(Qt::Key_Up);
  EXPECT_EQ(place(), 0);
  for (const Section section : {Section::shows, Section::live}) {
    press(Qt::Key_Escape);
    EXPECT_FALSE(app->browsing().showingEpisodes());
    EXPECT_EQ(app->browsing().section(), section);
  }
}

TEST_F(WindowTest, TheListTakesKeysFromTheStartAndDoubleClicks) {
  open(200);
  EXPECT_EQ(window->title(), u"Vantor Player"_s);
  const QPoint row = middleOf(appears("name", u"Title 3"_s));
  press(Qt::Key_Down, Qt::Key_Down);
  EXPECT_EQ(selectedID(), u"live:3"_s);
  press(Qt::Key_Left, Qt::Key_Return);
  EXPECT_EQ(app->playback().itemID(), u"live:2"_s);
  showPicture();
  engine.takeCalls();
  press(Qt::CTRL | Qt::Key_Space, Qt::ALT | Qt::Key_Space);
  EXPECT_EQ(engine.takeCalls(), QStringList()) << "the key is Space alone";
  press(Qt::Key_Space);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"pause"_s});
  doubleClick(row);
  EXPECT_EQ(app->playback().itemID(), u"live:3"_s) << "the row under the pointer";

  app->select(item(100));
  const QQuickItem* chosen = appears("name", u"Title 101"_s);
  const auto* list = chosen->parentItem()->parentItem();
  EXPECT_NEAR(chosen->mapToItem(list, chosen->boundingRect().center()).y(), list->height() / 2, 2);
  press(Qt::Key_PageDown, Qt::Key_PageUp);
  EXPECT_EQ(selectedID(), u"live:101"_s);
  app->browsing().setSearch(u"title 101"_s);
  doubleClick(row + QPoint(0, 200));
  EXPECT_EQ(app->playback().itemID(), u"live:3"_s) << "no row is there";
}

TEST_F(WindowTest, AFingerChoosesAndOneThatStaysOpensTheMenu) {
  open(3, 3);
  QPointingDevice* screen = QTest::createTouchDevice();
  for (const auto& [section, menuText] :
       {std::pair(Section::live, "Watch channel"), {Section::movies, "Play"}}) {
    SCOPED_TRACE(menuText);
    app->navigate(section);
    const QPoint place = middleOf(appears("name", u"Title 2"_s));
    const auto menu = [&, text = QLatin1String(menuText)] {
      const QQuickItem* keys = window->activeFocusItem();
      return keys && keys->inherits("QQuickMenuItem") && keys->property("text") == text;
    };
    QTest::mouseClick(window, Qt::RightButton, Qt::NoModifier, place);
    EXPECT_TRUE(QTest::qWaitFor(menu, 500));
    press(Qt::Key_Escape);
    QTest::touchEvent(window, screen).press(0, place);
    QTest::touchEvent(window, screen).release(0, place);
    QTest::qWait(0);
    EXPECT_TRUE(selectedID().endsWith(u":2"_s)) << selectedID().toStdString();
    EXPECT_FALSE(menu());
    for (const int away : {0, 0, 100}) {
      QTest::touchEvent(window, screen).press(0, place);
      QTest::qWait(QGuiApplication::styleHints()->mousePressAndHoldInterval() + 50);
      if (away > 0) QTest::touchEvent(window, screen).move(0, place + QPoint(0, away));
      QTest::touchEvent(window, screen).release(0, place + QPoint(0, away));
      QTest::qWait(50);
      EXPECT_EQ(menu(), away == 0);
      press(Qt::Key_Escape);
    }
    EXPECT_FALSE(menu());
  }
}

TEST_F(WindowTest, TheSignInSheetKeepsTheFocusAndGivesItBack) {
  open(3);
  const QQuickItem* before = window->activeFocusItem();
  const QQuickItem* shell = find("objectName", u"shell"_s);
  ASSERT_TRUE(shell);
  press(Qt::CTRL | Qt::Key_K);
  ASSERT_TRUE(app->showingConnect());
  type(u"a b"_s);
  EXPECT_EQ(views->connectView()->password(), u"a b"_s) << "the name is filled in";
  for (int i = 0; i < 12; ++i) {
    press(i < 6 ? QKeyCombination(Qt::Key_Tab) : Qt::SHIFT | Qt::Key_Tab);
    EXPECT_FALSE(focusIsIn(shell)) << "after Tab " << i;
  }
  press(Qt::Key_Down);
  EXPECT_EQ(selectedID(), QString());
  press(Qt::Key_Escape);
  EXPECT_FALSE(app->showingConnect());
  EXPECT_EQ(window->activeFocusItem(), before);
  press(Qt::CTRL | Qt::Key_K);
  for (const Section section : {Section::movies, Section::live}) {
    app->navigate(section);
    QTest::qWait(0);
    EXPECT_FALSE(focusIsIn(shell)) << "section " << static_cast<int>(section);
  }
  press(Qt::Key_Escape);
  expectMoves("a section that was entered under the sheet");
}

TEST_F(WindowTest, SearchTakesTheFocusAndKeepsSpaceAndEscStepsBack) {
  open({u"--demo"_s});
  click(find("text", u"Search"_s));
  type(u"the n"_s);
  EXPECT_EQ(app->browsing().search(), u"the n"_s);
  EXPECT_EQ(app->browsing().items().size(), 1u);
  press(Qt::Key_Return, Qt::Key_Return);
  EXPECT_EQ(selectedID(), u"movies:example-4"_s);
  press(Qt::Key_Escape);
  EXPECT_EQ(app->browsing().section(), Section::live);
}

TEST_F(WindowTest, WhatWasBegunComesAndGoesByKeys) {
  open(1);
  const auto begin = [&](int movie) {
    play(entry(LibraryKind::movies, movie));
    app->playback().onProgress(entry(LibraryKind::movies, movie).id, 100, 1000);
    QTest::qWait(0);
  };
  tabTo(u"Movies"_s);
  press(Qt::Key_Space);
  answer(
      LibraryKind::movies, rows(LibraryKind::movies, 1, 9),
      R"([{"category_id":"1","category_name":"One"},{"category_id":"2","category_name":"Two"}])");
  press(Qt::Key_Right);
  EXPECT_EQ(selectedID(), u"movies:2"_s) << "entering a section gives the keys to its list";
  tabTo([](const QQuickItem* rail) { return rail->property("keyRow").isValid(); });
  press(Qt::Key_Down);
  begin(3);
  begin(4);
  press(Qt::Key_Return);
  EXPECT_EQ(app->browsing().category(), u"1"_s) << "the keys stay where they stood";
  press(Qt::Key_Up, Qt::Key_Return);
  EXPECT_EQ(app->browsing().items().size(), 2u);

  tabTo([](const QQuickItem* grid) { return grid->property("cellWidth").isValid(); });
  press(Qt::Key_Menu, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return);
  EXPECT_EQ(app->record().begun(), QStringList{u"movies:3"_s});
  EXPECT_EQ(selectedID(), u"movies:3"_s);
  app->setCategory({});
  press(Qt::Key_Menu, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return);
  EXPECT_EQ(app->record().favorites(), QSet{u"movies:1"_s}) << "the last thing to do with others";
}

TEST_F(WindowTest, TheChosenCategoryIsInSightWhenItsSectionComesBack) {
  QStringList categories;
  for (int id = 1; id <= 60; ++id)
    categories.append(uR"({"category_id":"%1","category_name":"Group %1"})"_s.arg(id));
  for (const LibraryKind kind : allLibraryKinds)
    always(kind, rows(kind, 1, 9), u"[%1]"_s.arg(categories.join(u',')).toUtf8());
  open();
  signInToLibraries();
  show(Section::movies);
  app->setCategory(u"50"_s);
  for (const Section between : {Section::live, Section::shows, Section::favorites}) {
    show(between);
    show(Section::movies);
    EXPECT_TRUE(find("categoryID", u"50"_s)) << "after section " << static_cast<int>(between);
  }
}

TEST_F(WindowTest, NoControlIsTooSmallToHit) {
  open(2);
  app->play(item(0));
  showPicture();
  app->browsing().setSearch(u"t"_s);
  app->tell(u"A notice"_s);
  const auto expectLarge = [](const QQuickItem* control) {
    const QPointF middle(control->width() / 2, control->height() / 2);
    for (const QPointF& away : {QPointF(15, 0), QPointF(-15, 0), QPointF(0, 15), QPointF(0, -15)})
      EXPECT_TRUE(control->contains(middle + away))
          << qPrintable(control->property("help").toString() + control->property("text").toString())
          << control->metaObject()->className() << control->width() << control->height();
  };
  appears("help", u"Dismiss"_s)->forceActiveFocus(Qt::TabFocusReason);
  for (int i = 0; i < 40; ++i) {
    expectLarge(window->activeFocusItem());
    press(Qt::Key_Tab);
  }
  appears("help", u"Playback speed"_s)->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Return);
  expectLarge(appears("text", u"2×"_s));
  press(Qt::Key_Escape);
  find("name", u"Group"_s)->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Space);
  expectLarge(appears("modelData", u"All channels"_s));
  press(Qt::Key_Escape);
  app->setShowingSettings(true);
  views->settingsView()->activate(3);
  expectLarge(tabTo(u"Help & support"_s));
}

TEST_F(WindowTest, ToolTipsHaveTheSizeOfTheWindowAndLeaveMenusAlone) {
  open(2);
  auto* style = qml->singletonInstance<Style*>(qmlTypeId("Vantor.Style", 1, 0, "Style"));
  style->setWishes(1.5, false, false);
  app->play(item(0));
  showPicture();
  const auto pointAt = [&](const QString& help) {
    QTest::mouseMove(window, middleOf(appears("help", help)));
  };
  pointAt(u"Stop playback"_s);
  EXPECT_GT(style->property("zoom").toDouble(), 1);
  EXPECT_EQ(appears("text", u"Stop playback"_s)->parentItem()->scale(), style->property("zoom"));
  pointAt(u"Playback speed"_s);
  click(find("help", u"Playback speed"_s));
  EXPECT_TRUE(appears("text", u"2×"_s));
  QTest::qWait(900);
  EXPECT_FALSE(find("text", u"Playback speed"_s));
}

TEST_F(WindowTest, TheMenuOpensWithF10AndGivesTheFocusBack) {
  open({u"--demo"_s});
  const QQuickItem* before = window->activeFocusItem();
  press(Qt::Key_F10);
  EXPECT_TRUE(appears("startsMenu", true)->property("highlighted").toBool());
  press(Qt::Key_Escape);
  EXPECT_EQ(window->activeFocusItem(), before);
  EXPECT_FALSE(find("keysText", u"Ctrl+3"_s));
  EXPECT_EQ(app->browsing().section(), Section::live);
  press(Qt::Key_F10);
  click(find("keysText", u"Ctrl+3"_s));
  EXPECT_EQ(app->browsing().section(), Section::shows);
}

}  // namespace
}  // namespace vantor::test
