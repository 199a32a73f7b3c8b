#include "provider/catalog_parsing.h"

#include <string>
#include <unordered_set>

#include "json/json_reading.h"
#include "library/catalog_builder.h"
#include "library/text_hash.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"
#include "provider/safe_artwork.h"
#include "provider/stream_extension.h"

namespace vantor {
namespace {

using Seen = std::unordered_set<std::string, TextHash>;

/// Calls `read` with each object of the array that `bytes` holds.
template <class Read>
void forEachRow(QByteArray bytes, const std::stop_token& stop, Read read) {
  throwIfStopped(stop);
  readJSON([&] {
    JSONDocument document(std::move(bytes));
    bool onlyObjects = false;
    if (document.isObject()) {
      document.expectWhole();
    } else {
      onlyObjects = forEachObject(document.array(), [&](simdjson::ondemand::object object) {
        throwIfStopped(stop);
        read(object);
      });
      document.expectEnd();
    }
    if (!onlyObjects)
      throw AppError(QStringLiteral("The provider returned an unreadable library."));
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

  void read(simdjson::ondemand::object object, Row& row) const {
    row.clear();
    forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
      if (std::string* const text = target(key, row)) {
        text->clear();
        appendValueText(value, *text);
        return true;
      }
      if (key != "plot") return false;
      row.plot.clear();
      row.hasPlot = value.type() == simdjson::ondemand::json_type::string;
      if (row.hasPlot) appendString(value, row.plot);
      return row.hasPlot;
    });
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

std::shared_ptr<CatalogBuilder> parseEntries(QByteArray entries, LibraryKind kind,
                                             const std::stop_token& stop) {
  auto builder = std::make_shared<CatalogBuilder>(static_cast<std::size_t>(entries.size()) / 2);
  Seen seen;
  Row row;
  const RowReader reader(kind);
  forEachRow(std::move(entries), stop, [&](simdjson::ondemand::object object) {
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
    if (kind == LibraryKind::live) entry.fileExtension = liveExtension;
    if (row.hasPlot) entry.plot = row.plot;
    entry.rating = row.rating;
    entry.year = row.year;
    builder->add(entry);
  });
  return builder;
}

void parseCategories(QByteArray categories, CatalogBuilder& builder, const std::stop_token& stop) {
  Seen seen;
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
    if (id.empty() || !seen.insert(id).second) return;
    builder.add(MediaCategory{QString::fromStdString(id), QString::fromStdString(name)});
  });
}

Catalog parseCatalog(QByteArray entries, QByteArray categories, LibraryKind kind, Catalog::Time now,
                     const std::stop_token& stop) {
  const auto builder = parseEntries(std::move(entries), kind, stop);
  parseCategories(std::move(categories), *builder, stop);
  return builder->build(now);
}

}  // namespace vantor
