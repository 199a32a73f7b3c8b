#include "app/termination_signals.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include "app/quit_limit.h"

namespace vantor {
namespace {

constexpr int signals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t writeEnd = -1;

/// Only what is allowed in a signal handler. Whoever it interrupts may be about to read errno.
void handle(int) {
  const int error = errno;
  // The main thread may be waiting for something, such as a session bus that does not answer Qt.
  // What quits already has its own time: a recording that is being saved gets more.
  if (!isQuittingLimited()) limitQuitting(0, std::chrono::seconds(5));
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
  errno = error;
}

auto handlerOf(int signal) {
  struct sigaction present = {};
  ::sigaction(signal, nullptr, &present);
  return present.sa_handler;
}

}  // namespace

TerminationSignals::TerminationSignals() {
  if (::pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) return;
  writeEnd = ends_[1];
  notifier_.setSocket(ends_[0]);
  notifier_.setEnabled(true);
  connect(&notifier_, &QSocketNotifier::activated, this, &TerminationSignals::read);
  struct sigaction action = {};
  action.sa_handler = handle;
  action.sa_flags = SA_RESTART;
  // Who began this program may want it to outlive the terminal, as nohup does.
  for (const int signal : signals)
    if (handlerOf(signal) != SIG_IGN) ::sigaction(signal, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
  for (const int signal : signals)
    if (handlerOf(signal) == handle) std::signal(signal, SIG_DFL);
  notifier_.setEnabled(false);
  for (const int end : ends_)
    if (end >= 0) ::close(end);
}

void TerminationSignals::read() {
  char bytes[16];
  while (::read(ends_[0], bytes, sizeof bytes) > 0) {
  }
  Q_EMIT received();
}

}  // namespace vantor
