#include "platform/job.h"

#include <gtest/gtest.h>

#include <latch>

#include "platform/cancelled.h"
#include "platform/worker.h"
#include "support/awaited.h"
#include "support/waiting.h"

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
    return Job::start([this](std::stop_token token) { return traced(token, &trace, gate); });
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
    trace = {};
    gate = {};
    Job job = start();
    if (begun) settle();
    job.cancel();
    job.cancel();
    gate.resolve({});
    settle();
    EXPECT_EQ(trace.stoppedAtBegin, !begun);
    EXPECT_TRUE(trace.stoppedAtEnd);
  }
}

TEST_F(JobTest, DroppedOrReplacedItIsCancelledUnlessItWasDetached) {
  for (const bool detached : {false, true}) {
    for (const bool replaced : {false, true}) {
      trace = {};
      gate = {};
      Job job = start();
      settle();
      if (detached) job.detach();
      if (replaced)
        job = Job();
      else
        const Job dropped = std::move(job);
      gate.resolve({});
      settle();
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

QCoro::Task<> collect(std::stop_token, Worker* worker, int count, std::vector<int>* seen,
                      bool* failed) {
  for (int i = 0; i < count; ++i) {
    auto pending = worker->run([i] { return i; });
    const int value = co_await pending;
    seen->push_back(value);
  }
  auto failing = worker->run([]() -> int { throw Cancelled(); });
  try {
    co_await failing;
  } catch (const Cancelled&) {
    *failed = true;
  }
}

TEST(Worker, ReturnsResultsAndFailuresToTheMainThread) {
  Worker worker;
  std::vector<int> seen;
  bool failed = false;
  const Job job =
      Job::start([&](std::stop_token token) { return collect(token, &worker, 3, &seen, &failed); });
  ASSERT_TRUE(eventually([&] { return !job.running(); }));
  EXPECT_EQ(seen, (std::vector<int>{0, 1, 2}));
  EXPECT_TRUE(failed);
}

TEST(Worker, OneThreadKeepsTheOrderOfTheCalls) {
  std::vector<int> order;
  {
    Worker worker;
    for (int i = 0; i < 100; ++i) worker.run([&order, i] { order.push_back(i); });
    awaited<Done>(worker.run([] {}));
  }
  ASSERT_EQ(order.size(), 100u);
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
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

}  // namespace
}  // namespace vantor::test
