#pragma once

#include <QImage>
#include <QStringList>

#include "playback/media_engine.h"

namespace vantor::test {

/// What an engine tells of a film of that length at that place, in milliseconds.
inline EngineStatus filmAt(std::int64_t time, std::int64_t length) {
  return {.state = EngineState::playing,
          .hasMedia = true,
          .time = time,
          .length = length,
          .seekable = true,
          .decodedVideo = 5};
}

/// An engine whose media do what a test says.
class FakeEngine final : public MediaEngine {
 public:
  EngineStatus now;            // what `status` answers; a load or unload starts it afresh
  MediaSource source;          // of the last load
  QStringList calls;           // every command with its values, in order
  QImage picture;              // written by `saveSnapshot`; nothing is written while it is null
  bool recordingStops = true;  // what `stopRecording` answers
  QString snapshot;            // path of the last snapshot asked for
  AudioDevices devices;        // what `audioDevices` answers
  bool releasesLate = false;   // what is unloaded has not let go of its connection by itself

  void load(const MediaSource& source) override;
  void unload() override;
  void play() override;
  void pause() override;
  void setTime(std::int64_t milliseconds) override { note("setTime", milliseconds); }
  void setVolume(int percent) override { note("setVolume", percent); }
  void setAudioTrack(std::int32_t id) override {
    note("setAudioTrack", id);
    now.audioTrack = id;
  }
  void setSubtitleTrack(std::int32_t id) override {
    note("setSubtitleTrack", id);
    now.subtitleTrack = id;
  }
  void setRate(float rate) override { note("setRate", rate); }
  EngineStatus status() const override { return now; }
  void setAudioDevice(const QString& id) override { note("setAudioDevice", id); }
  void setAudioDelay(int milliseconds) override { note("setAudioDelay", milliseconds); }
  AudioDevices audioDevices() const override { return devices; }
  void saveSnapshot(const QString& file, int width) override;

  /// Succeeds when `now` is recordable.
  bool startRecording(const QString& folder) override;
  bool stopRecording() override;

  /// Announces that `now` was changed in a way that should not wait.
  void announce() const {
    if (onChange) onChange();
  }
  /// The calls since the last take.
  QStringList takeCalls() { return std::exchange(calls, {}); }

 private:
  template <class Value>
  void note(const char* command, Value value) {
    calls.append(QStringLiteral("%1 %2").arg(QLatin1String(command)).arg(value));
  }
};

}  // namespace vantor::test
