#pragma once

#include <cstdint>
#include <string>

/// libFuzzer's own: changes the bytes in place, at most to `limit` of them; how many there are
/// then.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t limit);

namespace vantor {

/// Has it change them, with room for some more.
inline void mutateBytes(std::string& bytes) {
  const std::size_t before = bytes.size();
  bytes.resize(before + 64);
  bytes.resize(
      LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), before, bytes.size()));
}

}  // namespace vantor
