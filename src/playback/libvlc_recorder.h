#pragma once

#include <vlc/vlc.h>

#include <QString>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "playback/wrapping_count.h"

namespace vantor {

/// The recorder of libVLC 3, which its public interface leaves out: variables of the player's input
/// start and stop it, a variable of the library names the file. Used on the engine's thread; only
/// `onNews` is called on libVLC's.
class LibVLCRecorder {
 public:
  LibVLCRecorder(libvlc_media_player_t* player, std::function<void()> onNews);
  ~LibVLCRecorder();
  LibVLCRecorder(const LibVLCRecorder&) = delete;
  LibVLCRecorder& operator=(const LibVLCRecorder&) = delete;

  bool canRecord() const;
  /// Until `takeFinished` answers.
  bool isRecording() const { return stage_ != Stage::idle; }
  /// Does nothing while a recording is not finished. One whose file is worth nothing without its
  /// end is stopped when the disk is about to have no room for that.
  void start(const QString& folder);
  void stop();
  /// The player was stopped, which ends the input and closes every file of its own.
  void inputEnded();
  /// Was stopped a long time ago and still has no file, since the input waits for its source. Only
  /// stopping the player helps.
  bool isStuck() const;
  /// The path of a recording that has ended, by `stop`, with its source or because it never began,
  /// once its file is complete; empty when it made none. Every start is answered once.
  std::optional<QString> takeFinished();

 private:
  struct Signals;
  class Input;
  enum class Stage { idle, running, stopping };

  bool isComplete() const;
  bool diskRunsFull();
  /// As the library counts, in 32 bits; absent while it does not.
  std::optional<std::int32_t> bytesRead() const;
  QString existing(const QString& reported) const;

  libvlc_media_player_t* const player_;
  const std::unique_ptr<Signals> signals_;
  std::unique_ptr<Input> input_;  // of the recording that is not finished
  Stage stage_ = Stage::idle;
  QString folder_;
  QString name_;        // part of the file's name
  WrappingCount read_;  // bytes of the media since the recording started
  std::chrono::steady_clock::time_point started_;
  bool inputEnded_ = false;
  std::chrono::steady_clock::time_point stopAsked_;
};

}  // namespace vantor
