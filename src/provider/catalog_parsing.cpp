#include "provider/catalog_parsing.h"

#include <string>
#include <unordered_set>

#include "library/text_hash.h"
#include "provider/answer_rows.h"
#include "provider/entry_collector.h"

namespace vantor {

std::shared_ptr<CatalogBuilder> parseEntries(QByteArray entries, LibraryKind kind,
                                             const std::stop_token& stop) {
  EntryCollector collector(kind, RowNumbers::skipped, static_cast<std::size_t>(entries.size()) / 2);
  collector.read(std::move(entries), stop);
  return std::make_shared<CatalogBuilder>(std::move(collector.builder()));
}

bool parseCategories(QByteArray categories, CatalogBuilder& builder, const std::stop_token& stop) {
  std::unordered_set<std::string, TextHash> seen;
  bool all = true;
  forEachRow(std::move(categories), stop, [&](simdjson::ondemand::object object) {
    std::string id;
    std::string name;
    forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
      std::string* const text = key == "category_id"     ? &id
                                : key == "category_name" ? &name
                                                         : nullptr;
      if (!text) return false;
      text->clear();
      appendValueText(value, *text);
      return true;
    });
    if (id.empty() || seen.contains(id)) return;
    if (seen.size() == mostCategories) {
      all = false;
      return;
    }
    builder.add(MediaCategory{QString::fromStdString(id), QString::fromStdString(name)});
    seen.insert(std::move(id));
  });
  return all;
}

Catalog parseCatalog(QByteArray entries, QByteArray categories, LibraryKind kind, Catalog::Time now,
                     const std::stop_token& stop) {
  const auto builder = parseEntries(std::move(entries), kind, stop);
  parseCategories(std::move(categories), *builder, stop);
  return builder->build(now);
}

}  // namespace vantor
