#pragma once

#include <QPointer>
#include <QQuickItem>
#include <atomic>

#include "playback/video_frame_queue.h"

namespace vantor {

/// Shows the queue's newest picture, as large as fits, on black.
class VideoSurface : public QQuickItem {
  Q_OBJECT
  Q_PROPERTY(vantor::VideoFrameQueue* frames READ frames WRITE setFrames NOTIFY framesChanged)

 public:
  explicit VideoSurface(QQuickItem* parent = nullptr);

  VideoFrameQueue* frames() const { return frames_; }
  void setFrames(VideoFrameQueue* frames);

 Q_SIGNALS:
  void framesChanged();
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
  QMetaObject::Connection swapped_;
  SourceNumber shownSource_ = 0;            // render thread
  std::atomic<bool> firstPicture_ = false;  // drawn, not yet on the display
};

}  // namespace vantor
