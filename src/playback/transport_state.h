#pragma once

#include <QObject>

#include "platform/announcements.h"
#include "playback/media_engine.h"

namespace vantor {

/// Position, volume, tracks and rate of the playing media, apart from `Playback` so that a moving
/// position concerns only what shows it. Main thread only; each signal means that the value differs
/// now.
class TransportState final : public QObject {
  Q_OBJECT

 public:
  explicit TransportState(Announcements& announcements);

  double seconds() const { return seconds_.get(); }    // never negative
  double duration() const { return duration_.get(); }  // seconds; 0 while unknown
  bool seekable() const { return seekable_.get(); }    // only ever with a known duration
  double volume() const { return volume_.get(); }      // 0 to 100; 100 is the engine's normal level
  double mutedFrom() const { return mutedFrom_.get(); }  // volume before it was muted, else 0
  const QList<EngineTrack>& audio() const { return audio_.get(); }
  const QList<EngineTrack>& subtitles() const { return subtitles_.get(); }

  // What is in force, as the engine says; -1: no track.
  int audioTrack() const { return audioTrack_.get(); }
  int subtitleTrack() const { return subtitleTrack_.get(); }
  double rate() const { return rate_.get(); }
  const AudioDevices& audioDevices() const { return audioDevices_.get(); }

  /// The id of the device that is wanted; empty: the system's choice.
  const QString& audioDevice() const { return audioDevice_.get(); }
  /// Milliseconds of the sound behind the picture; negative: before it.
  int audioDelay() const { return audioDelay_.get(); }

  void setSeconds(double seconds) { seconds_.set(seconds); }
  void setDuration(double seconds) { duration_.set(seconds); }
  void setSeekable(bool seekable) { seekable_.set(seekable); }
  void setVolume(double percent) { volume_.set(percent); }
  void setMutedFrom(double percent) { mutedFrom_.set(percent); }
  void setAudio(const QList<EngineTrack>& tracks) { audio_.set(tracks); }
  void setSubtitles(const QList<EngineTrack>& tracks) { subtitles_.set(tracks); }

  void setAudioTrack(int id) { audioTrack_.set(id); }
  void setSubtitleTrack(int id) { subtitleTrack_.set(id); }
  void setRate(double rate) { rate_.set(rate); }
  void setAudioDevices(const AudioDevices& devices) { audioDevices_.set(devices); }
  void setAudioDevice(const QString& id) { audioDevice_.set(id); }
  void setAudioDelay(int milliseconds) { audioDelay_.set(milliseconds); }

  /// Back to the initial values, for a new media; the volume and where the sound goes stay.
  void reset();

 Q_SIGNALS:
  void secondsChanged();
  void durationChanged();
  void seekableChanged();
  void volumeChanged();
  void mutedFromChanged();
  void audioChanged();
  void subtitlesChanged();
  void audioTrackChanged();
  void subtitleTrackChanged();
  void rateChanged();
  void audioDevicesChanged();
  void audioDeviceChanged();
  void audioDelayChanged();

 private:
  Announcements& announcements_;
  Announced<double> seconds_;
  Announced<double> duration_;
  Announced<bool> seekable_;
  Announced<double> volume_;
  Announced<double> mutedFrom_;
  Announced<QList<EngineTrack>> audio_;
  Announced<QList<EngineTrack>> subtitles_;
  Announced<int> audioTrack_;
  Announced<int> subtitleTrack_;
  Announced<double> rate_;
  Announced<AudioDevices> audioDevices_;
  Announced<QString> audioDevice_;
  Announced<int> audioDelay_;
};

}  // namespace vantor
