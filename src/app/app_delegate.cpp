#include "app/app_delegate.h"

#include "platform/pending.h"
#include "playback/playback.h"

namespace vantor {

void AppDelegate::setPlayback(Playback* playback) {
  playback_ = playback;
}

AppDelegate::Reply AppDelegate::applicationShouldTerminate() {
  if (shutdownTask_.running()) return Reply::later;
  if (!playback_) {
    Q_EMIT terminate();
    return Reply::now;
  }
  shutdownTask_ = Job::start([self = QPointer(this), playback = playback_](std::stop_token stop) {
    return shutDown(self, playback, stop);
  });
  return Reply::later;
}

QCoro::Task<> AppDelegate::shutDown(QPointer<AppDelegate> self, QPointer<Playback> playback,
                                    std::stop_token) {
  if (playback) {
    const QCoro::Task<> ended = playback->shutdown();
    co_await ended;
    // What was given up for it comes to its own end now, such as the removal of a still: when the
    // event loop has been told to end, nothing that waits goes on.
    const Pending<Done> turn;
    turn.resolve({});
    co_await turn;
  }
  if (self) Q_EMIT self->terminate();
}

}  // namespace vantor
