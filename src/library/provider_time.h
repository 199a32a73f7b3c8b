#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace vantor {

/// A time that a provider gave; unlike the clock's own times, these go on after the year 2262.
/// Bring a clock's time to this precision before comparing the two: compared as they are, both
/// would take the clock's.
using ProviderTime = std::chrono::sys_time<std::chrono::microseconds>;

/// The time `text` seconds after 1970-01-01 00:00:00 UTC, absent when that is not a decimal number.
/// Times that would not fit become the earliest and the latest that do.
std::optional<ProviderTime> providerTime(std::string_view text);

}  // namespace vantor
