#include "input.h"
#include "json/base64_text.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes = inputBytes(data, size);
  const auto text = textFromBase64({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  mustHold(!text || text->size() <= bytes.size());
  return 0;
}
