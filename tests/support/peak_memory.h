#pragma once

#include <cstdint>
#include <functional>

namespace vantor::test {

/// How many bytes of memory the process takes at most while `work` runs, above what it has when
/// the call begins. Compare it with that of other work: sanitizers add their own.
std::int64_t peakMemory(const std::function<void()>& work);

}  // namespace vantor::test
