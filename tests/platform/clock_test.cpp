#include <gtest/gtest.h>

#include "platform/job.h"
#include "support/manual_clock.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

QCoro::Task<> sleepThenSet(std::stop_token token, Clock* clock, std::chrono::milliseconds duration,
                           bool* over) {
  const QCoro::Task<> sleep = clock->sleep(duration, token);
  co_await sleep;
  *over = true;
}

TEST(Clock, CancelledSleepEndsAtOnce) {
  ManualClock manual;
  SystemClock system;
  for (Clock* clock : std::initializer_list<Clock*>{&manual, &system}) {
    bool over = false;
    Job job = Job::start(
        [&](std::stop_token token) { return sleepThenSet(token, clock, 3'600'000ms, &over); });
    settle();
    EXPECT_FALSE(over);
    job.cancel();
    settle();
    EXPECT_TRUE(over);
  }
  EXPECT_EQ(manual.waiting(), 0u) << "a cancelled sleep takes its call back";
}

TEST(SystemClock, SleepsForReal) {
  SystemClock clock;
  bool over = false;
  const auto begin = clock.steadyNow();
  const Job job =
      Job::start([&](std::stop_token token) { return sleepThenSet(token, &clock, 20ms, &over); });
  ASSERT_TRUE(eventually([&] { return over; }));
  EXPECT_GE(clock.steadyNow() - begin, 20ms);
}

}  // namespace
}  // namespace vantor::test
