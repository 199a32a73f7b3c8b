#include "cost.h"
#include "input.h"
#include "provider/catalog_parsing.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The entries, a line break, the categories.
  static Yardstick yardstick(
      Harmless{"[", R"({"num":1,"name":"Channel","stream_id":"1","category_id":"1"},)", "{}]\n[]"},
      [](const QByteArray& bytes) {
        const qsizetype split = std::max<qsizetype>(bytes.indexOf('\n'), 0);
        const auto kind = allLibraryKinds[static_cast<std::size_t>(bytes.size()) % 3];
        mayRefuse([&] {
          const Catalog catalog = parseCatalog(bytes.left(split), bytes.mid(split), kind, {});
          mustHold(catalog.memory() <= 4096 + 20 * static_cast<std::size_t>(bytes.size()));
          std::vector<std::uint32_t> rows;
          catalog.match({QString(), "e"}, rows);
          for (std::size_t row = 0; row < catalog.size(); ++row)
            mustHold(catalog.indexOf(catalog.item(row).id) == row);
        });
      });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
