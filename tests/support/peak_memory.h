#pragma once

#include <malloc.h>

#include <cstdint>
#include <fstream>
#include <functional>
#include <string>

namespace vantor::test {

/// How many bytes of memory the process takes at most while `work` runs, above what it has when
/// the call begins. Compare it with that of other work: sanitizers add their own.
inline std::int64_t peakMemory(const std::function<void()>& work) {
  const auto statusBytes = [](const std::string& key) -> std::int64_t {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with(key)) return std::stoll(line.substr(key.size())) * 1024;
    return 0;
  };
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << '5';  // the peak begins anew
  const std::int64_t before = statusBytes("VmRSS:");
  work();
  return statusBytes("VmHWM:") - before;
}

}  // namespace vantor::test
