#pragma once

#include <QObject>
#include <atomic>
#include <mutex>

#include "playback/video_frame.h"

namespace vantor {

/// Hands pictures from the engine to the surface, which shows the newest and misses the others.
/// Safe from any thread.
class VideoFrameQueue : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Drops the picture there is, unless it is held; from now on only those of `source` are taken.
  void expect(SourceNumber source);
  void present(SharedFrame frame);
  /// Whether the last picture stays for the surface until the expected source has one.
  void hold(bool held);

  /// Whether the surface can show samples of more than 8 bits; not before it has said so.
  void setShowsDeepSamples(bool shows) { showsDeepSamples_ = shows; }
  bool showsDeepSamples() const { return showsDeepSamples_; }

  /// The newest picture of the expected source, or null.
  SharedFrame latest() const;
  /// The one to show: the same, or the one that is held. A later change is announced again.
  SharedFrame take();

 Q_SIGNALS:
  /// `latest` changed since the last `take`; emitted once until then, on the thread that changed
  /// it.
  void changed();

 private:
  void dropOthers(std::unique_lock<std::mutex> lock);
  void announce(std::unique_lock<std::mutex> lock);

  std::atomic<bool> showsDeepSamples_ = false;

  mutable std::mutex mutex_;  // guards what follows
  SourceNumber source_ = 0;
  SharedFrame latest_;
  bool held_ = false;
  bool announced_ = false;
};

}  // namespace vantor
