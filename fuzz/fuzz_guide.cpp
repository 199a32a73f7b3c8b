#include "input.h"
#include "provider/guide_parsing.h"

using namespace Qt::StringLiterals;

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] {
    for (const GuideEntry& entry : parseGuide(inputBytes(data, size), u"live:1"_s))
      mustHold(entry.start < entry.end);
  });
  return 0;
}
