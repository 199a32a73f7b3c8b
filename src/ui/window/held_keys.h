#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickWindow>

namespace vantor {

/// Takes from a window's keys what a key that is held down would do again and again: only keys that
/// move something, change the sound or write repeat. Main thread only.
class HeldKeys : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)

 public:
  QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window);

 Q_SIGNALS:
  void windowChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointer<QQuickWindow> window_;
};

}  // namespace vantor
