#include <QQmlAbstractUrlInterceptor>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>

#include "support/awaited.h"
#include "ui/window/window_place.h"
#include "window_fixture.h"

namespace vantor::test {
namespace {

/// What the window's frame does, and what works in the whole window.
class WindowFrameTest : public WindowTest {
 protected:
  /// The visible text that is cut where it does not fit.
  static const QQuickItem* elidedLabel(const QString& text, const QQuickItem* from) {
    if (!from->isVisible()) return nullptr;
    if (from->property("text") == text && from->property("elide").toInt() == Qt::ElideRight)
      return from;
    for (const QQuickItem* child : from->childItems())
      if (const QQuickItem* found = elidedLabel(text, child)) return found;
    return nullptr;
  }
  bool becomes(Qt::WindowState state) {
    return QTest::qWaitFor([&] { return window->windowState() == state; });
  }
  /// So that the next click begins no double click.
  static void pause() {
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
  }
  Qt::CursorShape cursorAt(QPoint place) {
    QTest::mouseMove(window, place);
    QTest::qWait(50);
    return window->cursor().shape();
  }
};

TEST_F(WindowFrameTest, AnOpenSheetLeavesTheWindowItsFrameAndTheKeysThatNeedNoScreen) {
  open();
  QSignalSpy quits(views->commands(), &Commands::quitRequested);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->property("appeared").toBool(); }));
  const auto work = [&](const char* sheet) {
    SCOPED_TRACE(sheet);
    QTest::qWait(50);
    const QQuickItem* focused = window->activeFocusItem();
    const int asked = filePanel.shown;
    press(Qt::CTRL | Qt::Key_O);
    settle();
    EXPECT_EQ(filePanel.shown, asked + 1);
    filePanel.choice.resolve(std::nullopt);
    settle();
    engine.takeCalls();
    press(Qt::CTRL | Qt::Key_Q);
    EXPECT_EQ(quits.count(), 1);
    quits.clear();
    press(Qt::CTRL | Qt::Key_2);
    EXPECT_EQ(app->browsing().section(), Section::live) << "the screen behind stays";

    EXPECT_EQ(cursorAt({window->width() - 2, 400}), Qt::SizeHorCursor);
    EXPECT_EQ(cursorAt({400, window->height() - 2}), Qt::SizeVerCursor);
    EXPECT_EQ(cursorAt({400, 400}), Qt::ArrowCursor);
    for (const QPoint header :
         {QPoint(500, 30), QPoint(80, 12), QPoint(window->width() - 250, 38)}) {
      doubleClick(header);
      EXPECT_TRUE(becomes(Qt::WindowMaximized)) << header.x();
      window->setWindowState(Qt::WindowNoState);
      EXPECT_TRUE(becomes(Qt::WindowNoState));
      pause();
    }
    const QPoint close(window->width() - 12 - 17, 38);
    for (const auto& [left, state] :
         {std::pair(36, Qt::WindowMaximized), {36, Qt::WindowNoState}, {72, Qt::WindowMinimized}}) {
      pause();
      QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, close - QPoint(left, 0));
      EXPECT_TRUE(becomes(state)) << left;
      EXPECT_TRUE(state != Qt::WindowNoState || window->activeFocusItem() == focused);
    }
    window->showNormal();
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, close);
    EXPECT_FALSE(window->isVisible());
    window->show();
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  };
  app->setShowingConnect(true);
  work("sign-in");
  app->setShowingConnect(false);
  app->setShowingSettings(true);
  work("settings");
}

TEST_F(WindowFrameTest, ScrollBarsAtTheEdgeAreGrabbedInTheirWholeWidth) {
  open(3, 60);
  press(Qt::CTRL | Qt::Key_2);
  ASSERT_TRUE(idle());
  QTest::qWait(100);
  const QQuickItem* bar = appears("atWindowEdge", true);
  const auto* handle = bar->property("contentItem").value<QQuickItem*>();
  ASSERT_TRUE(handle && handle->width() > 4);
  for (int x = -2; x < handle->width() + 2; ++x) {
    const QPoint place = handle->mapToScene({x + 0.5, handle->height() / 2}).toPoint();
    if (place.x() >= window->width() - 6) break;
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_TRUE(bar->property("pressed").toBool()) << x;
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_GE(x < 0 ? window->width() : window->width() - place.x(), 6);
  }
  const QPoint right = handle->mapToScene({handle->width(), 0}).toPoint();
  EXPECT_LE(right.x(), window->width() - 6) << "the handle lies under the strip that resizes";
}

