#pragma once

#include "provider/entry_collector.h"

namespace vantor {

/// How far a library has come that is asked for by category.
struct LoadProgress {
  std::size_t entries = 0;
  std::size_t answers = 0;  // of `categories`
  std::size_t categories = 0;
  bool operator==(const LoadProgress&) const = default;
};

struct CatalogPart {
  LoadProgress progress;
  /// All that has come, each time when that is twice as much as the time before.
  std::optional<Catalog> soFar;
};

struct AskedCategory {
  QString id;
  bool named = true;  // by the provider
};

/// A library that is too large for one answer, collected from those for each of its categories.
/// Fails with `OversizedBody` when it is too large for that as well, and as `forEachRow` does.
/// Worker threads only, one at a time.
class CatalogByCategory {
 public:
  explicit CatalogByCategory(LibraryKind kind) : entries_(kind, RowNumbers::kept) {}

  /// Reads the answer to the categories request. The categories to ask for: those that it names,
  /// then "0", which servers call that of the entries without one. None when there is nothing to
  /// ask by, or too much.
  std::vector<AskedCategory> readCategories(QByteArray answer, const std::stop_token& stop);
  /// Reads the answer for one of them.
  CatalogPart readEntries(QByteArray answer, const std::stop_token& stop);
  Catalog whole() const;

 private:
  EntryCollector entries_;
  LoadProgress progress_;
  qsizetype answered_ = 0;  // bytes
  std::size_t shown_ = 0;   // entries
};

}  // namespace vantor
