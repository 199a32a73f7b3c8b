#include "ui/window/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>
#include <chrono>

#include "platform/preferences.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString key = u"windowPlace"_s;
const QString smallKey = u"smallWindowPlace"_s;
const QString maximizedMark = u"maximized"_s;

// Of the small window, in logical pixels.
constexpr QSize smallSize(480, 270);
constexpr QSize smallestSmallSize(240, 135);
constexpr int distanceFromEdge = 24;

// A window that is being maximized has its new size before it has its new state.
constexpr auto settling = 500ms;

/// Within what a rectangle can be reckoned with.
int number(const QString& text) {
  return std::clamp(text.toInt(), -100'000, 100'000);
}

int area(const QRect& rectangle) {
  return rectangle.isEmpty() ? 0 : rectangle.width() * rectangle.height();
}

bool placesWindows() {
  return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

/// Whether the desktop gives windows their sizes, and Qt's Wayland would not follow it below the
/// smallest.
bool laysOutWindows() {
  static constexpr std::array tiling{"sway", "Hyprland", "river", "niri"};
  const QList<QByteArray> desktops = qgetenv("XDG_CURRENT_DESKTOP").split(':');
  return !placesWindows() && std::ranges::any_of(tiling, [&desktops](const char* name) {
    return desktops.contains(QByteArray(name));
  });
}

QSize smallestOn(const QScreen& screen, const QSize& usual) {
  if (laysOutWindows()) return {};
  QSize room = screen.availableSize();
  // Wayland does not say how much of it the desktop's panels take.
  if (!placesWindows()) room = room * 4 / 5;
  return usual.boundedTo(room);
}

QStringList texts(const QRect& place) {
  return {QString::number(place.x()), QString::number(place.y()), QString::number(place.width()),
          QString::number(place.height())};
}

QRect rectangle(const QStringList& texts) {
  return {number(texts[0]), number(texts[1]), number(texts[2]), number(texts[3])};
}

/// The place within the room, as far as it is large enough.
QRect within(const QRect& room, QRect place) {
  place.moveTo(
      std::clamp(place.x(), room.x(), std::max(room.x(), room.right() + 1 - place.width())),
      std::clamp(place.y(), room.y(), std::max(room.y(), room.bottom() + 1 - place.height())));
  return place;
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
    : window_(window), preferences_(preferences), usuallySmallest_(window.minimumSize()) {
  fitScreen();
  restore();
  settled_.setSingleShot(true);
  settled_.setInterval(settling);
  connect(&settled_, &QTimer::timeout, this, &WindowPlace::store);
  const auto changed = [this] { settled_.start(); };
  for (const auto signal :
       {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
    connect(&window, signal, this, changed);
  connect(&window, &QWindow::windowStateChanged, this, changed);
  connect(&window, &QWindow::screenChanged, this, &WindowPlace::fitScreen);
}

WindowPlace::~WindowPlace() {
  if (settled_.isActive()) store();
}

void WindowPlace::fitScreen() {
  connect(window_.screen(), &QScreen::availableGeometryChanged, this, &WindowPlace::fitScreen,
          Qt::UniqueConnection);
  if (!small_) window_.setMinimumSize(smallestOn(*window_.screen(), usuallySmallest_));
}

void WindowPlace::restore() {
  const QStringList stored = preferences_.textList(key);
  QRect place(window_.position(), window_.size());
  const bool known = stored.size() == 5;
  if (known) place = rectangle(stored);
  const QScreen* screen = known ? screenOf(place) : nullptr;
  const QRect room = (screen ? screen : window_.screen())->availableGeometry();
  place.setSize(place.size().boundedTo(room.size()).expandedTo(window_.minimumSize()));
  window_.resize(place.size());
  if (screen && placesWindows()) {
    place = within(room, place);
    window_.setPosition(place.topLeft());
  }
  normal_ = place;
  if (known && stored[4] == maximizedMark) window_.setWindowStates(Qt::WindowMaximized);
}

void WindowPlace::makeRoom(double scale) {
  if (small_ || window_.windowStates() != Qt::WindowNoState) return;
  const QRect room = window_.screen()->availableGeometry();
  const QSize wanted = (QSizeF(usuallySmallest_) * scale).toSize().boundedTo(room.size());
  const QSize size = window_.size().expandedTo(wanted);
  if (size == window_.size()) return;
  window_.resize(size);
  if (placesWindows()) window_.setPosition(within(room, {window_.position(), size}).topLeft());
}

void WindowPlace::setSmall(bool small) {
  if (small_ == small) return;
  // What the window was is known from when it settled there last: one that has just left the full
  // screen has not its own size yet.
  settled_.stop();
  if (small) {
    maximized_ = window_.windowStates() & Qt::WindowMaximized;
    storeUsual();
  }
  small_ = small;
  window_.setFlag(Qt::WindowStaysOnTopHint, small);
  if (!small) {
    window_.setGeometry(normal_);
    fitScreen();
    if (maximized_) window_.showMaximized();
    return;
  }
  window_.showNormal();
  window_.setMinimumSize(smallestSmallSize);
  const QStringList stored = preferences_.textList(smallKey);
  const bool known = stored.size() == 4;
  const QRect last = known ? rectangle(stored) : QRect();
  const QScreen* screen = known ? screenOf(last) : nullptr;
  const QRect room = (screen ? screen : window_.screen())->availableGeometry();
  QRect place(
      QPoint(),
      (known ? last.size() : smallSize).boundedTo(room.size()).expandedTo(smallestSmallSize));
  place.moveBottomRight(room.bottomRight() - QPoint(distanceFromEdge, distanceFromEdge));
  if (screen) place.moveTo(last.topLeft());
  place = within(room, place);
  if (placesWindows()) {
    window_.setGeometry(place);
    return;
  }
  window_.resize(place.size());
  // A compositor that ends a full screen meanwhile gives the window its size from before.
  QTimer::singleShot(settling, this, [this, size = place.size()] {
    if (small_) window_.resize(size);
  });
}

void WindowPlace::store() {
  settled_.stop();
  const Qt::WindowStates states = window_.windowStates();
  // The picture fills the screen for a while only.
  if (states & (Qt::WindowMinimized | Qt::WindowFullScreen)) return;
  if (small_) {
    if (states == Qt::WindowNoState) preferences_.setTextList(smallKey, texts(window_.geometry()));
    return;
  }
  if (states == Qt::WindowNoState) normal_ = window_.geometry();
  maximized_ = states & Qt::WindowMaximized;
  storeUsual();
}

void WindowPlace::storeUsual() {
  preferences_.setTextList(key, texts(normal_) << (maximized_ ? maximizedMark : QString()));
}

}  // namespace vantor