TEST_F(WindowFrameTest, AFileIsAskedForAgainAfterADialogThatDoesNotLoad) {
  struct Broken final : QQmlAbstractUrlInterceptor {
    QUrl intercept(const QUrl& url, DataType) override {
      return url.fileName() == "MediaFileDialog.qml"_L1 ? QUrl(u"qrc:/none.qml"_s) : url;
    }
  } broken;
  open();
  qml->addUrlInterceptor(&broken);
  for (int i = 0; i < 2; ++i) {
    using File = std::optional<QUrl>;
    EXPECT_EQ(awaited<File>(dialog.chooseMediaFile()), std::nullopt) << i;
  }
  messages.take();
}

TEST_F(WindowFrameTest, ThePathInTheToolkitsOwnDialogCanBeRead) {
  open();
  const Pending<std::optional<QUrl>> file = dialog.chooseMediaFile();
  const QQuickItem* path = nullptr;
  const auto looksAt = [&](auto& self, const QQuickItem* item) -> void {
    if (item->property("upButton").isValid()) path = item;
    for (const QQuickItem* child : item->childItems()) self(self, child);
  };
  ASSERT_TRUE(QTest::qWaitFor([&] {
    for (const QWindow* each : QGuiApplication::topLevelWindows())
      if (const auto* const quick = qobject_cast<const QQuickWindow*>(each))
        looksAt(looksAt, quick->contentItem());
    return path != nullptr;
  }));
  const auto* ground = path->property("background").value<QQuickItem*>();
  ASSERT_TRUE(ground);
  EXPECT_LT(ground->property("color").value<QColor>().lightnessF(), 0.3);
  // In a window of its own nothing gives it the keys here.
  if (path->window() != window) return;
  press(Qt::Key_Escape);
  EXPECT_EQ(awaited<std::optional<QUrl>>(file), std::nullopt);
}

TEST(FilePanelTypes, CoverMoviesAndAudioInAnySpelling) {
  const QStringList filters = DialogFilePanel::nameFilters();
  ASSERT_EQ(filters.size(), 1);
  const QStringList patterns = filters.first().section(u'(', 1).chopped(1).split(u' ');
  const auto offered = [&](const QString& file) {
    return std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
      return QRegularExpression::fromWildcard(pattern, Qt::CaseSensitive).match(file).hasMatch();
    });
  };
  for (const QString& extension : {u"mkv"_s, u"ts"_s, u"m2ts"_s, u"mp3"_s, u"dts"_s})
    for (const QString& file : {u"film."_s + extension, u"FILM."_s + extension.toUpper()})
      EXPECT_TRUE(offered(file)) << file.toStdString();
  for (const QString& file : {u"letter.pdf"_s, u"picture.png"_s, u"mkv"_s, u"a.mkv.txt"_s})
    EXPECT_FALSE(offered(file)) << file.toStdString();
}

TEST_F(WindowFrameTest, TheSizeStaysWhenAScreenChanges) {
  open();
  window->resize(1200, 760);
  QTest::qWait(50);
  Q_EMIT window->screen()->virtualGeometryChanged({});
  QTest::qWait(50);
  EXPECT_EQ(window->size(), QSize(1200, 760));
}

TEST_F(WindowFrameTest, WhatTheDesktopMakesTooSmallStaysWithinReach) {
  open(3);
  for (const QSize size : {QSize(1100, 540), QSize(700, 720), QSize(550, 360), QSize(1400, 900)}) {
    SCOPED_TRACE(testing::Message() << size.width() << " by " << size.height());
    window->resize(size);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->size() == size; }));
    QTest::qWait(50);
    const auto reach = [&](const char* property, const QString& text) {
      QQuickItem* item = appears(property, text);
      const QRectF place = item->mapRectToScene(item->boundingRect());
      EXPECT_TRUE(QRectF(QPointF(), size).contains(place)) << text.toStdString();
      return item;
    };
    reach("text", u"Title 3"_s);
    click(reach("text", u"Settings"_s));
    click(reach("text", u"Done"_s));
    EXPECT_FALSE(app->showingSettings());
    press(Qt::CTRL | Qt::Key_K);
    reach("text", u"Connect"_s);
    click(reach("text", u"Close"_s));
    EXPECT_FALSE(app->showingConnect());
  }
}

