// Changes what a body is unpacked to: a run of the same takes few bytes.
#include <algorithm>
#include <array>
#include <cstdint>
#include <random>

#include "byte_mutation.h"
#include "net/unpacking.h"
#include "sim/packing.h"

namespace {

constexpr std::array encodings{"gzip", "deflate", "br", "zstd"};
constexpr std::size_t mostPlain = 1 << 20;

std::string unpacked(QByteArrayView packed, const char* encoding) {
  const auto unpacking = vantor::Unpacking::of(encoding);
  std::string plain;
  std::array<char, 4096> room{};
  while (plain.size() < mostPlain) {
    const qsizetype written = unpacking->unpack(packed, room.data(), room.size());
    if (written <= 0) break;
    plain.append(room.data(), static_cast<std::size_t>(written));
  }
  return plain;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t limit, unsigned seed) {
  std::mt19937 random(seed);
  const std::size_t which = size > 0 ? data[0] % 5u : encodings.size();
  if (which == encodings.size() || random() % 4 == 0) return LLVMFuzzerMutate(data, size, limit);
  std::string plain = unpacked(
      {reinterpret_cast<char*>(data) + 1, static_cast<qsizetype>(size - 1)}, encodings[which]);
  if (random() % 2 == 0) {
    const std::size_t times =
        random() % 64 == 0 ? 64 * mostPlain / (plain.size() + 1) : random() % 8;
    const std::string once = plain;
    for (std::size_t i = 0; i < times; ++i) plain += once;
  } else {
    vantor::mutateBytes(plain);
  }
  const std::string packed = sim::packed(encodings[which], plain);
  if (packed.size() + 1 > limit) return LLVMFuzzerMutate(data, size, limit);
  std::copy(packed.begin(), packed.end(), data + 1);
  return packed.size() + 1;
}
