#include "ui/window/held_keys.h"

#include <QKeyEvent>
#include <QQuickItem>

namespace vantor {

void HeldKeys::setWindow(QQuickWindow* window) {
  if (window_ == window) return;
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window_) window_->installEventFilter(this);
  Q_EMIT windowChanged();
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
    return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!key->isAutoRepeat()) return false;
  switch (key->key()) {
    case Qt::Key_Space: {
      const QQuickItem* writes = window_ ? window_->activeFocusItem() : nullptr;
      return !writes || !writes->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Menu:
    case Qt::Key_F10:
      return true;
    default:
      return false;
  }
}

}  // namespace vantor
