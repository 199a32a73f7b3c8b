#include "input.h"
#include "provider/guide_parsing.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] {
    for (const GuideEntry& entry : parseGuide(inputBytes(data, size), QStringLiteral("live:1")))
      mustHold(entry.start < entry.end);
  });
  return 0;
}
