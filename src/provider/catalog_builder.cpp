#include "provider/catalog_builder.h"

#include <limits>

#include "provider/catalog_contents.h"
#include "provider/folded_text.h"

namespace vantor {

CatalogBuilder::CatalogBuilder(std::size_t expectedText)
    : contents_(std::make_shared<CatalogContents>()) {
  contents_->text.reserve(expectedText);
}

CatalogBuilder::~CatalogBuilder() = default;

std::uint32_t CatalogBuilder::categoryIndex(std::string_view id) {
  // Providers list entries category by category.
  if (!contents_->rows.empty()) {
    const std::uint32_t previous = contents_->rows.back().category;
    if (contents_->categoryIDs[previous] == id) return previous;
  }
  const auto [known, isNew] = categories_.try_emplace(
      std::string(id), static_cast<std::uint32_t>(contents_->categoryIDs.size()));
  if (isNew) contents_->categoryIDs.emplace_back(id);
  return known->second;
}

std::uint16_t CatalogBuilder::extensionIndex(std::string_view extension) {
  if (!contents_->rows.empty()) {
    const std::uint16_t previous = contents_->rows.back().fileExtension;
    if (contents_->extensions[previous] == extension) return previous;
  }
  const auto count = contents_->extensions.size();
  const auto known = extensions_.find(std::string(extension));
  if (known != extensions_.end()) return known->second;
  if (count == std::numeric_limits<std::uint16_t>::max())
    throw std::length_error("too many file extensions");
  extensions_.emplace(extension, static_cast<std::uint16_t>(count));
  contents_->extensions.emplace_back(extension);
  return static_cast<std::uint16_t>(count);
}

void CatalogBuilder::add(const CatalogEntry& entry) {
  CatalogContents& contents = *contents_;
  EntryRow row;
  row.kind = entry.kind;
  row.category = categoryIndex(entry.category);
  row.fileExtension = extensionIndex(entry.fileExtension);
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
}

void CatalogBuilder::add(MediaCategory category) {
  contents_->categories.push_back(std::move(category));
}

Catalog CatalogBuilder::build(Catalog::Time savedAt) {
  contents_->savedAt = savedAt;
  contents_->text.shrink_to_fit();
  contents_->rows.shrink_to_fit();
  contents_->foldedNames.shrink_to_fit();
  contents_->foldedEnds.shrink_to_fit();
  categories_.clear();
  extensions_.clear();
  return Catalog(std::exchange(contents_, std::make_shared<CatalogContents>()));
}

}  // namespace vantor
