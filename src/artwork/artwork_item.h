#pragma once

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QUrl>

#include "artwork/artwork_store.h"
#include "platform/job.h"

namespace vantor {

/// Draws the picture at an address, as large as fits and in the middle, over a gradient that runs
/// from the top left corner to the bottom right one. The picture is asked for as long as the item
/// is visible and active, anew for each address.
class ArtworkItem : public QQuickItem {
  Q_OBJECT
  Q_PROPERTY(vantor::ArtworkStore* store READ store WRITE setStore NOTIFY storeChanged)
  Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged)
  Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
  Q_PROPERTY(bool hasImage READ hasImage NOTIFY hasImageChanged)
  Q_PROPERTY(QColor topLeft MEMBER topLeft_ NOTIFY gradientChanged)
  Q_PROPERTY(QColor bottomRight MEMBER bottomRight_ NOTIFY gradientChanged)

 public:
  explicit ArtworkItem(QQuickItem* parent = nullptr);

  ArtworkStore* store() const { return store_; }
  void setStore(ArtworkStore* store);
  const QUrl& source() const { return source_; }
  void setSource(const QUrl& source);
  /// Off while the item waits in a view's pool.
  bool active() const { return active_; }
  void setActive(bool active);
  bool hasImage() const { return !image_.isNull(); }

 Q_SIGNALS:
  void storeChanged();
  void sourceChanged();
  void activeChanged();
  void hasImageChanged();
  void gradientChanged();

 protected:
  void componentComplete() override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void restart();
  void continueOrStop();
  void setImage(const QImage& image);
  static QCoro::Task<> load(QPointer<ArtworkItem> self, QPointer<ArtworkStore> store, QUrl source,
                            std::stop_token stop);

  QPointer<ArtworkStore> store_;
  QUrl source_;
  bool active_ = true;
  QImage image_;
  QColor topLeft_ = Qt::black;
  QColor bottomRight_ = Qt::black;
  bool textureIsStale_ = false;
  Job task_;
};

}  // namespace vantor
