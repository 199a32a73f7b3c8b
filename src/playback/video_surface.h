#pragma once

#include <QPointer>
#include <QQuickItem>
#include <atomic>

#include "playback/picture_shape.h"
#include "playback/video_frame_queue.h"

namespace vantor {

/// Shows the queue's newest picture on black.
class VideoSurface : public QQuickItem {
  Q_OBJECT
  Q_PROPERTY(vantor::VideoFrameQueue* frames READ frames WRITE setFrames NOTIFY framesChanged)
  Q_PROPERTY(int shape READ shape WRITE setShape NOTIFY shapeChanged)

 public:
  explicit VideoSurface(QQuickItem* parent = nullptr);

  VideoFrameQueue* frames() const { return frames_; }
  void setFrames(VideoFrameQueue* frames);
  int shape() const { return static_cast<int>(shape_); }  // a PictureShape
  void setShape(int shape);

 Q_SIGNALS:
  void framesChanged();
  void shapeChanged();
  /// A frame of the window with the first picture of a source has been handed to the display.
  void firstPictureShown();

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  void followFrames(QQuickWindow* window);
  void tellAbilities();   // render thread
  void onFrameSwapped();  // render thread

  QPointer<VideoFrameQueue> frames_;
  PictureShape shape_ = PictureShape::fit;
  QMetaObject::Connection swapped_;
  SourceNumber shownSource_ = 0;            // render thread
  std::atomic<bool> firstPicture_ = false;  // drawn, not yet on the display
};

}  // namespace vantor
