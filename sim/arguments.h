#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sim/server.h"

namespace sim {

struct Arguments {
  Options options;
  std::vector<std::pair<std::string, Fault>> faults;
  bool help = false;
};

// Throws std::runtime_error with a sentence for the user.
Arguments parseArguments(const std::vector<std::string>& words);
std::string helpText();

}  // namespace sim
