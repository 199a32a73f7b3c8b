#pragma once

#include <QImage>
#include <QQuickItem>
#include <QVariant>

namespace vantor {

/// Draws an image, scaled to the item with its proportions kept.
class StillImage : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QVariant image READ image WRITE setImage NOTIFY imageChanged)

 public:
  explicit StillImage(QQuickItem* parent = nullptr);

  QVariant image() const { return image_; }  // a QImage, which QML has no type for
  void setImage(const QVariant& image);

 Q_SIGNALS:
  void imageChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  QImage image_;
  bool textureStale_ = false;
};

}  // namespace vantor
