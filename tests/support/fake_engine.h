#pragma once

#include <QImage>
#include <QStringList>

#include "playback/media_engine.h"

namespace vantor::test {

/// What an engine tells of a film of that length at that place, in milliseconds.
inline EngineStatus filmAt(std::int64_t time, std::int64_t length, std::int64_t pictures = 5) {
  return {.state = EngineState::playing,
          .hasMedia = true,
          .time = time,
          .length = length,
          .seekable = true,
          .decodedVideo = pictures};
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

  void load(const MediaSource& loaded) override {
    calls.append(
        QStringLiteral("load %1 agent=%2").arg(loaded.address.toString(), loaded.userAgent));
    source = loaded;
    now = {.hasMedia = true};
  }
  void unload() override {
    calls.append(QStringLiteral("unload"));
    now = {.releasing = releasesLate && (now.hasMedia || now.releasing)};
  }
  void play() override {
    calls.append(QStringLiteral("play"));
    if (now.hasMedia)
      now.state = now.state == EngineState::paused ? EngineState::playing : EngineState::opening;
  }
  void pause() override {
    calls.append(QStringLiteral("pause"));
    if (now.hasMedia) now.state = EngineState::paused;
  }
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
  void saveSnapshot(const QString& file, int width) override {
    note("saveSnapshot", width);
    snapshot = file;
    if (!picture.isNull()) picture.scaledToWidth(width).save(file, "PNG");
  }

  /// Succeeds when `now` is recordable.
  bool startRecording(const QString& folder) override {
    note("startRecording", folder);
    return now.recordable;
  }
  bool stopRecording() override {
    calls.append(QStringLiteral("stopRecording"));
    return recordingStops;
  }

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
