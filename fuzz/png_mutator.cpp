// Changes the chunks of a PNG file, and gives each the checksum that its decoder wants.
#include <zlib.h>

#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "byte_mutation.h"
#include "sim/packing.h"

namespace {

constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";

struct Chunk {
  std::string name, content;
};

std::string bigEndian(std::uint32_t number) {
  std::string bytes(4, '\0');
  qToBigEndian(number, bytes.data());
  return bytes;
}

std::vector<Chunk> chunksOf(std::string_view file) {
  std::vector<Chunk> chunks;
  for (file.remove_prefix(signature.size()); file.size() >= 12;) {
    const std::size_t size =
        std::min<std::size_t>(qFromBigEndian<quint32>(file.data()), file.size() - 12);
    chunks.push_back({std::string(file.substr(4, 4)), std::string(file.substr(8, size))});
    file.remove_prefix(12 + size);
  }
  return chunks;
}

std::string fileOf(const std::vector<Chunk>& chunks) {
  std::string file(signature);
  for (const auto& [name, content] : chunks) {
    const std::string checked = name + content;
    const auto sum = ::crc32(0, reinterpret_cast<const Bytef*>(checked.data()),
                             static_cast<uInt>(checked.size()));
    file += bigEndian(static_cast<std::uint32_t>(content.size())) + checked +
            bigEndian(static_cast<std::uint32_t>(sum));
  }
  return file;
}

Chunk note(std::mt19937& random) {
  static const std::array<std::pair<const char*, std::string>, 6> heads{{
      {"zTXt", std::string("a\0\0", 3)},
      {"iTXt", std::string("a\0\1\0\0\0", 6)},
      {"iCCP", std::string("a\0\0", 3)},
      {"tEXt", std::string("a\0", 2)},
      {"eXIf", "II"},
      {"acTL", ""},
  }};
  const auto& [name, head] = heads.at(random() % heads.size());
  const std::string text(std::size_t{1} << random() % 23, 'a');
  return {name, head + (head.size() > 2 ? sim::packed("deflate", text) : text.substr(0, 100))};
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t limit, unsigned seed) {
  std::mt19937 random(seed);
  const std::string_view file(reinterpret_cast<char*>(data), size);
  std::vector<Chunk> chunks;
  if (file.starts_with(signature)) chunks = chunksOf(file);
  if (chunks.empty() || random() % 8 == 0) return LLVMFuzzerMutate(data, size, limit);
  const std::size_t place = random() % chunks.size();
  const auto at = chunks.begin() + static_cast<std::ptrdiff_t>(place);
  switch (random() % 4) {
    case 0:
      chunks.insert(at, note(random));
      break;
    case 1:
      chunks.insert(at, chunks[random() % chunks.size()]);
      break;
    case 2:
      chunks.erase(at);
      break;
    default:
      vantor::mutateBytes(chunks[place].content);
  }
  const std::string changed = fileOf(chunks);
  if (changed.size() > limit) return LLVMFuzzerMutate(data, size, limit);
  std::copy(changed.begin(), changed.end(), data);
  return changed.size();
}
