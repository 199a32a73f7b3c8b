#include "provider/entry_collector.h"

#include <QCoreApplication>
#include <algorithm>
#include <numeric>

#include "provider/answer_rows.h"
#include "provider/safe_artwork.h"
#include "provider/stream_extension.h"

namespace vantor {
namespace {

/// The fields of one row; the strings keep their room from row to row.
struct Row {
  std::string providerID, name, category, artwork, fileExtension, plot, rating, year, number;
  bool hasPlot = false;

  void clear() {
    for (std::string* text :
         {&providerID, &name, &category, &artwork, &fileExtension, &plot, &rating, &year, &number})
      text->clear();
    hasPlot = false;
  }
};

class RowReader {
 public:
  RowReader(LibraryKind kind, RowNumbers numbers)
      : numbers_(numbers),
        idKey_(kind == LibraryKind::shows ? "series_id" : "stream_id"),
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
    if (key == "num" && numbers_ == RowNumbers::kept) return &row.number;
    return nullptr;
  }

  RowNumbers numbers_;
  std::string_view idKey_;
  std::string_view artworkKey_;
};

}  // namespace

EntryCollector::EntryCollector(LibraryKind kind, RowNumbers numbers, std::size_t expectedText)
    : builder_(expectedText), kind_(kind), numbers_(numbers) {}

void EntryCollector::read(QByteArray answer, const std::stop_token& stop) {
  Row row;
  const RowReader reader(kind_, numbers_);
  const std::string untitled = QCoreApplication::translate("Library", "Untitled").toStdString();
  forEachRow(std::move(answer), stop, [&](simdjson::ondemand::object object) {
    reader.read(object, row);
    if (row.providerID.empty()) return;
    const auto artwork = safeArtwork(row.artwork);
    CatalogEntry entry;
    entry.providerID = row.providerID;
    entry.kind = kind_;
    entry.name = row.name.empty() ? std::string_view(untitled) : std::string_view(row.name);
    entry.category = row.category;
    if (artwork) entry.artwork = *artwork;
    entry.fileExtension =
        row.fileExtension.empty() ? std::string_view("mkv") : std::string_view(row.fileExtension);
    if (kind_ == LibraryKind::live) entry.fileExtension = liveExtension;
    if (row.hasPlot) entry.plot = row.plot;
    entry.rating = row.rating;
    entry.year = row.year;
    if (!builder_.addNew(entry)) return;
    if (numbers_ == RowNumbers::kept) rowNumbers_.push_back(wholeNumber(row.number));
  });
}

std::vector<std::uint32_t> EntryCollector::order() const {
  std::vector<std::uint32_t> asTheyCame(size());
  std::iota(asTheyCame.begin(), asTheyCame.end(), 0u);
  if (numbers_ == RowNumbers::skipped) return asTheyCame;
  std::vector<std::int64_t> places;
  places.reserve(size());
  for (const auto& number : rowNumbers_)
    places.push_back(number ? *number : places.empty() ? 0 : places.back());
  std::vector<std::uint32_t> order = asTheyCame;
  std::ranges::stable_sort(order, {}, [&](std::uint32_t row) { return places[row]; });
  const auto again = std::ranges::adjacent_find(order, [&](std::uint32_t row, std::uint32_t next) {
    return places[row] == places[next] && rowNumbers_[next];
  });
  return again == order.end() ? order : asTheyCame;
}

}  // namespace vantor
