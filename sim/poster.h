#pragma once

#include <cstdint>
#include <string>

#include "sim/library.h"

namespace sim {

// A PNG with colours and shapes of its own for each id: square for channels, 2:3 for the others.
std::string posterPng(Kind kind, std::uint64_t id);

// A PNG of about 110 KB that decodes to 30,000 by 30,000 pixels.
std::string hugePng();

}  // namespace sim
