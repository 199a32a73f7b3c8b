// What ends the program: the desktop's signals, and a limit when something does not let it go.
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <thread>

#include "app/quit_limit.h"
#include "app/termination_signals.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

TEST(TerminationSignals, AreToldOnceAndLeaveErrnoAlone) {
  TerminationSignals signals;
  int received = 0;
  QObject::connect(&signals, &TerminationSignals::received, [&] { ++received; });
  errno = 0;
  // More than a pipe holds.
  for (int i = 0; i < 100'000 && errno == 0; ++i) std::raise(SIGTERM);
  EXPECT_EQ(errno, 0);
  EXPECT_TRUE(eventually([&] { return received > 0; }));
  EXPECT_EQ(received, 1);
  limitQuitting(0, 0ms);  // takes back what the signal set
}

TEST(QuitLimitDeathTest, EndsTheProcessWhateverItWaitsFor) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        limitQuitting(3, 10ms);
        std::this_thread::sleep_for(24h);
      },
      testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace vantor::test
