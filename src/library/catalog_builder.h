#pragma once

#include <string>
#include <unordered_map>

#include "library/catalog.h"
#include "library/text_hash.h"

namespace vantor {

/// One entry as its reader hands it over; the views need to live during the call only.
struct CatalogEntry {
  std::optional<std::string_view> id;  // absent: "kind:providerID"
  std::string_view providerID;
  LibraryKind kind = LibraryKind::live;
  std::string_view name;
  std::string_view category;
  std::optional<std::string_view> artwork;  // an absolute address
  std::string_view fileExtension;
  std::optional<std::string_view> plot;
  std::optional<std::string_view> rating;
  std::optional<std::string_view> year;
  std::optional<int> episode;
  std::optional<int> season;
  bool isExample = false;
};

/// Collects entries and categories into a `Catalog`. UTF-8 texts. Any thread, one at a time.
class CatalogBuilder {
 public:
  /// `expectedText`: about how many bytes the texts will take.
  explicit CatalogBuilder(std::size_t expectedText = 0);
  CatalogBuilder(CatalogBuilder&&) = default;
  CatalogBuilder& operator=(CatalogBuilder&&) = default;
  ~CatalogBuilder();

  void add(const CatalogEntry& entry);
  /// The same unless an entry with its id was added; whether it was not.
  bool addNew(const CatalogEntry& entry);
  std::size_t size() const { return hashes_.size(); }  // entries
  void add(MediaCategory category);
  const std::vector<MediaCategory>& categories() const;
  /// Bytes that what was added holds in memory.
  std::size_t memory() const;
  /// A catalogue of what was added so far, with the entry that was added as number `order[i]` in
  /// row i.
  Catalog inOrder(const std::vector<std::uint32_t>& order, Catalog::Time savedAt) const;
  /// The builder is empty afterwards.
  Catalog build(Catalog::Time savedAt);

 private:
  using Indexes = std::unordered_map<std::string, std::uint32_t, TextHash>;
  static std::uint32_t indexOf(std::string_view text, Indexes& indexes,
                               std::vector<std::string>& texts);

  void add(const CatalogEntry& entry, std::uint64_t hash);
  void indexAdded();

  std::shared_ptr<CatalogContents> contents_;
  std::vector<std::uint64_t> hashes_;  // of the ids, by row
  std::size_t room_ = 0;               // rows that the table of ids has room for
  std::size_t indexed_ = 0;            // rows that are in it
  std::string id_;                     // room for one
  Indexes categories_;
  Indexes extensions_;
};

}  // namespace vantor
