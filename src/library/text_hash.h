#pragma once

#include <QHashFunctions>
#include <cstddef>
#include <string_view>

namespace vantor {

/// Differs from run to run, so that nobody can send texts that are all of one hash and make a set
/// of them slow.
struct TextHash {
  std::size_t operator()(std::string_view text) const noexcept {
    return qHashBits(text.data(), text.size(), QHashSeed::globalSeed());
  }
};

}  // namespace vantor
