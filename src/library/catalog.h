#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "library/media_item.h"

namespace vantor {

struct CatalogContents;
class CatalogBuilder;

/// What an entry must match; an empty text asks for nothing.
struct CatalogFilter {
  QString category;        // equals the entry's category exactly
  std::string foldedName;  // is contained in the entry's name, both as `folded` makes them
};

/// One loaded library: entries and categories in the provider's order, and when they were read.
///
/// A handle to immutable contents: copies share them, and any thread may read. An entry is kept in
/// a compact form and becomes a `MediaItem` when asked for.
class Catalog {
 public:
  using Time = std::chrono::system_clock::time_point;

  static Catalog empty();

  std::size_t size() const;
  MediaItem item(std::size_t index) const;
  QString id(std::size_t index) const;
  QString name(std::size_t index) const;
  /// The first entry with that id, at the same cost in any library.
  std::optional<std::size_t> indexOf(const QString& id) const;

  const std::vector<MediaCategory>& categories() const;
  Time savedAt() const;

  /// Appends the indexes of the entries that match, in order.
  void match(const CatalogFilter& filter, std::vector<std::uint32_t>& indexes) const;
  bool matches(std::size_t index, const CatalogFilter& filter) const;

  /// Appends those of `rows`, indexes of entries plus `base` each, whose names contain
  /// `foldedName`, which is not empty.
  void narrow(std::span<const std::uint32_t> rows, std::uint32_t base,
              const std::string& foldedName, std::vector<std::uint32_t>& kept) const;

  /// Bytes that the contents hold in memory.
  std::size_t memory() const;

 private:
  friend class CatalogBuilder;
  friend class CatalogWriter;
  explicit Catalog(std::shared_ptr<const CatalogContents> contents);
  std::shared_ptr<const CatalogContents> contents_;
};

}  // namespace vantor
