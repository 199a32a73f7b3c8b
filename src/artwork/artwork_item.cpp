#include "artwork/artwork_item.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace vantor {

ArtworkItem::ArtworkItem(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

ArtworkItem::~ArtworkItem() {
  task_.cancel();
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
  task_.cancel();
  task_ = {};
  // Whoever has its picture in memory shows it in this very frame.
  setImage(store_ ? store_->cached(source_) : QImage());
  continueOrStop();
}

void ArtworkItem::continueOrStop() {
  if (!isComponentComplete()) return;
  if (!active_ || !isVisible()) {
    task_.cancel();
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

QSGNode* ArtworkItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  auto* picture = static_cast<QSGImageNode*>(node);
  if (image_.isNull() || width() <= 0 || height() <= 0) {
    delete picture;
    return nullptr;
  }
  if (!picture || textureIsStale_) {
    if (!picture) {
      picture = window()->createImageNode();
      picture->setOwnsTexture(true);
      picture->setFiltering(QSGTexture::Linear);
      picture->setMipmapFiltering(QSGTexture::Linear);
    }
    QSGTexture* const texture =
        window()->createTextureFromImage(image_, QQuickWindow::TextureHasMipmaps);
    if (!texture) {
      delete picture;
      return nullptr;
    }
    picture->setTexture(texture);
    textureIsStale_ = false;
  }
  const QSizeF fitted = QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatio);
  picture->setRect((width() - fitted.width()) / 2, (height() - fitted.height()) / 2, fitted.width(),
                   fitted.height());
  return picture;
}

}  // namespace vantor
