#pragma once

#include <string>

namespace sim {

// Answer of "get_short_epg": `limit` programmes from the one that is on at `now` (seconds since
// 1970), one after the other. Some channels have none.
std::string shortGuideJson(int channel, int limit, long long now);

}  // namespace sim
