#include <QQmlAbstractUrlInterceptor>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>

#include "support/awaited.h"
#include "window_fixture.h"

namespace vantor::test {
namespace {

using File = std::optional<QUrl>;

/// What the window's frame does, and what works in the whole window.
using WindowFrameTest = WindowTest;

TEST_F(WindowFrameTest, AnOpenSheetLeavesTheWindowItsFrameAndTheKeysThatNeedNoScreen) {
  open();
  QSignalSpy quits(views->commands(), &Commands::quitRequested);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->property("appeared").toBool(); }));
  const auto becomes = [&](Qt::WindowState state) {
    return QTest::qWaitFor([&] { return window->windowState() == state; });
  };
  // So that the next click begins no double click.
  const auto pause = [] {
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
  };
  const auto cursorAt = [&](QPoint place) {
    QTest::mouseMove(window, place);
    QTest::qWait(50);
    return window->cursor().shape();
  };
  for (const bool signIn : {true, false}) {
    SCOPED_TRACE(signIn ? "sign-in" : "settings");
    app->setShowingConnect(signIn);
    app->setShowingSettings(!signIn);
    QTest::qWait(50);
    const QQuickItem* focused = window->activeFocusItem();
    const int asked = filePanel.shown;
    press(Qt::CTRL | Qt::Key_O);
    settle();
    EXPECT_EQ(filePanel.shown, asked + 1);
    filePanel.choice.resolve(std::nullopt);
    settle();
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
  }
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
  for (int i = 0; i < 2; ++i) EXPECT_EQ(awaited<File>(dialog.chooseMediaFile()), std::nullopt) << i;
  messages.take();
}

TEST_F(WindowFrameTest, ThePathInTheToolkitsOwnDialogCanBeRead) {
  open();
  const Pending<File> file = dialog.chooseMediaFile();
  const QQuickItem* path = nullptr;
  const Test isPath = [](const QQuickItem* item) { return item->property("upButton").isValid(); };
  ASSERT_TRUE(QTest::qWaitFor([&] {
    for (const QWindow* each : QGuiApplication::topLevelWindows())
      if (const auto* const quick = qobject_cast<const QQuickWindow*>(each); quick && !path)
        path = find(isPath, quick->contentItem());
    return path != nullptr;
  }));
  const auto* ground = path->property("background").value<QQuickItem*>();
  ASSERT_TRUE(ground);
  EXPECT_LT(ground->property("color").value<QColor>().lightnessF(), 0.3);
  // In a window of its own nothing gives it the keys here.
  if (path->window() != window) return;
  press(Qt::Key_Escape);
  EXPECT_EQ(awaited<File>(file), std::nullopt);
}

TEST(FilePanelTypes, CoverMoviesAndAudioInAnySpelling) {
  const QStringList filters = DialogFilePanel::nameFilters();
  ASSERT_EQ(filters.size(), 1);
  QStringList patterns = filters.first().section(u'(', 1).chopped(1).split(u' ');
  for (QString& pattern : patterns)
    pattern = QRegularExpression::wildcardToRegularExpression(pattern);
  const QString files = u"a.mkv A.MKV a.ts a.m2ts a.mp3 A.DTS a.pdf a.png mkv a.mkv.txt"_s;
  const QStringList offered = files.split(u' ').filter(QRegularExpression(patterns.join(u'|')));
  EXPECT_EQ(offered.join(u' '), u"a.mkv A.MKV a.ts a.m2ts a.mp3 A.DTS"_s);
}

TEST_F(WindowFrameTest, WhatTheDesktopMakesTooSmallStaysWithinReach) {
  open(3);
  for (const QSize size : {QSize(1100, 540), QSize(700, 720), QSize(550, 360), QSize(1400, 900)}) {
    SCOPED_TRACE(testing::Message() << size.width() << " by " << size.height());
    window->resize(size);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->size() == size; }));
    QTest::qWait(50);
    const auto reach = [&](const QString& text) {
      QQuickItem* item = appears("text", text);
      const QRectF place = item->mapRectToScene(item->boundingRect());
      EXPECT_TRUE(QRectF(QPointF(), size).contains(place)) << text.toStdString();
      return item;
    };
    reach(u"Title 3"_s);
    click(reach(u"Settings"_s));
    click(reach(u"Done"_s));
    EXPECT_FALSE(app->showingSettings());
    press(Qt::CTRL | Qt::Key_K);
    reach(u"Connect"_s);
    click(reach(u"Close"_s));
    EXPECT_FALSE(app->showingConnect());
  }
  Q_EMIT window->screen()->virtualGeometryChanged({});
  QTest::qWait(50);
  EXPECT_EQ(window->size(), QSize(1400, 900)) << "another screen came or went";
}

TEST_F(WindowFrameTest, NamesStandLeftOnOneLineAndTheLogoIsThereAtOnce) {
  open();
  const QList<QQuickItem*> all = window->findChildren<QQuickItem*>();
  EXPECT_TRUE(std::ranges::any_of(all, [](const QQuickItem* image) {
    return image->size() == QSizeF(160, 90) && !image->property("image").value<QImage>().isNull();
  }));
  signIn(R"([{"stream_id":1,"name":"أخبار"},{"stream_id":2,"name":"One\nTwo"}])");
  always(LibraryKind::movies,
         R"([{"stream_id":1,"name":"חדשות"},{"stream_id":2,"name":"One\r\nTwo"}])");
  for (const auto& [key, name] : {std::pair(Qt::Key_1, u"أخبار"_s), {Qt::Key_2, u"חדשות"_s}}) {
    press(Qt::CTRL | key);
    for (const QString& text : {name, u"One Two"_s}) {
      SCOPED_TRACE(text.toStdString());
      // The artwork's stand-in has the name in its middle.
      const QQuickItem* label = appears([&](const QQuickItem* item) {
        return item->property("text") == text && item->property("elide").toInt() == Qt::ElideRight;
      });
      const int alignment = label->property("effectiveHorizontalAlignment").toInt();
      EXPECT_TRUE(text != name || alignment == Qt::AlignLeft);
      EXPECT_FALSE(label->property("truncated").toBool());
    }
  }
}

}  // namespace
}  // namespace vantor::test
