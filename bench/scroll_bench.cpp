// Scrolling the channel guide and the poster grid fast, beside lists of plain rectangles of the
// same geometry. Needs a display and a secret service of its own.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTest>
#include <functional>
#include <string>
#include <utility>

#include "frame_watch.h"
#include "measure.h"
#include "screens/stage.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

constexpr int frames = 150;

/// What each frame took: processor time of the main thread, making rows and handing them to the
/// scene graph; then drawing, which a software renderer does with all there is.
struct Scroll {
  Times prepared;
  Times drawn;
  double typicalFrame() const { return prepared.median() + drawn.median(); }
};

/// One of the ways to go through a list, a step of it each frame.
using Step = std::function<void(QQuickWindow&, QQuickItem& view, int frame)>;

// A notch each frame, as a finger turns it fast.
void wheel(QQuickWindow& window, QQuickItem& view, int frame) {
  const QPointF place = view.mapToScene({view.width() / 2, view.height() / 2});
  QWheelEvent event(place, window.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  event.setTimestamp(static_cast<quint64>(frame + 1) * 17);
  QCoreApplication::sendEvent(&window, &event);
}

void holdDown(QQuickWindow& window, QQuickItem&, int frame) {
  QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, frame > 0);
  QCoreApplication::sendEvent(&window, &event);
}

// From one end to the other: no row of a frame is left of the frame before.
void dragBar(QQuickWindow&, QQuickItem& view, int frame) {
  const double whole = view.property("contentHeight").toDouble() - view.height();
  view.setProperty("contentY", whole * (frame + 1) / frames);
}

QQuickItem* viewIn(QQuickItem* item) {
  if (item->isVisible() && item->width() > 500 && item->height() > 300 &&
      (item->inherits("QQuickListView") || item->inherits("QQuickGridView")))
    return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = viewIn(child)) return found;
  return nullptr;
}

Scroll scroll(QQuickWindow& window, QQuickItem& view, const Step& step) {
  FrameWatch watch(window);
  Scroll result;
  for (int i = 0; i < frames; ++i) {
    const FrameWatch::Frame frame = watch.after([&] { step(window, view, i); }, 5000);
    if (!frame.shown) break;
    result.prepared.add(frame.busy);
    result.drawn.add(frame.drawn);
  }
  return result;
}

/// Going through the same rows again, a frame that is slow because of them is slow in every pass;
/// by key the highlight goes on, through other rows.
struct Passes {
  Scroll first;
  Scroll calmest;
};

Passes scroll(QQuickWindow& window, const Step& step, bool again = true) {
  QQuickItem& view = *viewIn(window.contentItem());
  const double top = view.property("contentY").toDouble();
  Passes passes;
  for (int pass = 0; pass < 4; ++pass) {
    if (again) view.setProperty("contentY", top);
    Scroll next = scroll(window, view, step);
    if (pass == 0)
      passes.first = std::move(next);
    else if (pass == 1 || next.prepared.worst() < passes.calmest.prepared.worst())
      passes.calmest = std::move(next);
  }
  return passes;
}

/// `view` is the QML of a list or grid that takes the place of ours in a window of the same size.
Passes scrollPlain(const QByteArray& view, const Step& step) {
  QQmlApplicationEngine engine;
  engine.loadData(
      "import QtQuick\nimport QtQuick.Window\n"
      "Window { width: 1320; height: 820; visible: true; color: '#10171B'; " +
      view + " }");
  auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
  if (!window || !QTest::qWaitForWindowExposed(window)) return {};
  return scroll(*window, step);
}

void report(const std::string& what, const Passes& ours, const Passes& plain) {
  const auto slowest = [&](const std::string& part, const Times& times, const Times& plainTimes) {
    row(what + ": " + part, milliseconds(times.worst()),
        "rectangles " + milliseconds(plainTimes.worst()), milliseconds(frameTime),
        times.worst() <= frameTime);
  };
  slowest("main thread, first pass", ours.first.prepared, plain.first.prepared);
  slowest("main thread, later", ours.calmest.prepared, plain.calmest.prepared);
  slowest("drawing, first pass", ours.first.drawn, plain.first.drawn);
  slowest("drawing, later", ours.calmest.drawn, plain.calmest.drawn);
  row(what + ": whole frame, typical", milliseconds(ours.calmest.typicalFrame()),
      "rectangles " + milliseconds(plain.calmest.typicalFrame()), milliseconds(frameTime),
      ours.calmest.typicalFrame() <= frameTime);
}

/// In every way, the one that comes first to a screen in its first frames.
void compare(const std::string& what, QQuickWindow& window, const QByteArray& plain) {
  report(what + " by wheel", scroll(window, wheel), scrollPlain(plain, wheel));
  report(what + " by key", scroll(window, holdDown, false), scrollPlain(plain, wheel));
  report(what + " by bar", scroll(window, dragBar), scrollPlain(plain, dragBar));
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(u"Basic"_s);
  using namespace vantor;
  using namespace vantor::bench;
  screens::Album album;
  screens::Stage stage(album,
                       {.channels = 57'000, .movies = 178'000, .shows = 48'000, .streams = false});
  stage.signIn();
  compare("57,000 channels", stage.window(),
          "ListView { x: 220; y: 120; width: 709; height: 660; clip: true; reuseItems: true; "
          "spacing: 6; model: 57000; delegate: Item { width: 709; height: 44; "
          "Rectangle { width: 275; height: 44; radius: 5; color: '#1F292E' } "
          "Rectangle { x: 285; width: 207; height: 44; radius: 5; color: '#1B2429' } "
          "Rectangle { x: 502; width: 207; height: 44; radius: 5; color: '#1A2327' } } }");
  stage.show(Section::movies);
  compare(
      "178,000 movies", stage.window(),
      "GridView { x: 398; y: 340; width: 900; height: 440; clip: true; reuseItems: true; "
      "cellWidth: 225; cellHeight: 262; model: 178000; delegate: Item { width: 225; height: 262; "
      "Rectangle { width: 209; height: 242; radius: 5; color: '#1F292E' } } }");
  return 0;
}
