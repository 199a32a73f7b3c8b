#pragma once

#include <cstdint>

namespace vantor {

/// What a growing counter of 32 bits, which goes on from its least value after its greatest, has
/// grown by. It is read before it grows by another 2 GiB.
class WrappingCount {
 public:
  void begin(std::int32_t now) {
    last_ = now;
    grown_ = 0;
  }
  /// Since `begin`. A value that lies behind the last one counts as no news.
  std::int64_t grownTo(std::int32_t now) {
    const auto step = static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                                static_cast<std::uint32_t>(last_));
    if (step > 0) {
      grown_ += step;
      last_ = now;
    }
    return grown_;
  }

 private:
  std::int32_t last_ = 0;
  std::int64_t grown_ = 0;
};

}  // namespace vantor
