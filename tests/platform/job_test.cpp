// Jobs, and what they wait for: results of a worker, and the clock.
#include "platform/job.h"

#include <gtest/gtest.h>

#include <latch>

#include "platform/cancelled.h"
#include "platform/worker.h"
#include "support/awaited.h"
#include "support/manual_clock.h"

namespace vantor::test {
namespace {

/// Whether a job was to stop, seen at its begin and then at its end.
using Stops = std::vector<bool>;

QCoro::Task<> traced(std::stop_token token, Stops* stops, Pending<Done> gate) {
  stops->push_back(token.stop_requested());
  co_await gate;
  stops->push_back(token.stop_requested());
}

class JobTest : public ::testing::Test {
 protected:
  Stops stops;
  Pending<Done> gate;
  Job start() {
    stops = {};
    gate = {};
    return Job::start([this](std::stop_token token) { return traced(token, &stops, gate); });
  }
  void goOn() {
    gate.resolve({});
    settle();
  }
};

TEST_F(JobTest, RunsFromTheEventLoopToItsEnd) {
  const Job job = start();
  EXPECT_EQ(stops, Stops());
  settle();
  EXPECT_EQ(stops, Stops{false});
  EXPECT_TRUE(job.running());
  gate.resolve({});
  EXPECT_EQ(stops, Stops{false}) << "a coroutine must not resume inside resolve()";
  settle();
  EXPECT_EQ(stops, (Stops{false, false}));
  EXPECT_FALSE(job.running());
}

TEST_F(JobTest, CancelledItSeesTheStopFromThenOn) {
  for (const bool begun : {false, true}) {
    Job job = start();
    if (begun) settle();
    job.cancel();
    job.cancel();
    goOn();
    EXPECT_EQ(stops, (Stops{!begun, true}));
  }
}

TEST_F(JobTest, DroppedOrReplacedItIsCancelledUnlessItWasDetached) {
  for (const bool detached : {false, true}) {
    for (const bool replaced : {false, true}) {
      auto job = std::make_unique<Job>(start());
      settle();
      if (detached) job->detach();
      if (replaced)
        *job = Job();
      else
        job.reset();
      goOn();
      EXPECT_EQ(stops, (Stops{false, !detached})) << replaced;
    }
  }
}

TEST_F(JobTest, FailureEndsItQuietly) {
  const Job job = start();
  gate.fail(std::make_exception_ptr(Cancelled()));
  settle();
  EXPECT_EQ(stops, Stops{false});
  EXPECT_FALSE(job.running());
}

TEST(Worker, ReturnsResultsAndFailuresInTheOrderOfTheCalls) {
  Worker worker;
  std::vector<int> order;
  for (int i = 0; i < 100; ++i) worker.run([&order, i] { order.push_back(i); });
  EXPECT_EQ(awaited<int>(worker.run([] { return 7; })), 7);
  EXPECT_EQ(order.size(), 100u);
  EXPECT_TRUE(std::ranges::is_sorted(order));
  EXPECT_THROW(awaited<int>(worker.run([]() -> int { throw Cancelled(); })), Cancelled);
}

TEST(Worker, DestroyedFailsTheWaitsOfWhatItDrops) {
  auto worker = std::make_unique<Worker>();
  auto held = std::make_shared<int>();
  std::latch begun(1);
  // Lets nothing else begin before it is dropped.
  auto running = worker->run([&begun, watched = std::weak_ptr(held)] {
    begun.count_down();
    while (!watched.expired()) std::this_thread::yield();
    return 1;
  });
  auto dropped = worker->run([held = std::move(held)] { return 2; });
  begun.wait();
  worker.reset();
  EXPECT_EQ(awaited<int>(running), 1);
  EXPECT_THROW(awaited<int>(dropped), Cancelled);
}

TEST(Clock, CancelledSleepEndsAtOnce) {
  ManualClock manual;
  SystemClock system;
  for (Clock* clock : std::initializer_list<Clock*>{&manual, &system}) {
    Job job = Job::start([clock](std::stop_token token) { return clock->sleep(1h, token); });
    settle();
    EXPECT_TRUE(job.running());
    job.cancel();
    settle();
    EXPECT_FALSE(job.running());
  }
  EXPECT_EQ(manual.waiting(), 0u) << "a cancelled sleep takes its call back";
}

}  // namespace
}  // namespace vantor::test
