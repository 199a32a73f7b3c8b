#include "diagnosis/diagnosis.h"

#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "diagnosis/report.h"
#include "diagnosis/sections.h"

namespace vantor {
namespace {

using Clock = std::chrono::steady_clock;

struct Section {
  const char* title;
  void (*tell)(Report& report, int& argc, char** argv);
  const char* whenEnded;  // what it means that the section's process was ended by a signal
};

constexpr Section allSections[] = {
    {"Versions", sections::tellVersions, "not found out"},
    {"Display", sections::tellDisplay, "Qt cannot open a display"},
    {"Sound and engine", sections::tellEngine, "libVLC crashes when it starts"},
    {"Keyring", sections::tellKeyring, "not found out"},
    {"Saved", sections::tellStorage, "not found out"},
    {"Log", sections::tellLog, "not found out"},
};

struct Running {
  const Section* section;
  pid_t process;
  int output;
};

[[noreturn]] void run(const Section& section, int output, int& argc, char** argv) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nothing = ::open("/dev/null", O_RDWR);
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, standard);
  Report report(output);
  section.tell(report, argc, argv);
  ::_exit(0);
}

Running start(const Section& section, int& argc, char** argv) {
  int ends[2] = {-1, -1};
  if (::pipe2(ends, O_CLOEXEC) != 0) return {&section, -1, -1};
  const pid_t process = ::fork();
  if (process == 0) run(section, ends[1], argc, argv);
  ::close(ends[1]);
  return {&section, process, ends[0]};
}

/// Prints what comes until the end, or until there is no more time; whether the end was reached.
bool print(int output, Clock::time_point end) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd ready = {.fd = output, .events = POLLIN, .revents = 0};
    if (::poll(&ready, 1, static_cast<int>(left > 0 ? left : 0)) <= 0) return false;
    char bytes[4096];
    const ssize_t count = ::read(output, bytes, sizeof bytes);
    if (count <= 0) return true;
    std::fwrite(bytes, 1, static_cast<std::size_t>(count), stdout);
    std::fflush(stdout);
  }
}

void finish(const Running& running, Clock::time_point end) {
  std::printf("\n%s\n", running.section->title);
  std::fflush(stdout);
  int status = 0;
  if (running.process < 0) {
    std::puts("  not found out");
  } else if (!print(running.output, end)) {
    std::puts("  no answer");
    ::kill(running.process, SIGKILL);
  } else if (::waitpid(running.process, &status, 0) > 0 && WIFSIGNALED(status)) {
    std::printf("  %s\n", running.section->whenEnded);
  }
  if (running.output >= 0) ::close(running.output);
}

}  // namespace

void diagnose(int& argc, char** argv, std::chrono::milliseconds longest) {
  const Clock::time_point end = Clock::now() + longest;
  std::puts("Vantor Player: what a report of a fault needs.");
  std::fflush(stdout);
  // All at once: they wait for different things.
  std::vector<Running> all;
  for (const Section& section : allSections) all.push_back(start(section, argc, argv));
  for (const Running& running : all) finish(running, end);
}

}  // namespace vantor
