#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace vantor {

/// A hash table from texts that lie elsewhere to the rows that they belong to: it holds only the
/// numbers of rows, whoever asks compares the texts.
class EntryIndex {
 public:
  /// Takes up to so many rows.
  explicit EntryIndex(std::size_t rows = 0) : tags_(rows + rows / 2 + 1), rows_(tags_.size()) {}

  void add(std::uint64_t hash, std::uint32_t row) {
    std::size_t slot = firstSlot(hash);
    while (tags_[slot] != 0) slot = next(slot);
    tags_[slot] = tagOf(hash);
    rows_[slot] = row;
  }

  /// The first row that was added under this hash and `isWanted`.
  template <class IsWanted>
  std::optional<std::uint32_t> find(std::uint64_t hash, IsWanted isWanted) const {
    for (std::size_t slot = firstSlot(hash); tags_[slot] != 0; slot = next(slot))
      if (tags_[slot] == tagOf(hash) && isWanted(rows_[slot])) return rows_[slot];
    return std::nullopt;
  }

  /// In bytes.
  std::size_t memory() const { return tags_.capacity() + rows_.capacity() * sizeof(std::uint32_t); }

 private:
  std::size_t firstSlot(std::uint64_t hash) const {
    return std::uint64_t{static_cast<std::uint32_t>(hash)} * tags_.size() >> 32;
  }
  static std::uint8_t tagOf(std::uint64_t hash) {
    return static_cast<std::uint8_t>(hash >> 56 | 1);
  }
  std::size_t next(std::size_t slot) const { return slot + 1 == tags_.size() ? 0 : slot + 1; }

  // Of each slot: a part of the hash, so that few rows are looked at in vain; 0 is free.
  std::vector<std::uint8_t> tags_;
  std::vector<std::uint32_t> rows_;
};

}  // namespace vantor
