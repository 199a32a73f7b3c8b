#include "ui/player/persistent_video_overlay.h"

#include <QQuickWindow>

namespace vantor {

PersistentVideoOverlay::PersistentVideoOverlay(QQuickItem* parent) : QQuickItem(parent) {}

void PersistentVideoOverlay::setArea(QQuickItem* area) {
  if (area_ == area) return;
  disconnect(end_);
  area_ = area;
  if (area)
    end_ = connect(area, &QObject::destroyed, this, [this] {
      area_ = nullptr;
      follow();
      Q_EMIT areaChanged();
    });
  follow();
  Q_EMIT areaChanged();
}

void PersistentVideoOverlay::setFilling(bool filling) {
  if (filling_ == filling) return;
  filling_ = filling;
  follow();
  Q_EMIT areaChanged();
}

void PersistentVideoOverlay::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemSceneChange) {
    disconnect(frames_);
    // An item hears nothing of a move of those it lies in, but every move makes a frame, and this
    // is the moment before it is drawn.
    if (data.window)
      frames_ = connect(data.window, &QQuickWindow::afterAnimating, this,
                        &PersistentVideoOverlay::follow);
  }
  QQuickItem::itemChange(change, data);
}

void PersistentVideoOverlay::follow() {
  QRectF target;
  if (filling_ && parentItem())
    target = QRectF(QPointF(0, 0), parentItem()->size());
  else if (area_ && parentItem())
    target = area_->mapRectToItem(parentItem(), QRectF(QPointF(0, 0), area_->size()));
  setPosition(target.topLeft());
  setSize(target.size());
}

}  // namespace vantor
