#include "ui/window/keyboard.h"

#include <QQuickWindow>

namespace vantor {
namespace {

bool liesOverTheWindow(const QQuickItem* item) {
  for (; item; item = item->parentItem())
    if (item->inherits("QQuickOverlay")) return true;
  return false;
}

}  // namespace

void Keyboard::give(QQuickItem* item) {
  const QQuickWindow* window = item ? item->window() : nullptr;
  if (!window) return;
  if (!liesOverTheWindow(window->activeFocusItem())) {
    item->forceActiveFocus(Qt::OtherFocusReason);
    return;
  }
  // In each scope around it, up to the one that the sheet shares with them.
  const QQuickItem* shared = window->contentItem();
  for (QQuickItem* at = item; at && at->parentItem() != shared; at = at->parentItem())
    if (at == item || at->isFocusScope()) at->setFocus(true, Qt::OtherFocusReason);
}

void Keyboard::giveLater(QQuickItem* item) {
  if (!item) return;
  QMetaObject::invokeMethod(
      item, [item] { give(item); }, Qt::QueuedConnection);
}

}  // namespace vantor
