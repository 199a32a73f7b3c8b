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
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Menu:
    case Qt::Key_F10:
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_ChannelUp:
    case Qt::Key_ChannelDown:
    case Qt::Key_MediaNext:
    case Qt::Key_MediaPrevious:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
    case Qt::Key_VolumeUp:
    case Qt::Key_VolumeDown:
      return false;
    default: {
      const QQuickItem* writes = window_ ? window_->activeFocusItem() : nullptr;
      return !writes || !writes->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    }
  }
}

}  // namespace vantor
