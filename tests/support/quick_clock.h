#pragma once

#include <algorithm>

#include "platform/clock.h"

namespace vantor::test {

/// The real time, passing faster, for waits that are long beside what a source on this machine
/// takes.
class QuickClock final : public Clock {
 public:
#ifdef __SANITIZE_THREAD__
  static constexpr int factor = 3;  // so much slower is all that is watched
#else
  static constexpr int factor = 10;
#endif
  WallTime now() const override {
    return clock_.now();
  }
  SteadyTime steadyNow() const override {
    return begin_ + factor * (clock_.steadyNow() - begin_);
  }
  std::unique_ptr<Timer> callAfter(std::chrono::milliseconds delay,
                                   std::function<void()> call) override {
    return clock_.callAfter(std::max(delay / factor, std::chrono::milliseconds(1)),
                            std::move(call));
  }

 private:
  SystemClock clock_;
  SteadyTime begin_ = clock_.steadyNow();
};

}  // namespace vantor::test
