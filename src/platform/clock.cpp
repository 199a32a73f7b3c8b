#include "platform/clock.h"

#include <QTimer>

#include "platform/pending.h"

namespace vantor {

QCoro::Task<> Clock::sleep(std::chrono::milliseconds duration, std::stop_token token) {
  Pending<Done> over;
  const std::unique_ptr<Timer> timer = callAfter(duration, [over] { over.resolve({}); });
  const std::stop_callback onStop(token, [over] { over.resolve({}); });
  co_await over;
}

WallTime SystemClock::now() const {
  return std::chrono::system_clock::now();
}

SteadyTime SystemClock::steadyNow() const {
  return std::chrono::steady_clock::now();
}

std::unique_ptr<Clock::Timer> SystemClock::callAfter(std::chrono::milliseconds delay,
                                                     std::function<void()> call) {
  class QtTimer final : public Timer {
   public:
    QTimer timer;
  };
  auto timer = std::make_unique<QtTimer>();
  timer->timer.setSingleShot(true);
  timer->timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer->timer, &QTimer::timeout, &timer->timer, std::move(call));
  timer->timer.start(delay);
  return timer;
}

}  // namespace vantor
