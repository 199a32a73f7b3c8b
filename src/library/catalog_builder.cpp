#include "library/catalog_builder.h"

#include <algorithm>
#include <limits>

#include "library/catalog_contents.h"
#include "library/folded_text.h"

namespace vantor {
namespace {

constexpr std::size_t smallestIndex = 1'000;  // rows

/// With room for so many rows.
EntryIndex tableOf(const std::vector<std::uint64_t>& hashes, std::size_t rows) {
  EntryIndex index(rows);
  for (std::size_t row = 0; row < hashes.size(); ++row)
    index.add(hashes[row], static_cast<std::uint32_t>(row));
  return index;
}

/// May lie in `buffer`.
std::string_view idOf(const CatalogEntry& entry, std::string& buffer) {
  if (entry.id) return *entry.id;
  buffer.assign(idPrefix(entry.kind)).append(entry.providerID);
  return buffer;
}

}  // namespace

CatalogBuilder::CatalogBuilder(std::size_t expectedText)
    : contents_(std::make_shared<CatalogContents>()) {
  contents_->text.reserve(expectedText);
}

CatalogBuilder::~CatalogBuilder() = default;

std::uint32_t CatalogBuilder::indexOf(std::string_view text, Indexes& indexes,
                                      std::vector<std::string>& texts) {
  const auto [known, isNew] =
      indexes.try_emplace(std::string(text), static_cast<std::uint32_t>(texts.size()));
  if (isNew) texts.emplace_back(text);
  return known->second;
}

void CatalogBuilder::add(const CatalogEntry& entry) {
  add(entry, TextHash()(idOf(entry, id_)));
}

void CatalogBuilder::indexAdded() {
  if (hashes_.size() > room_) {
    room_ = std::max(smallestIndex, 2 * hashes_.size());
    contents_->idIndex = tableOf(hashes_, room_);
    indexed_ = hashes_.size();
  }
  for (; indexed_ < hashes_.size(); ++indexed_)
    contents_->idIndex.add(hashes_[indexed_], static_cast<std::uint32_t>(indexed_));
}

bool CatalogBuilder::addNew(const CatalogEntry& entry) {
  indexAdded();
  const std::string_view id = idOf(entry, id_);
  const std::uint64_t hash = TextHash()(id);
  std::string buffer;
  const auto known = contents_->idIndex.find(
      hash, [&](std::uint32_t row) { return contents_->idOf(row, buffer) == id; });
  if (!known) add(entry, hash);
  return !known;
}

void CatalogBuilder::add(const CatalogEntry& entry, std::uint64_t hash) {
  CatalogContents& contents = *contents_;
  EntryRow row;
  row.kind = entry.kind;
  // Most entries are like the one before: providers list them category by category.
  const EntryRow* const previous = contents.rows.empty() ? nullptr : &contents.rows.back();
  row.category = previous && contents.categoryIDs[previous->category] == entry.category
                     ? previous->category
                     : indexOf(entry.category, categories_, contents.categoryIDs);
  row.fileExtension =
      previous && contents.extensions[previous->fileExtension] == entry.fileExtension
          ? previous->fileExtension
          : indexOf(entry.fileExtension, extensions_, contents.extensions);
  const auto append = [&](EntryText which, std::string_view text) {
    contents.text.append(text);
    if (contents.text.size() > std::numeric_limits<std::uint32_t>::max())
      throw std::length_error("library too large");
    row.ends[static_cast<std::size_t>(which)] = static_cast<std::uint32_t>(contents.text.size());
  };
  const auto appendOptional = [&](EntryText which, EntryFlag flag,
                                  const std::optional<std::string_view>& text) {
    append(which, text.value_or(std::string_view()));
    if (text) row.flags |= flag;
  };
  appendOptional(EntryText::id, hasOwnID, entry.id);
  append(EntryText::providerID, entry.providerID);
  append(EntryText::name, entry.name);
  appendOptional(EntryText::artwork, hasArtwork, entry.artwork);
  appendOptional(EntryText::plot, hasPlot, entry.plot);
  appendOptional(EntryText::rating, hasRating, entry.rating);
  appendOptional(EntryText::year, hasYear, entry.year);
  if (entry.isExample) row.flags |= isSample;
  if (entry.episode || entry.season) {
    row.flags |= hasNumbers;
    contents.numbers[static_cast<std::uint32_t>(contents.rows.size())] = {entry.episode,
                                                                          entry.season};
  }
  contents.rows.push_back(row);
  appendFolded(entry.name, contents.foldedNames);
  contents.foldedNames.push_back(CatalogContents::separator);
  contents.foldedEnds.push_back(static_cast<std::uint32_t>(contents.foldedNames.size()));
  hashes_.push_back(hash);
}

void CatalogBuilder::add(MediaCategory category) {
  contents_->categories.push_back(std::move(category));
}

const std::vector<MediaCategory>& CatalogBuilder::categories() const {
  return contents_->categories;
}

std::size_t CatalogBuilder::memory() const {
  return contents_->memory() + hashes_.capacity() * sizeof(std::uint64_t);
}

Catalog CatalogBuilder::inOrder(const std::vector<std::uint32_t>& order,
                                Catalog::Time savedAt) const {
  const CatalogContents& from = *contents_;
  auto ordered = std::make_shared<CatalogContents>();
  ordered->text.reserve(from.text.size());
  ordered->rows.reserve(from.rows.size());
  ordered->foldedNames.reserve(from.foldedNames.size());
  ordered->foldedEnds.reserve(from.foldedEnds.size());
  ordered->categoryIDs = from.categoryIDs;
  ordered->extensions = from.extensions;
  ordered->categories = from.categories;
  ordered->savedAt = savedAt;
  ordered->idIndex = EntryIndex(order.size());
  for (const std::uint32_t number : order) {
    EntryRow row = from.rows[number];
    if (row.flags & hasNumbers)
      ordered->numbers[static_cast<std::uint32_t>(ordered->rows.size())] = from.numbers.at(number);
    const std::uint32_t text = number > 0 ? from.rows[number - 1].ends.back() : 0;
    const auto moved = static_cast<std::uint32_t>(ordered->text.size());
    ordered->text.append(from.text, text, row.ends.back() - text);
    for (std::uint32_t& end : row.ends) end = end - text + moved;
    ordered->idIndex.add(hashes_[number], static_cast<std::uint32_t>(ordered->rows.size()));
    ordered->rows.push_back(row);
    const std::uint32_t name = number > 0 ? from.foldedEnds[number - 1] : 0;
    ordered->foldedNames.append(from.foldedNames, name, from.foldedEnds[number] - name);
    ordered->foldedEnds.push_back(static_cast<std::uint32_t>(ordered->foldedNames.size()));
  }
  return Catalog(std::move(ordered));
}

Catalog CatalogBuilder::build(Catalog::Time savedAt) {
  contents_->savedAt = savedAt;
  contents_->text.shrink_to_fit();
  contents_->rows.shrink_to_fit();
  contents_->foldedNames.shrink_to_fit();
  contents_->foldedEnds.shrink_to_fit();
  categories_.clear();
  extensions_.clear();
  contents_->idIndex = tableOf(hashes_, hashes_.size());
  hashes_ = {};
  room_ = 0;
  indexed_ = 0;
  return Catalog(std::exchange(contents_, std::make_shared<CatalogContents>()));
}

}  // namespace vantor
