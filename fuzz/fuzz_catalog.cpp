#include "input.h"
#include "provider/catalog_parsing.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte divides the rest into the two answers.
  if (size == 0) return 0;
  const QByteArray both = inputBytes(data + 1, size - 1);
  const qsizetype split = both.size() * data[0] / 255;
  mayRefuse([&] {
    const Catalog catalog = parseCatalog(both.left(split), both.mid(split),
                                         allLibraryKinds[data[0] % allLibraryKinds.size()], {});
    mustHold(catalog.memory() <= 4096 + 20 * size);
    std::vector<std::uint32_t> rows;
    catalog.match({QString(), "e"}, rows);
    for (std::size_t row = 0; row < catalog.size(); ++row)
      mustHold(catalog.indexOf(catalog.item(row).id) == row);
  });
  return 0;
}
