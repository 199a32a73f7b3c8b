#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sim/server.h"

namespace sim {

struct Arguments {
  Options options;
  std::vector<std::pair<std::string, Fault>> faults;
  // What --help or --version says in place of serving; empty without them.
  std::string answer;
};

// Throws std::runtime_error with a sentence for the user.
Arguments parseArguments(const std::vector<std::string>& words);

}  // namespace sim
