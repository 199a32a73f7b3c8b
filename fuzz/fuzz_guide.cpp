#include "cost.h"
#include "input.h"
#include "provider/guide_parsing.h"

using namespace Qt::StringLiterals;
using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static GuideEntries entries;
  static Yardstick yardstick(
      Harmless{R"({"epg_listings":[)",
               R"({"title":"QUJD","start_timestamp":"1","stop_timestamp":"2"},)", "{}]}"},
      [](const QByteArray& bytes) {
        entries.clear();
        mayRefuse([&] { entries = parseGuide(bytes, u"live:1"_s); });
      });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  for (const GuideEntry& entry : entries) mustHold(entry.start < entry.end);
  mustHold(memory <= 65'536 + 16 * static_cast<qsizetype>(size) + 1024 * entries.size());
  return 0;
}
