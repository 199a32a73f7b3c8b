#include "ui/player/still_image.h"

#include <QQuickWindow>
#include <QSGSimpleTextureNode>

namespace vantor {

StillImage::StillImage(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

void StillImage::setImage(const QVariant& value) {
  const QImage image = value.value<QImage>();
  if (image_.cacheKey() == image.cacheKey()) return;
  image_ = image;
  textureStale_ = true;
  update();
  Q_EMIT imageChanged();
}

void StillImage::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  update();
}

QSGNode* StillImage::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<QSGSimpleTextureNode*>(old);
  if (image_.isNull() || size().isEmpty()) {
    delete node;
    textureStale_ = true;
    return nullptr;
  }
  if (!node) {
    node = new QSGSimpleTextureNode;
    node->setOwnsTexture(true);
    node->setFiltering(QSGTexture::Linear);
    textureStale_ = true;
  }
  if (std::exchange(textureStale_, false))
    node->setTexture(window()->createTextureFromImage(image_));
  const QSizeF shown = QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatio);
  node->setRect(
      QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown));
  return node;
}

}  // namespace vantor
