#pragma once

#include <optional>

#include "library/media_item.h"
#include "provider/provider_details.h"

namespace vantor {

/// The extension of a live entry, whatever the provider calls it: HTTP Live Streaming.
inline constexpr char liveExtension[] = "m3u8";

/// The extension of the address that an entry is streamed from. A channel is asked for as an MPEG
/// transport stream where the subscription allows that and not HTTP Live Streaming.
QString streamExtension(const MediaItem& item, const std::optional<ProviderDetails>& subscription);

}  // namespace vantor
