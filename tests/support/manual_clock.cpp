#include "support/manual_clock.h"

#include <algorithm>

#include "support/waiting.h"

namespace vantor::test {

std::unique_ptr<Clock::Timer> ManualClock::callAfter(std::chrono::milliseconds delay,
                                                     std::function<void()> call) {
  class Handle final : public Timer {
   public:
    Handle(std::weak_ptr<Calls> owner, Calls::iterator position, SteadyTime due)
        : calls_(std::move(owner)), position_(position), due_(due) {}
    ~Handle() override {
      const auto calls = calls_.lock();
      if (!calls) return;
      // A call that was made has left the list already.
      for (auto it = calls->begin(); it != calls->end(); ++it) {
        if (it == position_ && it->due == due_) {
          calls->erase(it);
          return;
        }
      }
    }

   private:
    std::weak_ptr<Calls> calls_;
    Calls::iterator position_;
    SteadyTime due_;
  };
  calls_->push_back({steady_ + delay, std::move(call)});
  return std::make_unique<Handle>(calls_, std::prev(calls_->end()), steady_ + delay);
}

void ManualClock::advance(std::chrono::milliseconds duration) {
  settle();
  const SteadyTime end = steady_ + duration;
  for (;;) {
    const auto next = std::min_element(calls_->begin(), calls_->end(),
                                       [](const Call& a, const Call& b) { return a.due < b.due; });
    if (next == calls_->end() || next->due > end) break;
    wall_ += std::chrono::duration_cast<WallTime::duration>(next->due - steady_);
    steady_ = next->due;
    const auto call = std::move(next->call);
    calls_->erase(next);
    call();
    settle();
  }
  wall_ += std::chrono::duration_cast<WallTime::duration>(end - steady_);
  steady_ = end;
  settle();
}

}  // namespace vantor::test
