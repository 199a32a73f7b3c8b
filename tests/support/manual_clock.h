#pragma once

#include <map>

#include "platform/clock.h"

namespace vantor::test {

/// Time that passes only when a test says so.
class ManualClock final : public Clock {
 public:
  WallTime now() const override { return wall_; }
  SteadyTime steadyNow() const override { return steady_; }
  std::unique_ptr<Timer> callAfter(std::chrono::milliseconds delay,
                                   std::function<void()> call) override;

  /// Moves on by `duration`, makes the calls that fall due on the way, in their order, and lets
  /// every coroutine run as far as it gets after each of them.
  void advance(std::chrono::milliseconds duration);
  /// Somebody sets the clock on the wall.
  void set(std::chrono::seconds ahead) { wall_ += ahead; }
  /// Calls that are waiting for their time.
  std::size_t waiting() const { return calls_->size(); }

 private:
  // By the time that each is due at, and in the order in which they were asked for.
  using Calls = std::map<std::pair<SteadyTime, int>, std::function<void()>>;

  void goOnTo(SteadyTime time);

  int made_ = 0;
  std::shared_ptr<Calls> calls_ = std::make_shared<Calls>();
  WallTime wall_ = WallTime(std::chrono::seconds(1'800'000'000));
  SteadyTime steady_ = SteadyTime(std::chrono::hours(1));
};

}  // namespace vantor::test
