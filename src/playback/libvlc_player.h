#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "playback/libvlc_handles.h"
#include "playback/libvlc_internals.h"
#include "playback/libvlc_options.h"
#include "playback/libvlc_recorder.h"
#include "playback/libvlc_video_output.h"
#include "playback/media_engine.h"

namespace vantor {

/// libVLC's player and its current media. Used on one thread; only `onNews` is called on others,
/// when a look at `sample` is worth while.
class LibVLCPlayer {
 public:
  LibVLCPlayer(const QList<QByteArray>& libraryOptions, LibVLCInternals internals,
               std::shared_ptr<VideoFrameQueue> frames, std::function<void()> onNews);
  ~LibVLCPlayer();
  LibVLCPlayer(const LibVLCPlayer&) = delete;
  LibVLCPlayer& operator=(const LibVLCPlayer&) = delete;

  void load(const MediaSource& source, SourceNumber number);
  void unload(SourceNumber number);
  void play();
  void pause();
  void setTime(std::int64_t milliseconds);
  void setVolume(int percent);
  void setAudioTrack(std::int32_t id);
  void setSubtitleTrack(std::int32_t id);
  void setRate(float rate);
  void setAudioDevice(const QString& id);
  void setAudioDelay(int milliseconds);
  /// As they were at the last sample of a media.
  const AudioDevices& audioDevices() const { return devices_; }
  /// A recording was started whose file is not complete.
  bool isRecording() const { return recorder_ && recorder_->isRecording(); }
  void startRecording(const QString& folder);
  void stopRecording();
  /// The file of a recording that has ended, empty when there is none; once for every start.
  std::optional<QString> takeRecording();

  /// The number given with the last load or unload.
  SourceNumber source() const { return source_; }
  /// The present status; also does what had to wait for the media to get this far.
  EngineStatus sample();
  /// A picture cannot be shown until another look, very soon, has found out how.
  bool isHurried() const { return output_ && output_->isWaiting(); }

 private:
  static void onEvent(const libvlc_event_t* event, void* self);
  void stop();
  void replaceMedia(LibVLCHandle<libvlc_media_t> media, SourceNumber number);
  void applyVolume();
  void applyDelay();
  void lookAtDevices();
  /// For what is loaded next; a device may be plugged in while the program runs.
  void followAudio();
  struct SourceVideo {
    double pixelAspect = 1;  // width by height
    double rate = 0;         // pictures a second, 0 while unknown
    QString codec;
  };
  /// Of those that the media has told of, the last with pictures of this size, or the first.
  static std::optional<SourceVideo> sourceVideo(const LibVLCTracks& told, QSize pictures);

  const std::function<void()> onNews_;
  LibVLCHandle<libvlc_instance_t> instance_;
  std::unique_ptr<LibVLCVideoOutput> output_;  // absent when no picture goes out
  LibVLCHandle<libvlc_media_player_t> player_;
  std::unique_ptr<LibVLCRecorder> recorder_;  // absent when nothing can be recorded
  LibVLCHandle<libvlc_media_t> media_;
  SourceNumber source_ = 0;
  EngineStatus last_;
  bool givenUp_ = false;              // stopped for a recording's sake
  bool refused_ = false;              // the library took neither the media nor the order to play it
  std::atomic<bool> failed_ = false;  // it announced an error, which its state forgets
  std::optional<AudioOutput> audio_;  // absent before the first look
  int volume_ = 100;
  bool volumeApplied_ = false;
  AudioDevices devices_;
  QString device_;                 // wanted; empty: the system's choice
  bool deviceApplied_ = false;     // since it is there, and since the media's sound has an output
  std::int64_t delay_ = 0;         // microseconds, wanted
  std::int64_t delayApplied_ = 0;  // microseconds, of the present input
};

}  // namespace vantor
