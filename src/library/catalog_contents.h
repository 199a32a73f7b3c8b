#pragma once

#include <array>
#include <string>
#include <unordered_map>

#include "library/catalog.h"
#include "library/entry_index.h"

namespace vantor {

/// The texts of an entry, in the order in which they follow each other in `CatalogContents::text`.
enum class EntryText : std::size_t { id, providerID, name, artwork, plot, rating, year };
inline constexpr std::size_t entryTexts = 7;

enum EntryFlag : std::uint8_t {
  hasOwnID = 1,  // else "kind:providerID"
  hasArtwork = 2,
  hasPlot = 4,
  hasRating = 8,
  hasYear = 16,
  hasNumbers = 32,  // episode or season, in `CatalogContents::numbers`
  isSample = 64,
};

struct EntryRow {
  std::array<std::uint32_t, entryTexts>
      ends{};                       // offsets in `text`; each begins where the last ends
  std::uint32_t category = 0;       // in `categoryIDs`
  std::uint32_t fileExtension = 0;  // in `extensions`
  LibraryKind kind = LibraryKind::live;
  std::uint8_t flags = 0;
};

struct EntryNumbers {
  std::optional<int> episode;
  std::optional<int> season;
};

/// A library in few large blocks: one for all texts, one for the rows, one for the folded names.
struct CatalogContents {
  std::string text;  // UTF-8
  std::vector<EntryRow> rows;
  std::vector<std::string> categoryIDs;  // every category id that an entry names
  std::vector<std::string> extensions;
  std::unordered_map<std::uint32_t, EntryNumbers> numbers;  // by row
  std::string foldedNames;                                  // each followed by the separator
  std::vector<std::uint32_t> foldedEnds;  // by row, the offset after its separator
  std::vector<MediaCategory> categories;
  EntryIndex idIndex;  // by the hash of an id
  Catalog::Time savedAt;

  std::size_t memory() const;  // bytes

  // Not a byte of UTF-8, so no name and no search text holds it.
  static constexpr char separator = '\xFF';

  std::string_view textOf(std::size_t row, EntryText which) const {
    const auto index = static_cast<std::size_t>(which);
    const std::uint32_t begin = index > 0 ? rows[row].ends[index - 1]
                                : row > 0 ? rows[row - 1].ends.back()
                                          : 0;
    return std::string_view(text).substr(begin, rows[row].ends[index] - begin);
  }

  /// May lie in `buffer`.
  std::string_view idOf(std::size_t row, std::string& buffer) const {
    if (rows[row].flags & hasOwnID) return textOf(row, EntryText::id);
    buffer.assign(idPrefix(rows[row].kind)).append(textOf(row, EntryText::providerID));
    return buffer;
  }

  std::string_view foldedNameOf(std::size_t row) const {
    const std::uint32_t begin = row > 0 ? foldedEnds[row - 1] : 0;
    return std::string_view(foldedNames).substr(begin, foldedEnds[row] - begin - 1);
  }
};

}  // namespace vantor
