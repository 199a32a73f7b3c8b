#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "library/catalog.h"

namespace vantor {

/// Entries of one or more libraries, in library order: numbers into shared catalogues, not copies.
/// An index that the list does not have is a mistake of the caller: it ends a debug build, and is
/// answered with nothing otherwise.
class ItemList {
 public:
  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }
  MediaItem item(std::size_t index) const;
  QString id(std::size_t index) const;
  /// The position of the first entry with that id.
  std::optional<std::size_t> indexOf(const QString& id) const;
  /// How many are of the first sources, up to that one.
  std::size_t count(LibraryKind source) const;

  /// Appends the entries of `catalog`, the library `source`, that match. Sources come in order.
  void append(LibraryKind source, const Catalog& catalog, const CatalogFilter& filter);
  /// Keeps the entries whose id is one of `ids`.
  void keepOnly(const std::vector<QString>& ids);

 private:
  struct Place {
    const Catalog& catalog;
    std::size_t row;
  };
  std::optional<Place> place(std::size_t index) const;

  // The library in the two upper bits, the row below; rises along the list.
  std::vector<std::uint32_t> entries_;
  std::array<std::optional<Catalog>, allLibraryKinds.size()> sources_;
};

}  // namespace vantor
