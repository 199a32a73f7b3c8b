#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sim {

// A looped transport stream cut at its pictures, with timestamps and continuity counters that go on
// from loop to loop as if it were one endless recording. Immutable, so safe from any thread.
class Broadcast {
 public:
  static constexpr int picturesPerSecond = 25;
  static constexpr int picturesPerSegment = 2 * picturesPerSecond;

  // Throws std::runtime_error when the file is not one of the channel files of media.h.
  explicit Broadcast(const std::string& file);

  // The bytes of one picture with the sound around it; numbers go on without an end, and every
  // picturesPerSecond-th is a key picture.
  std::string picture(std::int64_t number) const;
  // Two seconds, beginning with a key picture.
  std::string segment(std::int64_t number) const;

 private:
  std::string bytes_;
  // Where each picture's packets begin; and the end of the file.
  std::vector<std::size_t> starts_;
  // Packets with payload in one loop, by stream.
  std::vector<std::uint32_t> packets_;
};

}  // namespace sim
