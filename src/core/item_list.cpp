#include "core/item_list.h"

#include <algorithm>

namespace vantor {
namespace {

constexpr unsigned rowBits = 30;
constexpr std::uint32_t rowMask = (1u << rowBits) - 1;

std::uint32_t entry(std::size_t source, std::size_t row) {
  return static_cast<std::uint32_t>(source << rowBits | row);
}

}  // namespace

std::optional<ItemList::Place> ItemList::place(std::size_t index) const {
  Q_ASSERT(index < entries_.size());
  if (index >= entries_.size()) return std::nullopt;
  const std::uint32_t entry = entries_[index];
  return Place{*sources_[entry >> rowBits], entry & rowMask};
}

MediaItem ItemList::item(std::size_t index) const {
  const auto at = place(index);
  return at ? at->catalog.item(at->row) : MediaItem();
}

QString ItemList::id(std::size_t index) const {
  const auto at = place(index);
  return at ? at->catalog.id(at->row) : QString();
}

std::optional<std::size_t> ItemList::indexOf(const QString& id) const {
  for (std::size_t source = 0; source < sources_.size(); ++source) {
    if (!sources_[source]) continue;
    const auto row = sources_[source]->indexOf(id);
    if (!row) continue;
    const std::uint32_t wanted = entry(source, *row);
    const auto found = rowsRise_ ? std::lower_bound(entries_.begin(), entries_.end(), wanted)
                                 : std::find(entries_.begin(), entries_.end(), wanted);
    if (found != entries_.end() && *found == wanted)
      return static_cast<std::size_t>(found - entries_.begin());
  }
  return std::nullopt;
}

std::size_t ItemList::count(LibraryKind source) const {
  const auto end = std::lower_bound(entries_.begin(), entries_.end(),
                                    entry(static_cast<std::size_t>(source) + 1, 0));
  return static_cast<std::size_t>(end - entries_.begin());
}

void ItemList::append(LibraryKind source, const Catalog& catalog, const CatalogFilter& filter) {
  const auto number = static_cast<std::size_t>(source);
  sources_[number] = catalog;
  const std::size_t begin = entries_.size();
  catalog.match(filter, entries_);
  for (std::size_t i = begin; i < entries_.size(); ++i) entries_[i] |= entry(number, 0);
}

void ItemList::append(LibraryKind source, const Catalog& catalog, const CatalogFilter& filter,
                      const QStringList& ids) {
  const auto begin = static_cast<std::ptrdiff_t>(entries_.size());
  const bool didRise = rowsRise_;
  appendInOrder(source, catalog, filter, ids);
  std::sort(entries_.begin() + begin, entries_.end());
  rowsRise_ = didRise;
}

void ItemList::appendInOrder(LibraryKind source, const Catalog& catalog,
                             const CatalogFilter& filter, const QStringList& ids) {
  const auto number = static_cast<std::size_t>(source);
  sources_[number] = catalog;
  rowsRise_ = false;
  for (const QString& id : ids) {
    const auto row = catalog.indexOf(id);
    if (row && catalog.matches(*row, filter)) entries_.push_back(entry(number, *row));
  }
}

ItemList ItemList::narrowed(const std::string& foldedName) const {
  ItemList list;
  list.sources_ = sources_;
  auto begin = entries_.begin();
  for (std::size_t source = 0; source < sources_.size(); ++source) {
    const auto end = std::lower_bound(begin, entries_.end(), entry(source + 1, 0));
    if (begin != end)
      sources_[source]->narrow({begin, end}, entry(source, 0), foldedName, list.entries_);
    begin = end;
  }
  return list;
}

}  // namespace vantor
