#include "playback/video_surface.h"

#include <QQuickWindow>
#include <QSGGeometryNode>
#include <QSGRectangleNode>

#include "playback/video_material.h"

namespace vantor {

namespace {

class SurfaceNode final : public QSGNode {
 public:
  explicit SurfaceNode(QQuickWindow* window) : background_(window->createRectangleNode()) {
    background_->setColor(Qt::black);
    appendChildNode(background_);
    picture_.setFlag(QSGNode::OwnedByParent, false);
    picture_.setGeometry(&corners_);
    picture_.setMaterial(&material_);
  }
  ~SurfaceNode() override { hide(); }

  void show(const SharedFrame& frame, const QRectF& area, PictureShape shape) {
    background_->setRect(area);
    if (!frame || area.isEmpty()) {
      hide();
      return;
    }
    const PicturePlace place = placeOf(area, frame->aspect(), shape);
    QSGGeometry::updateTexturedRectGeometry(&corners_, place.target, place.part);
    if (frame != frame_) material_.show(frame);
    frame_ = frame;
    picture_.markDirty(QSGNode::DirtyGeometry | QSGNode::DirtyMaterial);
    if (!picture_.parent()) appendChildNode(&picture_);
  }

 private:
  void hide() {
    if (picture_.parent()) removeChildNode(&picture_);
    if (frame_) material_.drop();
    frame_.reset();
  }

  QSGRectangleNode* background_;
  QSGGeometry corners_{QSGGeometry::defaultAttributes_TexturedPoint2D(), 4};
  VideoMaterial material_;
  QSGGeometryNode picture_;
  SharedFrame frame_;
};

}  // namespace

VideoSurface::VideoSurface(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  // A parent's window was announced before this class could hear of it.
  followFrames(window());
}

void VideoSurface::setFrames(VideoFrameQueue* frames) {
  if (frames_ == frames) return;
  if (frames_) disconnect(frames_, nullptr, this, nullptr);
  frames_ = frames;
  if (frames) connect(frames, &VideoFrameQueue::changed, this, &QQuickItem::update);
  update();
  Q_EMIT framesChanged();
}

void VideoSurface::setShape(int shape) {
  if (this->shape() == shape) return;
  shape_ = static_cast<PictureShape>(shape);
  update();
  Q_EMIT shapeChanged();
}

QSGNode* VideoSurface::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<SurfaceNode*>(old);
  if (!node) node = new SurfaceNode(window());
  if (!old) tellAbilities();
  const SharedFrame frame = frames_ ? frames_->take() : nullptr;
  node->show(frame, boundingRect(), shape_);
  if (frame && frame->source != shownSource_) {
    shownSource_ = frame->source;
    firstPicture_ = true;
  }
  return node;
}

void VideoSurface::tellAbilities() {
  const QSGRendererInterface* renderer = window()->rendererInterface();
  auto* rhi =
      static_cast<QRhi*>(renderer->getResource(window(), QSGRendererInterface::RhiResource));
  if (frames_) frames_->setShowsDeepSamples(rhi && showsDeepSamples(rhi));
}

void VideoSurface::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemSceneChange) followFrames(data.window);
  QQuickItem::itemChange(change, data);
}

void VideoSurface::followFrames(QQuickWindow* window) {
  disconnect(swapped_);
  if (window)
    swapped_ = connect(window, &QQuickWindow::frameSwapped, this, &VideoSurface::onFrameSwapped,
                       Qt::DirectConnection);
}

void VideoSurface::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  update();
}

void VideoSurface::onFrameSwapped() {
  if (firstPicture_.exchange(false))
    QMetaObject::invokeMethod(this, &VideoSurface::firstPictureShown, Qt::QueuedConnection);
}

}  // namespace vantor
