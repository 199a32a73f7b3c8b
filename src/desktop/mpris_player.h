#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusError>
#include <QDBusObjectPath>
#include <QVariantMap>
#include <functional>
#include <optional>

#include "desktop/picture_file.h"
#include "platform/clock.h"
#include "playback/play_request.h"

namespace vantor {

class AppModel;
class NowPlaying;
class Playback;
class StreamKeeper;
class TransportState;

/// What plays, and the commands for it, on the session bus (MPRIS 2.2). No value has an address of
/// the provider in it. Main thread only.
class MprisPlayer final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
  Q_PROPERTY(double Rate READ rate WRITE setRate)
  Q_PROPERTY(QVariantMap Metadata READ metadata)
  Q_PROPERTY(double Volume READ volume WRITE setVolume)
  Q_PROPERTY(qlonglong Position READ position)
  Q_PROPERTY(double MinimumRate READ minimumRate)
  Q_PROPERTY(double MaximumRate READ maximumRate)
  Q_PROPERTY(bool CanGoNext READ canGoNext)
  Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
  Q_PROPERTY(bool CanPlay READ hasTrack)
  Q_PROPERTY(bool CanPause READ hasTrack)
  Q_PROPERTY(bool CanSeek READ canSeek)
  Q_PROPERTY(bool CanControl READ canControl)

 public:
  struct Parts {
    AppModel& model;
    NowPlaying& nowPlaying;
    const StreamKeeper& keeper;
    const PictureFile& picture;
    const Clock& clock;
    /// Answers the call that is being made with an error; only the object itself can.
    std::function<void(QDBusError::ErrorType, const QString&)> refuse;
  };

  /// What is passed outlives the object.
  MprisPlayer(QObject& object, const Parts& parts);

 public Q_SLOTS:
  // As D-Bus writes methods; times are microseconds.
  void Next();
  void Previous();
  void Pause();
  void PlayPause();
  void Stop();
  void Play();
  void Seek(qlonglong Offset);
  void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
  void OpenUri(const QString& Uri);

 Q_SIGNALS:
  void Seeked(qlonglong Position);

 private:
  enum class Status : unsigned char { playing, paused, stopped };
  /// A place in the track that others have been told of, and since when they count on from it.
  struct Place {
    qlonglong position = 0;  // microseconds
    SteadyTime since;
    double rate = 0;  // 0: it stands still
  };

  Status status() const;
  QString playbackStatus() const;
  double rate() const;
  void setRate(double rate);
  QVariantMap metadata() const;
  double volume() const;
  void setVolume(double volume);
  qlonglong position() const;
  static double minimumRate();
  static double maximumRate();
  bool canGoNext() const;
  bool canGoPrevious() const;
  bool hasTrack() const;
  bool canSeek() const;
  static bool canControl() { return true; }

  qlonglong length() const;  // microseconds, 0 while unknown
  QDBusObjectPath trackID() const;
  void onSourceChanged();
  Place here() const;
  void followPosition();
  void seekTo(double microseconds);

  AppModel& model_;
  Playback& playback_;
  const TransportState& transport_;
  NowPlaying& nowPlaying_;
  const StreamKeeper& keeper_;
  const PictureFile& picture_;
  const Clock& clock_;
  const std::function<void(QDBusError::ErrorType, const QString&)> refuse_;
  std::optional<PlayRequest> playing_;
  int track_ = 0;  // sources so far
  Place told_;
  std::optional<double> sought_;  // microseconds, until the engine has a position after it
};

}  // namespace vantor
