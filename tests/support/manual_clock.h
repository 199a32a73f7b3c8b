#pragma once

#include <algorithm>
#include <map>

#include "platform/clock.h"
#include "support/waiting.h"

namespace vantor::test {

/// Time that passes only when a test says so.
class ManualClock final : public Clock {
 public:
  WallTime now() const override { return wall_; }
  SteadyTime steadyNow() const override { return steady_; }
  std::unique_ptr<Timer> callAfter(std::chrono::milliseconds delay,
                                   std::function<void()> call) override {
    auto handle = std::make_unique<Handle>(std::move(call));
    calls_.emplace(steady_ + delay, handle->call);
    return handle;
  }

  /// Moves on by `duration`, makes the calls that fall due on the way, in their order, and lets
  /// every coroutine run as far as it gets after each of them.
  void advance(std::chrono::milliseconds duration) {
    settle();
    const SteadyTime end = steady_ + duration;
    while (!calls_.empty() && calls_.begin()->first <= end) {
      const auto next = calls_.extract(calls_.begin());
      const auto call = next.mapped().lock();
      if (!call) continue;
      goOnTo(next.key());
      (*call)();
      settle();
    }
    goOnTo(end);
    settle();
  }
  /// Somebody sets the clock on the wall.
  void set(std::chrono::seconds ahead) { wall_ += ahead; }
  /// Calls that are waiting for their time.
  std::size_t waiting() const {
    return std::ranges::count_if(calls_, [](const auto& due) { return !due.second.expired(); });
  }

 private:
  using Call = std::function<void()>;
  struct Handle final : Timer {
    explicit Handle(Call wanted) : call(std::make_shared<Call>(std::move(wanted))) {}
    std::shared_ptr<Call> call;
  };

  void goOnTo(SteadyTime time) {
    wall_ += std::chrono::duration_cast<WallTime::duration>(time - steady_);
    steady_ = time;
  }

  // Those of one time in the order in which they were asked for; gone with their handles.
  std::multimap<SteadyTime, std::weak_ptr<Call>> calls_;
  WallTime wall_ = WallTime(std::chrono::seconds(1'800'000'000));
  SteadyTime steady_ = SteadyTime(std::chrono::hours(1));
};

}  // namespace vantor::test
