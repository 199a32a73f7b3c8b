#pragma once

#include <algorithm>
#include <iterator>

#include "library/guide_entry.h"
#include "platform/clock.h"

namespace vantor {

/// The programmes that have not ended yet, in their stored order: what is on now, then what is
/// next.
inline GuideEntries upcomingEntries(const GuideEntries& entries, WallTime now) {
  GuideEntries upcoming;
  const auto time = std::chrono::floor<ProviderTime::duration>(now);
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(upcoming),
               [time](const GuideEntry& entry) { return entry.end > time; });
  return upcoming;
}

}  // namespace vantor
