#include "ui/window/window_place.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "platform/preferences.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize smallest(1100, 720);

struct Window : QWindow {
  explicit Window(const QRect& place = {0, 0, 1320, 820}) {
    setFlags(Qt::Window | Qt::FramelessWindowHint);
    setMinimumSize(smallest);
    setGeometry(place);
  }
};

class WindowPlaceTest : public ::testing::Test {
 protected:
  QTemporaryDir home;
  Preferences stored{home.filePath(u"window.ini"_s)};
};

TEST_F(WindowPlaceTest, TheWindowComesBackWhereItWas) {
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

TEST_F(WindowPlaceTest, TheSmallWindowHasAPlaceOfItsOwn) {
  const QRect usual(50, 40, 1200, 750);
  const QRect corner(80, 90, 600, 400);
  for (const bool again : {false, true}) {
    {
      Window next(usual);
      WindowPlace place(next, stored);
      next.show();
      ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
      const auto setSmall = [&](bool small) {
        place.setSmall(small);
        QTest::qWait(50);
        EXPECT_EQ(bool(next.flags() & Qt::WindowStaysOnTopHint), small);
        return next.geometry();
      };
      const QRect room = next.screen()->availableGeometry();
      const QRect first = setSmall(true);
      EXPECT_TRUE(again ? first == corner
                        : room.bottomRight() - first.bottomRight() == QPoint(24, 24));
      next.setGeometry(corner);
      QTest::qWait(600);
      EXPECT_EQ(setSmall(false), usual);
      EXPECT_EQ(next.minimumSize(), smallest);
      EXPECT_EQ(setSmall(true), corner);
    }
    QWindow later;
    const WindowPlace restored(later, stored);
    EXPECT_EQ(later.geometry(), usual) << "quit while it is small";
  }
}

}  // namespace
}  // namespace vantor::test
