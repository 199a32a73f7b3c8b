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

struct Trace {
  bool began = false;
  bool stoppedAtBegin = false;
  bool stoppedAtEnd = false;
  bool ended = false;
};

QCoro::Task<> traced(std::stop_token token, Trace* trace, Pending<Done> gate) {
  trace->began = true;
  trace->stoppedAtBegin = token.stop_requested();
  co_await gate;
  trace->stoppedAtEnd = token.stop_requested();
  trace->ended = true;
}

class JobTest : public ::testing::Test {
 protected:
  Trace trace;
  Pending<Done> gate;
  Job start() {
    trace = {};
    gate = {};
    return Job::start([this](std::stop_token token) { return traced(token, &trace, gate); });
  }
  void goOn() {
    gate.resolve({});
    settle();
  }
};

TEST_F(JobTest, RunsFromTheEventLoopToItsEnd) {
  const Job job = start();
  EXPECT_FALSE(trace.began);
  settle();
  EXPECT_TRUE(trace.began);
  EXPECT_TRUE(job.running());
  gate.resolve({});
  EXPECT_FALSE(trace.ended) << "a coroutine must not resume inside resolve()";
  settle();
  EXPECT_TRUE(trace.ended);
  EXPECT_FALSE(trace.stoppedAtEnd);
  EXPECT_FALSE(job.running());
}

TEST_F(JobTest, CancelledItSeesTheStopFromThenOn) {
  for (const bool begun : {false, true}) {
    Job job = start();
    if (begun) settle();
    job.cancel();
    job.cancel();
    goOn();
    EXPECT_EQ(trace.stoppedAtBegin, !begun);
    EXPECT_TRUE(trace.stoppedAtEnd);
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
      EXPECT_TRUE(trace.ended);
      EXPECT_EQ(trace.stoppedAtEnd, !detached) << replaced;
    }
  }
}

QCoro::Task<> throwing(std::stop_token) {
  throw Cancelled();
  co_return;
}

TEST(Job, FailureEndsItQuietly) {
  const Job job = Job::start(throwing);
  settle();
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
