#include "provider/catalog_parsing.h"

#include <string>
#include <unordered_set>

#include "provider/catalog_builder.h"
#include "provider/error_wording.h"
#include "provider/json_reading.h"
#include "provider/safe_artwork.h"

namespace vantor {
namespace {

AppError unreadable() {
  return AppError(QStringLiteral("The provider returned an unreadable library."));
}

/// Calls `read` with each object of the array that `bytes` holds.
template <class Read>
void forEachRow(QByteArray bytes, Read read) {
  readJSON([&] {
    JSONDocument document(std::move(bytes));
    if (document.root().type() != simdjson::ondemand::json_type::array) throw unreadable();
    simdjson::ondemand::array rows = document.root().get_array();
    for (auto element : rows) {
      simdjson::ondemand::value row = element.value();
      if (row.type() != simdjson::ondemand::json_type::object) throw unreadable();
      simdjson::ondemand::object object = row.get_object();
      read(object);
    }
    document.expectEnd();
  });
}

/// The fields of one row; the strings keep their room from row to row.
struct Row {
  std::string providerID, name, category, artwork, fileExtension, plot, rating, year;
  bool hasPlot = false;

  void clear() {
    for (std::string* text :
         {&providerID, &name, &category, &artwork, &fileExtension, &plot, &rating, &year})
      text->clear();
    hasPlot = false;
  }
};

class RowReader {
 public:
  explicit RowReader(LibraryKind kind)
      : idKey_(kind == LibraryKind::shows ? "series_id" : "stream_id"),
        artworkKey_(kind == LibraryKind::shows ? "cover" : "stream_icon") {}

  void read(simdjson::ondemand::object& object, Row& row) const {
    row.clear();
    for (auto element : object) {
      simdjson::ondemand::field field = std::move(element);
      const std::string_view key = field.unescaped_key();
      std::string* const text = target(key, row);
      if (text) {
        text->clear();
        appendValueText(field.value(), *text);
      } else if (key == "plot") {
        row.plot.clear();
        row.hasPlot = field.value().type() == simdjson::ondemand::json_type::string;
        if (row.hasPlot) appendString(field.value(), row.plot);
      }
    }
  }

 private:
  std::string* target(std::string_view key, Row& row) const {
    if (key == idKey_) return &row.providerID;
    if (key == "name") return &row.name;
    if (key == "category_id") return &row.category;
    if (key == artworkKey_) return &row.artwork;
    if (key == "container_extension") return &row.fileExtension;
    if (key == "rating") return &row.rating;
    if (key == "year") return &row.year;
    return nullptr;
  }

  std::string_view idKey_;
  std::string_view artworkKey_;
};

}  // namespace

Catalog parseCatalog(QByteArray entries, QByteArray categories, LibraryKind kind,
                     Catalog::Time now) {
  CatalogBuilder builder(static_cast<std::size_t>(entries.size()) / 2);
  std::unordered_set<std::string> seen;
  Row row;
  const RowReader reader(kind);
  forEachRow(std::move(entries), [&](simdjson::ondemand::object& object) {
    reader.read(object, row);
    if (row.providerID.empty() || !seen.insert(row.providerID).second) return;
    const auto artwork = safeArtwork(row.artwork);
    CatalogEntry entry;
    entry.providerID = row.providerID;
    entry.kind = kind;
    entry.name = row.name.empty() ? std::string_view("Untitled") : std::string_view(row.name);
    entry.category = row.category;
    if (artwork) entry.artwork = *artwork;
    entry.fileExtension =
        row.fileExtension.empty() ? std::string_view("mkv") : std::string_view(row.fileExtension);
    if (kind == LibraryKind::live) entry.fileExtension = "m3u8";
    if (row.hasPlot) entry.plot = row.plot;
    entry.rating = row.rating;
    entry.year = row.year;
    builder.add(entry);
  });

  seen.clear();
  forEachRow(std::move(categories), [&](simdjson::ondemand::object& object) {
    std::string id;
    std::string name;
    for (auto element : object) {
      simdjson::ondemand::field field = std::move(element);
      const std::string_view key = field.unescaped_key();
      std::string* const text = key == "category_id"     ? &id
                                : key == "category_name" ? &name
                                                         : nullptr;
      if (!text) continue;
      text->clear();
      appendValueText(field.value(), *text);
    }
    if (id.empty() || !seen.insert(id).second) return;
    builder.add(MediaCategory{QString::fromStdString(id), QString::fromStdString(name)});
  });
  return builder.build(now);
}

}  // namespace vantor
