#include "library/provider_time.h"

#include <algorithm>

#include "json/json_reading.h"

namespace vantor {

std::optional<ProviderTime> providerTime(std::string_view text) {
  constexpr double furthest = 4e12;  // seconds; the time between two of these fits as well
  const auto seconds = decimalNumber(text);
  if (!seconds) return std::nullopt;
  const std::chrono::duration<double> sinceEpoch(std::clamp(*seconds, -furthest, furthest));
  return ProviderTime(std::chrono::duration_cast<ProviderTime::duration>(sinceEpoch));
}

}  // namespace vantor
