#pragma once

#include <memory>

#include "playback/libvlc_internals.h"
#include "playback/media_engine.h"
#include "playback/video_frame_queue.h"

namespace vantor {

/// libVLC as the media engine, on a thread of its own that carries out the commands in their order.
class LibVLCEngine final : public MediaEngine {
 public:
  /// Pictures go to `frames`.
  LibVLCEngine(std::shared_ptr<VideoFrameQueue> frames, Output output,
               LibVLCInternals internals = libVLCInternals());
  /// Stops what plays, and waits for that at most a few seconds.
  ~LibVLCEngine() override;

  /// Makes libVLC's instance before it is needed. Without this the first command does.
  void warmUp();

  void load(const MediaSource& source) override;
  void unload() override;
  void play() override;
  void pause() override;
  void setTime(std::int64_t milliseconds) override;
  void setVolume(int percent) override;
  void setAudioTrack(std::int32_t id) override;
  void setSubtitleTrack(std::int32_t id) override;
  void setRate(float rate) override;
  EngineStatus status() const override;
  void setAudioDevice(const QString& id) override;
  void setAudioDelay(int milliseconds) override;
  AudioDevices audioDevices() const override;
  void saveSnapshot(const QString& file, int width) override;
  bool startRecording(const QString& folder) override;
  bool stopRecording() override;

 private:
  class Core;

  std::shared_ptr<VideoFrameQueue> frames_;
  std::shared_ptr<Core> core_;
};

}  // namespace vantor
