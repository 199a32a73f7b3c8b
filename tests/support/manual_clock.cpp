#include "support/manual_clock.h"

#include "support/waiting.h"

namespace vantor::test {

std::unique_ptr<Clock::Timer> ManualClock::callAfter(std::chrono::milliseconds delay,
                                                     std::function<void()> call) {
  struct Handle final : Timer {
    Handle(std::weak_ptr<Calls> owner, Calls::key_type key) : calls(std::move(owner)), place(key) {}
    ~Handle() override {
      if (const auto waiting = calls.lock()) waiting->erase(place);
    }
    std::weak_ptr<Calls> calls;
    Calls::key_type place;
  };
  const Calls::key_type place(steady_ + delay, ++made_);
  calls_->emplace(place, std::move(call));
  return std::make_unique<Handle>(calls_, place);
}

void ManualClock::advance(std::chrono::milliseconds duration) {
  settle();
  const SteadyTime end = steady_ + duration;
  while (!calls_->empty() && calls_->begin()->first.first <= end) {
    const auto next = calls_->extract(calls_->begin());
    goOnTo(next.key().first);
    next.mapped()();
    settle();
  }
  goOnTo(end);
  settle();
}

void ManualClock::goOnTo(SteadyTime time) {
  wall_ += std::chrono::duration_cast<WallTime::duration>(time - steady_);
  steady_ = time;
}

}  // namespace vantor::test
