#pragma once

#include <QDBusConnection>
#include <QObject>
#include <optional>

namespace vantor {

class Playback;

/// Says in a desktop notification what becomes of a recording, which no screen shows: one that is
/// replaced by the next, and from which a running recording can be stopped. Main thread only.
class RecordingNotifier final : public QObject {
  Q_OBJECT

 public:
  /// `playback` outlives the object.
  explicit RecordingNotifier(Playback& playback);

  /// Notifications go over `bus` from now on, in the name of the desktop entry `application`.
  void useBus(const QDBusConnection& bus, const QString& application);

 private Q_SLOTS:
  void onAction(uint id, const QString& action);

 private:
  void notify();

  Playback& playback_;
  std::optional<QDBusConnection> bus_;
  QString application_;
  uint shown_ = 0;       // the desktop's number for our notification, 0 before the first
  bool asking_ = false;  // the number has not come yet
  bool again_ = false;   // there was more to say meanwhile
};

}  // namespace vantor
