#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

// The same number for the same arguments, everywhere and always.
std::uint64_t scatter(std::uint64_t number, std::uint64_t salt);

std::string channelName(int index);
std::string movieName(int index);
std::string showName(int index);
std::string episodeName(int show, int season, int episode);
std::string programmeName(std::uint64_t number);
std::string personName(std::uint64_t number);
std::string_view genreName(std::uint64_t number);
std::string plotText(std::uint64_t number);

}  // namespace sim
