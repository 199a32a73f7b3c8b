#include "support/peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace vantor::test {
namespace {

std::int64_t statusBytes(const std::string& key) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(key)) return std::stoll(line.substr(key.size())) * 1024;
  return 0;
}

}  // namespace

std::int64_t peakMemory(const std::function<void()>& work) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << '5';  // the peak begins anew
  const std::int64_t before = statusBytes("VmRSS:");
  work();
  return statusBytes("VmHWM:") - before;
}

}  // namespace vantor::test
