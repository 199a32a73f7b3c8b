#include "cost.h"
#include "input.h"
#include "library/catalog_stored_form.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(
      Harmless{R"({"categories":[],"savedAt":1,"items":[)",
               R"({"id":"live:1","providerID":"1","kind":"live","name":"Channel","category":"1",)"
               R"("fileExtension":"ts","isExample":false},)",
               R"({"id":"live:1","providerID":"1","kind":"live","name":"Channel","category":"1",)"
               R"("fileExtension":"ts","isExample":false}]})"},
      [](const QByteArray& bytes) {
        mayRefuse([&] {
          const Catalog catalog = catalogFromJSON(bytes);
          const std::string stored = CatalogWriter::toJSON(catalog);
          const Catalog again = catalogFromJSON(QByteArray::fromStdString(stored));
          mustHold(again.size() == catalog.size());
          for (std::size_t row = 0; row < catalog.size(); ++row)
            mustHold(again.item(row) == catalog.item(row));
        });
      });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
