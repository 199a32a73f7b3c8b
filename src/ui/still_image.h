#pragma once

#include <QImage>
#include <QQuickItem>

namespace vantor {

/// Draws an image, scaled to the item with its proportions kept.
class StillImage : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)

 public:
  explicit StillImage(QQuickItem* parent = nullptr);

  const QImage& image() const { return image_; }
  void setImage(const QImage& image);

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
