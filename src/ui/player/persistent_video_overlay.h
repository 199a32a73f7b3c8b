#pragma once

#include <QPointer>
#include <QQuickItem>

namespace vantor {

/// Lies over the area that the player panel marks, wherever that goes, so that what it holds stays
/// in one place of the scene while screens come and go. Without an area it is empty. Its parent
/// covers the window.
class PersistentVideoOverlay : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* area READ area WRITE setArea NOTIFY areaChanged)
  Q_PROPERTY(bool filling READ filling WRITE setFilling NOTIFY areaChanged)
  Q_PROPERTY(bool placed READ placed NOTIFY areaChanged)

 public:
  explicit PersistentVideoOverlay(QQuickItem* parent = nullptr);

  QQuickItem* area() const { return area_; }
  void setArea(QQuickItem* area);
  /// Covers all of its parent for a while, whatever the area is.
  bool filling() const { return filling_; }
  void setFilling(bool filling);
  /// Whether it has a place.
  bool placed() const { return filling_ || area_; }

 Q_SIGNALS:
  void areaChanged();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void follow();

  QPointer<QQuickItem> area_;
  bool filling_ = false;
  QMetaObject::Connection frames_;
  QMetaObject::Connection end_;
};

}  // namespace vantor
