#include "library/catalog.h"

#include <algorithm>

#include "library/catalog_contents.h"
#include "library/name_search.h"
#include "library/text_hash.h"

namespace vantor {
namespace {

QString qt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::optional<QString> optionalText(const CatalogContents& contents, std::size_t row,
                                    EntryFlag flag, EntryText which) {
  if (!(contents.rows[row].flags & flag)) return std::nullopt;
  return qt(contents.textOf(row, which));
}

}  // namespace

Catalog::Catalog(std::shared_ptr<const CatalogContents> contents)
    : contents_(std::move(contents)) {}

Catalog Catalog::empty() {
  static const Catalog shared = [] {
    auto contents = std::make_shared<CatalogContents>();
    contents->savedAt = std::chrono::system_clock::now();
    return Catalog(std::move(contents));
  }();
  return shared;
}

std::size_t Catalog::size() const {
  return contents_->rows.size();
}

QString Catalog::id(std::size_t index) const {
  std::string buffer;
  return qt(contents_->idOf(index, buffer));
}

QString Catalog::name(std::size_t index) const {
  return qt(contents_->textOf(index, EntryText::name));
}

MediaItem Catalog::item(std::size_t index) const {
  const CatalogContents& contents = *contents_;
  const EntryRow& row = contents.rows[index];
  MediaItem item;
  item.id = id(index);
  item.providerID = qt(contents.textOf(index, EntryText::providerID));
  item.kind = row.kind;
  item.name = name(index);
  item.category = qt(contents.categoryIDs[row.category]);
  if (row.flags & hasArtwork) item.artwork = QUrl(qt(contents.textOf(index, EntryText::artwork)));
  item.fileExtension = qt(contents.extensions[row.fileExtension]);
  item.plot = optionalText(contents, index, hasPlot, EntryText::plot);
  item.rating = optionalText(contents, index, hasRating, EntryText::rating);
  item.year = optionalText(contents, index, hasYear, EntryText::year);
  if (row.flags & hasNumbers) {
    const EntryNumbers& numbers = contents.numbers.at(static_cast<std::uint32_t>(index));
    item.episode = numbers.episode;
    item.season = numbers.season;
  }
  item.isExample = row.flags & isSample;
  return item;
}

std::optional<std::size_t> Catalog::indexOf(const QString& id) const {
  const std::string wanted = id.toStdString();
  std::string buffer;
  return contents_->idIndex.find(TextHash()(wanted), [&](std::uint32_t row) {
    return contents_->idOf(row, buffer) == wanted;
  });
}

const std::vector<MediaCategory>& Catalog::categories() const {
  return contents_->categories;
}

Catalog::Time Catalog::savedAt() const {
  return contents_->savedAt;
}

void Catalog::match(const CatalogFilter& filter, std::vector<std::uint32_t>& indexes) const {
  const CatalogContents& contents = *contents_;
  const auto count = static_cast<std::uint32_t>(size());
  std::uint32_t category = 0;
  if (!filter.category.isEmpty()) {
    const auto known = std::find(contents.categoryIDs.begin(), contents.categoryIDs.end(),
                                 filter.category.toStdString());
    if (known == contents.categoryIDs.end()) return;
    category = static_cast<std::uint32_t>(known - contents.categoryIDs.begin());
  }
  const auto inCategory = [&](std::uint32_t row) {
    return filter.category.isEmpty() || contents.rows[row].category == category;
  };
  if (filter.foldedName.empty()) {
    indexes.reserve(indexes.size() + count);
    for (std::uint32_t row = 0; row < count; ++row)
      if (inCategory(row)) indexes.push_back(row);
    return;
  }
  // One scan over all names; a hit skips to the next name, the separator keeps it inside one.
  const std::string_view names = contents.foldedNames;
  const NameSearch search(filter.foldedName);
  std::size_t position = 0;
  std::uint32_t row = 0;
  while (position < names.size()) {
    const std::size_t hit = search.find(names, position);
    if (hit == std::string_view::npos) return;
    while (contents.foldedEnds[row] <= hit) ++row;
    if (inCategory(row)) indexes.push_back(row);
    position = contents.foldedEnds[row];
    ++row;
  }
}

bool Catalog::matches(std::size_t index, const CatalogFilter& filter) const {
  const std::string& category = contents_->categoryIDs[contents_->rows[index].category];
  return (filter.category.isEmpty() || category == filter.category.toStdString()) &&
         contents_->foldedNameOf(index).find(filter.foldedName) != std::string_view::npos;
}

void Catalog::narrow(std::span<const std::uint32_t> rows, std::uint32_t base,
                     const std::string& foldedName, std::vector<std::uint32_t>& kept) const {
  const std::vector<std::uint32_t>& ends = contents_->foldedEnds;
  const std::string_view names = contents_->foldedNames;
  const NameSearch search(foldedName);
  std::size_t count = kept.size();
  kept.resize(count + rows.size());
  for (const std::uint32_t number : rows) {
    const std::uint32_t row = number - base;
    const std::size_t begin = row > 0 ? ends[row - 1] : 0;
    kept[count] = number;
    count += search.isIn(names, begin, ends[row] - 1) ? 1 : 0;
  }
  kept.resize(count);
}

std::size_t CatalogContents::memory() const {
  return sizeof(CatalogContents) + text.capacity() + rows.capacity() * sizeof(EntryRow) +
         foldedNames.capacity() + foldedEnds.capacity() * sizeof(std::uint32_t) +
         numbers.size() * 32 + categoryIDs.capacity() * sizeof(std::string) + idIndex.memory() +
         categories.capacity() * sizeof(MediaCategory);
}

std::size_t Catalog::memory() const {
  return contents_->memory();
}

}  // namespace vantor
