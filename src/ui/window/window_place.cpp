#include "ui/window/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>

#include "platform/preferences.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString key = u"windowPlace"_s;
const QString maximizedMark = u"maximized"_s;

// A window that is being maximized has its new size before it has its new state.
constexpr auto settling = 500ms;

/// Within what a rectangle can be reckoned with.
int number(const QString& text) {
  return std::clamp(text.toInt(), -100'000, 100'000);
}

int area(const QRect& rectangle) {
  return rectangle.isEmpty() ? 0 : rectangle.width() * rectangle.height();
}

/// The screen that holds most of the place; null when none holds any of it.
const QScreen* screenOf(const QRect& place) {
  const QScreen* best = nullptr;
  int most = 0;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const int held = area(screen->availableGeometry().intersected(place));
    if (held > most) {
      most = held;
      best = screen;
    }
  }
  return best;
}

}  // namespace

WindowPlace::WindowPlace(QWindow& window, Preferences& preferences)
    : window_(window), preferences_(preferences) {
  restore();
  settled_.setSingleShot(true);
  settled_.setInterval(settling);
  connect(&settled_, &QTimer::timeout, this, &WindowPlace::store);
  const auto changed = [this] { settled_.start(); };
  for (const auto signal :
       {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
    connect(&window, signal, this, changed);
  connect(&window, &QWindow::windowStateChanged, this, changed);
}

WindowPlace::~WindowPlace() {
  if (settled_.isActive()) store();
}

void WindowPlace::restore() {
  const QStringList stored = preferences_.textList(key);
  QRect place(window_.position(), window_.size());
  const bool known = stored.size() == 5;
  if (known)
    place = QRect(number(stored[0]), number(stored[1]), number(stored[2]), number(stored[3]));
  const QScreen* screen = known ? screenOf(place) : nullptr;
  const QRect room = (screen ? screen : window_.screen())->availableGeometry();
  const QSize smallest = window_.minimumSize();
  place.setSize(place.size().boundedTo(room.size()).expandedTo(smallest));
  window_.resize(place.size());
  if (screen && !QGuiApplication::platformName().startsWith("wayland"_L1)) {
    place.moveTo(
        std::clamp(place.x(), room.x(), std::max(room.x(), room.right() + 1 - place.width())),
        std::clamp(place.y(), room.y(), std::max(room.y(), room.bottom() + 1 - place.height())));
    window_.setPosition(place.topLeft());
  }
  normal_ = place;
  if (known && stored[4] == maximizedMark) window_.setWindowStates(Qt::WindowMaximized);
}

void WindowPlace::store() {
  settled_.stop();
  const Qt::WindowStates states = window_.windowStates();
  // The picture fills the screen for a while only.
  if (states & (Qt::WindowMinimized | Qt::WindowFullScreen)) return;
  if (states == Qt::WindowNoState) normal_ = window_.geometry();
  const bool maximized = states & Qt::WindowMaximized;
  preferences_.setTextList(
      key,
      {QString::number(normal_.x()), QString::number(normal_.y()), QString::number(normal_.width()),
       QString::number(normal_.height()), maximized ? maximizedMark : QString()});
}

}  // namespace vantor
