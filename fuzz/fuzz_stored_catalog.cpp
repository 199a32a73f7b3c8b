#include "input.h"
#include "library/catalog_stored_form.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] {
    const Catalog catalog = catalogFromJSON(inputBytes(data, size));
    const std::string stored = CatalogWriter::toJSON(catalog);
    const Catalog again = catalogFromJSON(QByteArray::fromStdString(stored));
    mustHold(again.size() == catalog.size());
    for (std::size_t row = 0; row < catalog.size(); ++row)
      mustHold(again.item(row) == catalog.item(row));
  });
  return 0;
}
