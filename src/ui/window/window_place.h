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
/// are; there only the size comes back.
class WindowPlace final : public QObject {
  Q_OBJECT

 public:
  WindowPlace(QWindow& window, Preferences& preferences);
  ~WindowPlace() override;

 private:
  void restore();
  void store();

  QWindow& window_;
  Preferences& preferences_;
  QRect normal_;  // while the window is not maximized
  QTimer settled_;
};

}  // namespace vantor
