#pragma once

#include <vlc/vlc.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>

#include "playback/libvlc_internals.h"
#include "playback/media_engine.h"
#include "playback/video_frame_queue.h"

namespace vantor {

/// Receives libVLC's pictures in memory of ours and passes them on.
///
/// The public operations belong to the engine's thread; the callbacks come on libVLC's own and call
/// nothing of libVLC. The first picture of a source waits until the shape of a pixel is known, by
/// libVLC's internals or `setPixelAspect`.
class LibVLCVideoOutput {
 public:
  /// `onNews` is called on libVLC's threads: the first picture of a source waits, or one of another
  /// format has come.
  LibVLCVideoOutput(std::shared_ptr<VideoFrameQueue> frames, LibVLCInternals internals,
                    std::function<void()> onNews);

  void attach(libvlc_media_player_t* player);
  void beginSource(SourceNumber source);
  /// Absent while the media has not told it.
  void setPixelAspect(std::optional<double> widthByHeight);
  bool isWaiting() const;
  /// The current format's size, bits and decoder; nothing while there is none.
  PictureFacts facts() const;
  /// Pictures passed on since `beginSource`.
  std::int64_t pictures() const { return passedOn_.load(); }

 private:
  class Buffers;

  static unsigned setUp(void** self, char* chroma, unsigned* width, unsigned* height,
                        unsigned* pitches, unsigned* lines);
  static void cleanUp(void* self);
  static void* lock(void* self, void** planes);
  static void display(void* self, void* picture);
  std::shared_ptr<const ToneTable> tonesFor(const PictureLight& light);
  void present(std::shared_ptr<VideoFrame> frame);

  const std::shared_ptr<VideoFrameQueue> frames_;
  const LibVLCInternals internals_;
  const std::function<void()> onNews_;
  std::atomic<std::int64_t> passedOn_ = 0;
  PictureLight light_;                      // set-up only, as is
  std::shared_ptr<const ToneTable> tones_;  // what was last made, for that

  mutable std::mutex mutex_;  // guards what follows
  SourceNumber source_ = 0;
  int received_ = 0;  // while the pixel's shape was unknown
  std::shared_ptr<Buffers> buffers_;
  std::shared_ptr<VideoFrame> writing_;
  std::shared_ptr<VideoFrame> waiting_;
  double pixelAspect_ = 0;  // 0 while unknown
  bool reshaped_ = false;   // no picture of this format has come yet
  PictureDecoder decoder_ = PictureDecoder::unknown;
};

}  // namespace vantor
