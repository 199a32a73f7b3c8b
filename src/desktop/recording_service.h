#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <optional>

#include "desktop/recording_notifier.h"
#include "platform/job.h"

namespace vantor {

class Playback;
class Worker;

/// Recording as an object of the session bus, for shortcuts and scripts, and as notifications of
/// the desktop. It tells states, sentences and names of files, never what is played. Main thread
/// only.
class RecordingService final : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "tv.vantor.player.Recording")
  Q_PROPERTY(QString State READ state)    // "idle", "recording" or "saving"
  Q_PROPERTY(QString Notice READ notice)  // the latest sentence about recording, empty before

 public:
  /// `playback` outlives the object.
  explicit RecordingService(Playback& playback);

  /// Offers the object, under whatever names the program has on the session bus, from some time
  /// later on; without a bus nothing happens. `worker` waits for the bus, `application` names the
  /// desktop entry.
  void offer(Worker& worker, const QString& application);

 public Q_SLOTS:
  // As D-Bus writes methods. What was not done is answered with an error that says why.
  Q_SCRIPTABLE void Start();
  Q_SCRIPTABLE void Stop();
  /// Paths of the recordings, the newest first.
  Q_SCRIPTABLE QStringList ListRecordings();

 private:
  QString state() const;
  QString notice() const;
  void appear(const QDBusConnection& bus, const QString& application);
  void announce(const QString& property, const QString& value);
  void refuse(const QString& reason);

  Playback& playback_;
  RecordingNotifier notifier_;
  std::optional<QDBusConnection> bus_;
  Job offering_;
};

}  // namespace vantor
