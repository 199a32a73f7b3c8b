#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vantor {

/// Seconds as the engine's whole milliseconds: 0 for what is negative or no number, and at most
/// what 32 bits hold.
constexpr std::int64_t engineTime(double seconds) {
  constexpr double largest = std::numeric_limits<std::int32_t>::max();
  if (!(seconds > 0)) return 0;
  return static_cast<std::int64_t>(std::min(seconds * 1000, largest));
}

/// A volume as the engine's whole percent, truncated; 0 for what is negative or no number.
constexpr int wholePercent(double percent) {
  if (!(percent > 0)) return 0;
  return static_cast<int>(std::min(percent, 100.0));
}

}  // namespace vantor
