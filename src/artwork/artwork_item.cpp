#include "artwork/artwork_item.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGVertexColorMaterial>
#include <cmath>

namespace vantor {

namespace {

/// What the item draws: its gradient and, in front of it, the picture once there is one.
struct ArtworkNode : QSGGeometryNode {
  ArtworkNode() {
    setGeometry(&corners);
    setMaterial(&material);
  }

  void setGradient(const QSizeF& size, const QColor& topLeft, const QColor& bottomRight);

  QSGGeometry corners{QSGGeometry::defaultAttributes_ColoredPoint2D(), 4};
  QSGVertexColorMaterial material;
  QSGImageNode* picture = nullptr;
};

/// The colour of a place is that of its projection on the diagonal. It is linear in both
/// directions, so the corners' colours give all others.
void ArtworkNode::setGradient(const QSizeF& size, const QColor& topLeft,
                              const QColor& bottomRight) {
  const double across = size.width() * size.width();
  const double down = size.height() * size.height();
  const auto set = [&](QSGGeometry::ColoredPoint2D& corner, double x, double y, double part) {
    const auto mixed = [&](int from, int to) {
      return static_cast<uchar>(std::lround(from + (to - from) * part));
    };
    corner.set(static_cast<float>(x), static_cast<float>(y),
               mixed(topLeft.red(), bottomRight.red()), mixed(topLeft.green(), bottomRight.green()),
               mixed(topLeft.blue(), bottomRight.blue()), 255);
  };
  QSGGeometry::ColoredPoint2D* const corner = corners.vertexDataAsColoredPoint2D();
  set(corner[0], 0, 0, 0);
  set(corner[1], 0, size.height(), down / (across + down));
  set(corner[2], size.width(), 0, across / (across + down));
  set(corner[3], size.width(), size.height(), 1);
  markDirty(DirtyGeometry);
}

}  // namespace

ArtworkItem::ArtworkItem(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &ArtworkItem::gradientChanged, this, &ArtworkItem::update);
}

void ArtworkItem::setStore(ArtworkStore* store) {
  if (store_ == store) return;
  store_ = store;
  Q_EMIT storeChanged();
  restart();
}

void ArtworkItem::setSource(const QUrl& source) {
  if (source_ == source) return;
  source_ = source;
  Q_EMIT sourceChanged();
  restart();
}

void ArtworkItem::setActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  Q_EMIT activeChanged();
  continueOrStop();
}

void ArtworkItem::componentComplete() {
  QQuickItem::componentComplete();
  restart();
}

void ArtworkItem::itemChange(ItemChange change, const ItemChangeData& value) {
  QQuickItem::itemChange(change, value);
  if (change == ItemVisibleHasChanged) continueOrStop();
}

void ArtworkItem::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() != before.size()) update();
}

void ArtworkItem::restart() {
  task_ = {};
  // Whoever has its picture in memory shows it in this very frame.
  setImage(store_ ? store_->cached(source_) : QImage());
  continueOrStop();
}

void ArtworkItem::continueOrStop() {
  if (!isComponentComplete()) return;
  if (!active_ || !isVisible()) {
    task_ = {};
    return;
  }
  if (hasImage() || task_.running() || source_.isEmpty() || !store_) return;
  task_ = Job::start([self = QPointer(this), store = store_, source = source_](
                         std::stop_token stop) { return load(self, store, source, stop); });
}

QCoro::Task<> ArtworkItem::load(QPointer<ArtworkItem> self, QPointer<ArtworkStore> store,
                                QUrl source, std::stop_token stop) {
  if (!store || stop.stop_requested()) co_return;
  const QCoro::Task<QImage> loading = store->image(source, stop);
  const QImage image = co_await loading;
  if (self && !stop.stop_requested()) self->setImage(image);
}

void ArtworkItem::setImage(const QImage& image) {
  if (image.isNull() && image_.isNull()) return;
  const bool had = hasImage();
  image_ = image;
  textureIsStale_ = true;
  update();
  if (had != hasImage()) Q_EMIT hasImageChanged();
}

QSGNode* ArtworkItem::updatePaintNode(QSGNode* before, UpdatePaintNodeData*) {
  auto* node = static_cast<ArtworkNode*>(before);
  if (width() <= 0 || height() <= 0) {
    delete node;
    return nullptr;
  }
  if (!node) node = new ArtworkNode;
  node->setGradient(size(), topLeft_, bottomRight_);
  if (node->picture && textureIsStale_) {
    delete node->picture;
    node->picture = nullptr;
  }
  textureIsStale_ = false;
  if (image_.isNull()) return node;
  if (!node->picture) {
    QSGTexture* const texture =
        window()->createTextureFromImage(image_, QQuickWindow::TextureHasMipmaps);
    if (!texture) return node;
    node->picture = window()->createImageNode();
    node->picture->setOwnsTexture(true);
    node->picture->setFiltering(QSGTexture::Linear);
    node->picture->setMipmapFiltering(QSGTexture::Linear);
    node->picture->setTexture(texture);
    node->appendChildNode(node->picture);
  }
  const QSizeF fitted = QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatio);
  node->picture->setRect((width() - fitted.width()) / 2, (height() - fitted.height()) / 2,
                         fitted.width(), fitted.height());
  return node;
}

}  // namespace vantor
