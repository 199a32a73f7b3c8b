#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

class QWindow;

namespace vantor {

class Preferences;

/// Gives a window, which is not shown yet, the place and size that it had in the last run, and
/// keeps them for the next one. Main thread only; window and preferences outlive it.
///
/// A place without a screen moves to one that is there. Wayland tells no program where its windows
/// are; there only the size comes back. The smallest size, which the window comes with, holds where
/// the screen has room for it and the desktop does not lay windows out by itself.
class WindowPlace final : public QObject {
  Q_OBJECT

 public:
  WindowPlace(QWindow& window, Preferences& preferences);
  ~WindowPlace() override;

  /// For a while the window is a small one with a place of its own, above the others where the
  /// desktop allows it; then again what it was.
  void setSmall(bool small);
  /// Makes the window large enough for its content at so many times the usual size, as far as the
  /// screen has room.
  void makeRoom(double scale);

 private:
  /// Sets what the window's smallest size is on its screen.
  void fitScreen();
  void restore();
  void store();
  void storeUsual();

  QWindow& window_;
  Preferences& preferences_;
  const QSize usuallySmallest_;
  QRect normal_;            // while the window is not maximized
  bool maximized_ = false;  // while it was not small
  bool small_ = false;
  QTimer settled_;
};

}  // namespace vantor
