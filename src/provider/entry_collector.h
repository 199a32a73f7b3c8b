#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

#include "library/catalog_builder.h"

namespace vantor {

/// Whether the numbers that rows have in the whole library are of use.
enum class RowNumbers : unsigned char { skipped, kept };

/// The entries of one or several answers to the entries request of a kind. A row without an id, or
/// with one met before, is skipped. Takes processor time: worker threads only, one at a time.
class EntryCollector {
 public:
  /// `expectedText`: about how many bytes the texts will take.
  EntryCollector(LibraryKind kind, RowNumbers numbers, std::size_t expectedText = 0);

  /// Fails as `forEachRow` does; what was read until then stays.
  void read(QByteArray answer, const std::stop_token& stop);

  std::size_t size() const { return builder_.size(); }
  /// The entries as the whole library has them: by their rows' numbers, one without a number behind
  /// the one it came after. As they came when two have the same number: each answer has its own
  /// then.
  std::vector<std::uint32_t> order() const;
  CatalogBuilder& builder() { return builder_; }
  const CatalogBuilder& builder() const { return builder_; }

 private:
  CatalogBuilder builder_;
  const LibraryKind kind_;
  const RowNumbers numbers_;
  std::vector<std::optional<std::int64_t>> rowNumbers_;
};

}  // namespace vantor
