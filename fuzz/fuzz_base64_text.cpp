#include "cost.h"
#include "input.h"
#include "json/base64_text.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(Harmless{"", "QUJD", ""}, [](const QByteArray& bytes) {
    const auto text = textFromBase64({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    mustHold(!text || text->size() <= bytes.size());
  });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 4096 + 8 * static_cast<qsizetype>(size));
  return 0;
}
