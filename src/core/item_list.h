#pragma once

#include <QStringList>
#include <array>
#include <cstdint>
#include <vector>

#include "library/catalog.h"

namespace vantor {

/// Entries of one or more libraries: numbers into shared catalogues, not copies. In library order,
/// unless they were appended in another.
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
  /// The same of those entries only that have one of these ids.
  void append(LibraryKind source, const Catalog& catalog, const CatalogFilter& filter,
              const QStringList& ids);
  /// The same in the order of the ids, each of which comes once.
  void appendInOrder(LibraryKind source, const Catalog& catalog, const CatalogFilter& filter,
                     const QStringList& ids);
  /// Those of its entries whose names contain `foldedName`, which is not empty.
  ItemList narrowed(const std::string& foldedName) const;

 private:
  struct Place {
    const Catalog& catalog;
    std::size_t row;
  };
  std::optional<Place> place(std::size_t index) const;

  // The library in the two upper bits, which never fall along the list, the row below.
  std::vector<std::uint32_t> entries_;
  bool rowsRise_ = true;
  std::array<std::optional<Catalog>, allLibraryKinds.size()> sources_;
};

}  // namespace vantor
