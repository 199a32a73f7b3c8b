#include "app/quit_limit.h"

#include <csignal>

#include <sys/time.h>
#include <unistd.h>

namespace vantor {
namespace {

volatile std::sig_atomic_t limited = 0;
volatile std::sig_atomic_t statusAtLimit = 0;

void end(int) {
  ::_exit(statusAtLimit);
}

}  // namespace

void limitQuitting(int status, std::chrono::milliseconds longest) {
  limited = 1;
  statusAtLimit = status;
  struct sigaction action = {};
  action.sa_handler = end;
  ::sigaction(SIGALRM, &action, nullptr);
  const auto seconds = std::chrono::floor<std::chrono::seconds>(longest);
  const std::chrono::microseconds rest = longest - seconds;
  const itimerval limit = {{}, {seconds.count(), rest.count()}};
  ::setitimer(ITIMER_REAL, &limit, nullptr);
}

bool isQuittingLimited() {
  return limited != 0;
}

}  // namespace vantor
