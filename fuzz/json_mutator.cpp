// Changes rows as rows, and now and then bytes.
#include <algorithm>
#include <cstdint>

#include "byte_mutation.h"
#include "json_mutation.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t limit, unsigned seed) {
  std::mt19937 random(seed);
  if (random() % 4 == 0) return LLVMFuzzerMutate(data, size, limit);
  const std::string changed =
      vantor::mutatedJSON(std::string(reinterpret_cast<char*>(data), size), limit, random);
  std::copy(changed.begin(), changed.end(), data);
  return changed.size();
}
