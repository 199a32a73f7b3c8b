// Changes what is behind the seal.
#include <QByteArray>
#include <algorithm>
#include <cstdint>

#include "byte_mutation.h"
#include "json_mutation.h"
#include "storage/sealed_box.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t limit, unsigned seed) {
  using namespace vantor;
  std::mt19937 random(seed);
  const QByteArray key(sealed_box::keySize, 'k');
  constexpr std::size_t around = sealed_box::nonceSize + sealed_box::tagSize;
  if (random() % 8 == 0 || limit <= around) return LLVMFuzzerMutate(data, size, limit);
  std::string plain;
  try {
    plain = sealed_box::open(
                QByteArray(reinterpret_cast<char*>(data), static_cast<qsizetype>(size)), key)
                .toStdString();
  } catch (const sealed_box::Failure&) {
    return LLVMFuzzerMutate(data, size, limit);
  }
  const std::string box = sealed_box::seal(mutatedJSON(plain, limit - around, random), key);
  std::copy(box.begin(), box.end(), data);
  return box.size();
}
