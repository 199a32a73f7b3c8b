#pragma once

#include <QObject>
#include <QVariantList>

#include "playback/media_engine.h"

namespace vantor {

/// Position, volume and tracks of the playing media, apart from `Playback` so that a moving
/// position concerns only what shows it. Main thread only; each signal means that the value differs
/// now.
class TransportState final : public QObject {
  Q_OBJECT
  Q_PROPERTY(double seconds READ seconds NOTIFY secondsChanged)
  Q_PROPERTY(double duration READ duration NOTIFY durationChanged)
  Q_PROPERTY(bool seekable READ seekable NOTIFY seekableChanged)
  Q_PROPERTY(double volume READ volume NOTIFY volumeChanged)
  Q_PROPERTY(QVariantList audio READ audioItems NOTIFY audioChanged)
  Q_PROPERTY(QVariantList subtitles READ subtitleItems NOTIFY subtitlesChanged)

 public:
  using QObject::QObject;

  double seconds() const { return seconds_; }    // never negative
  double duration() const { return duration_; }  // seconds; 0 while unknown and for live streams
  bool seekable() const { return seekable_; }    // only ever with a known duration
  double volume() const { return volume_; }      // 0 to 100; 100 is the engine's normal level
  const QList<EngineTrack>& audio() const { return audio_; }
  const QList<EngineTrack>& subtitles() const { return subtitles_; }

  /// The tracks as maps of "id" and "name", for QML.
  QVariantList audioItems() const;
  QVariantList subtitleItems() const;

  void setSeconds(double seconds);
  void setDuration(double seconds);
  void setSeekable(bool seekable);
  void setVolume(double percent);
  void setAudio(const QList<EngineTrack>& tracks);
  void setSubtitles(const QList<EngineTrack>& tracks);

  /// Back to the initial values, for a new media; the volume stays.
  void reset();

 Q_SIGNALS:
  void secondsChanged();
  void durationChanged();
  void seekableChanged();
  void volumeChanged();
  void audioChanged();
  void subtitlesChanged();

 private:
  double seconds_ = 0;
  double duration_ = 0;
  bool seekable_ = false;
  double volume_ = 100;
  QList<EngineTrack> audio_;
  QList<EngineTrack> subtitles_;
};

}  // namespace vantor
