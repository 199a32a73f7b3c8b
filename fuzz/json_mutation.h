#pragma once

#include <random>
#include <string>

namespace vantor {

/// The JSON in `text`, damaged or not, with values repeated, left out, put elsewhere, or made what
/// a careless or hostile provider makes of them; at most `limit` bytes of it.
std::string mutatedJSON(std::string text, std::size_t limit, std::mt19937& random);

}  // namespace vantor
