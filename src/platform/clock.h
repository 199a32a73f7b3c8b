#pragma once

#include <QCoroTask>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

namespace vantor {

using WallTime = std::chrono::system_clock::time_point;
using SteadyTime = std::chrono::steady_clock::time_point;

/// Since when something kept counts as kept. A time that is still to come was noted before the
/// clock was set back: it is older than all others.
inline WallTime keptSince(WallTime noted, WallTime now) {
  return noted > now ? WallTime::min() : noted;
}

/// Where the main thread has the time from, and its delays. Main thread only.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual WallTime now() const = 0;
  virtual SteadyTime steadyNow() const = 0;

  /// A call that is due later; dropping it takes the call back.
  class Timer {
   public:
    virtual ~Timer() = default;
  };
  [[nodiscard]] virtual std::unique_ptr<Timer> callAfter(std::chrono::milliseconds delay,
                                                         std::function<void()> call) = 0;

  /// Ends after `duration`, or at once when the job is cancelled; look at the token afterwards.
  QCoro::Task<> sleep(std::chrono::milliseconds duration, std::stop_token token);
};

class SystemClock final : public Clock {
 public:
  WallTime now() const override;
  SteadyTime steadyNow() const override;
  std::unique_ptr<Timer> callAfter(std::chrono::milliseconds delay,
                                   std::function<void()> call) override;
};

}  // namespace vantor
