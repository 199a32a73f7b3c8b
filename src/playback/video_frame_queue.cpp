#include "playback/video_frame_queue.h"

#include <utility>

namespace vantor {

void VideoFrameQueue::expect(SourceNumber source) {
  std::unique_lock lock(mutex_);
  source_ = source;
  if (!held_) dropOthers(std::move(lock));
}

void VideoFrameQueue::hold(bool held) {
  std::unique_lock lock(mutex_);
  held_ = held;
  if (!held_) dropOthers(std::move(lock));
}

void VideoFrameQueue::dropOthers(std::unique_lock<std::mutex> lock) {
  if (!latest_ || latest_->source == source_) return;
  const SharedFrame dropped = std::exchange(latest_, nullptr);
  announce(std::move(lock));
}

void VideoFrameQueue::present(SharedFrame frame) {
  std::unique_lock lock(mutex_);
  if (frame->source != source_) return;
  latest_.swap(frame);
  announce(std::move(lock));
}

SharedFrame VideoFrameQueue::latest() const {
  const std::lock_guard lock(mutex_);
  return latest_ && latest_->source == source_ ? latest_ : nullptr;
}

SharedFrame VideoFrameQueue::take() {
  const std::lock_guard lock(mutex_);
  announced_ = false;
  return latest_;
}

void VideoFrameQueue::announce(std::unique_lock<std::mutex> lock) {
  const bool first = !std::exchange(announced_, true);
  lock.unlock();
  if (first) Q_EMIT changed();
}

}  // namespace vantor