TEST_F(WindowFrameTest, TheWindowComesBackWhereItWas) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  ASSERT_EQ(screen.size(), QSize(1600, 1000));
  const struct {
    QString stored;  // left, top, width, height, and whether it is maximized
    QRect expected;
    bool placed = true;
  } cases[] = {
      {u""_s, {0, 0, 1320, 820}, false},
      {u"120,90,1150,740,"_s, {120, 90, 1150, 740}},
      {u"900,-50,1150,740,"_s, {450, 0, 1150, 740}},
      {u"0,0,9000,9000,"_s, {0, 0, 1600, 1000}},
      {u"5000,0,1150,740,"_s, {0, 0, 1150, 740}, false},
      {u"x,,-5,1e9,"_s, {0, 0, 1100, 720}, false},
      {u"1"_s, {0, 0, 1320, 820}, false},
  };
  Preferences stored(home.filePath(u"window.ini"_s));
  struct Window : QWindow {
    Window() {
      setFlags(Qt::Window | Qt::FramelessWindowHint);
      setMinimumSize({1100, 720});
      resize(1320, 820);
    }
  };
  for (const auto& [place, expected, placed] : cases) {
    SCOPED_TRACE(place.toStdString());
    if (!place.isEmpty()) stored.setTextList(u"windowPlace"_s, place.split(u','));
    Window next;
    const WindowPlace restored(next, stored);
    EXPECT_EQ(next.size(), expected.size());
    EXPECT_TRUE(!placed || next.position() == expected.topLeft());
  }
  const QRect moved(70, 60, 1180, 730);
  for (const bool maximized : {false, true}) {
    {
      Window first;
      const WindowPlace kept(first, stored);
      first.show();
      ASSERT_TRUE(QTest::qWaitForWindowExposed(&first));
      maximized ? first.setWindowState(Qt::WindowMaximized) : first.setGeometry(moved);
      QTest::qWait(50);
    }
    Window second;
    const WindowPlace restored(second, stored);
    EXPECT_EQ(second.geometry(), moved);
    EXPECT_EQ(second.windowState() == Qt::WindowMaximized, maximized);
  }
}

TEST_F(WindowFrameTest, TheSmallWindowHasAPlaceOfItsOwn) {
  Preferences stored(home.filePath(u"small.ini"_s));
  const QRect usual(50, 40, 1200, 750);
  const QRect corner(80, 90, 600, 400);
  for (const bool again : {false, true}) {
    QWindow next;
    next.setMinimumSize(QSize(1100, 720));
    next.setGeometry(usual);
    {
      WindowPlace place(next, stored);
      next.show();
      ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
      const QRect room = next.screen()->availableGeometry();
      place.setSmall(true);
      QTest::qWait(50);
      if (again)
        EXPECT_EQ(next.geometry(), corner);
      else
        EXPECT_EQ(room.bottomRight() - next.geometry().bottomRight(), QPoint(24, 24));
      EXPECT_TRUE(next.flags() & Qt::WindowStaysOnTopHint);
      next.setGeometry(corner);
      QTest::qWait(600);
      place.setSmall(false);
      QTest::qWait(50);
      EXPECT_EQ(next.geometry(), usual);
      EXPECT_EQ(next.minimumSize(), QSize(1100, 720));
      EXPECT_FALSE(next.flags() & Qt::WindowStaysOnTopHint);
      place.setSmall(true);
      QTest::qWait(50);
      EXPECT_EQ(next.geometry(), corner);
    }
    QWindow later;
    const WindowPlace restored(later, stored);
    EXPECT_EQ(later.geometry(), usual) << "quit while it is small";
  }
}

TEST_F(WindowFrameTest, NamesStandLeftOnOneLineAndTheLogoIsThereAtOnce) {
  open();
  const QList<QQuickItem*> all = window->findChildren<QQuickItem*>();
  EXPECT_TRUE(std::ranges::any_of(all, [](const QQuickItem* image) {
    return image->property("source").toUrl().fileName() == "brand.svg"_L1 &&
           image->property("paintedWidth").toReal() > 0;
  }));
  signIn(R"([{"stream_id":1,"name":"أخبار"},{"stream_id":2,"name":"One\nTwo"}])");
  always(LibraryKind::movies,
         R"([{"stream_id":1,"name":"חדשות"},{"stream_id":2,"name":"One\r\nTwo"}])");
  for (const auto& [key, name] : {std::pair(Qt::Key_1, u"أخبار"_s), {Qt::Key_2, u"חדשות"_s}}) {
    press(Qt::CTRL | key);
    for (const QString& text : {name, u"One Two"_s}) {
      SCOPED_TRACE(text.toStdString());
      const QQuickItem* label = nullptr;
      ASSERT_TRUE(
          QTest::qWaitFor([&] { return (label = elidedLabel(text, window->contentItem())); }));
      // The artwork's stand-in has the name in its middle.
      const int alignment = label->property("effectiveHorizontalAlignment").toInt();
      EXPECT_TRUE(text != name || alignment == Qt::AlignLeft);
      EXPECT_FALSE(label->property("truncated").toBool());
    }
  }
}

}  // namespace
}  // namespace vantor::test
