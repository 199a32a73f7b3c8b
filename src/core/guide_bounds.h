#pragma once

#include <QtGlobal>
#include <chrono>

namespace vantor {

/// How long a channel's guide is good for.
inline constexpr std::chrono::seconds guideInterval{300};
/// Channels whose guides are kept.
inline constexpr qsizetype cachedChannels = 128;

}  // namespace vantor
