#pragma once

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <stop_token>

#include "platform/job.h"

namespace vantor {

class Playback;

/// Lets the program end only when playback, and a recording that is being saved, have come to their
/// end. Main thread only.
class AppDelegate final : public QObject {
  Q_OBJECT

 public:
  /// The window has appeared; `playback` is shut down before the program ends.
  void setPlayback(Playback* playback);

  enum class Reply { now, later };
  /// Every way of quitting comes here, more than once when the user insists. With `later` the event
  /// loop goes on until the shut-down has ended and `terminate` is emitted.
  Reply applicationShouldTerminate();

 Q_SIGNALS:
  void terminate();

 private:
  static QCoro::Task<> shutDown(QPointer<AppDelegate> self, QPointer<Playback> playback,
                                std::stop_token stop);

  QPointer<Playback> playback_;
  Job shutdownTask_;
};

}  // namespace vantor
