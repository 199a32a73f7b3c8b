#include "diagnosis/core_dumps.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace vantor {
namespace {

/// Leaves nothing for a dump to hold.
void dumpNoMemory() {
  const int filter = ::open("/proc/self/coredump_filter", O_WRONLY | O_CLOEXEC);
  if (filter < 0) return;
  [[maybe_unused]] const ssize_t written = ::write(filter, "0", 1);
  ::close(filter);
}

}  // namespace

void preventCoreDumps() {
  // One byte is too few for a file, and to the kernel means that no program collects the dump
  // either, which zero does not. A process that may not be dumped at all is out of the portals'
  // sight.
  constexpr rlim_t none = 1;
  rlimit limit{};
  ::getrlimit(RLIMIT_CORE, &limit);
  if (limit.rlim_max < none) return dumpNoMemory();
  limit.rlim_cur = none;
  ::setrlimit(RLIMIT_CORE, &limit);
}

}  // namespace vantor
