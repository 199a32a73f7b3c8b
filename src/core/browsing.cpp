// Which list of entries is shown: section, category, search and selection.
#include "core/app_model.h"
#include "provider/folded_text.h"

namespace vantor {
namespace {

const QString favoritesSection = QStringLiteral("favorites");
const QString searchSection = QStringLiteral("search");

bool isCrossLibrary(const QString& section) {
  return section == favoritesSection || section == searchSection;
}

}  // namespace

Catalog AppModel::catalog() const {
  const auto library = kind();
  if (!library) return Catalog::empty();
  const auto loaded = catalogs_.find(*library);
  return loaded == catalogs_.end() ? Catalog::empty() : loaded->second;
}

const ItemList& AppModel::items() const {
  // Made anew only when something it depends on differs, so that every read is exact.
  const ListKey key{section_, category_, search_, revision_};
  if (itemsKey_ != key) {
    items_ = makeItems();
    itemsKey_ = key;
  }
  return items_;
}

ItemList AppModel::makeItems() const {
  ItemList list;
  const CatalogFilter filter{category_, folded(search_.toStdString())};
  for (const auto& [library, loaded] : catalogs_)
    if (isCrossLibrary(section_) || library == kind()) list.append(library, loaded, filter);
  if (section_ == favoritesSection)
    list.keepOnly(std::vector<QString>(favorites_.begin(), favorites_.end()));
  return list;
}

void AppModel::setSearch(const QString& search) {
  if (search_ == search) return;
  search_ = search;
  Q_EMIT searchChanged();
  Q_EMIT itemsChanged();
}

void AppModel::setSelected(std::optional<MediaItem> item) {
  assign(selected_, std::move(item), &AppModel::selectedChanged);
}

void AppModel::setShowingEpisodes(bool showing) {
  assign(showingEpisodes_, showing, &AppModel::showingEpisodesChanged);
}

void AppModel::setEpisodeSeason(int season) {
  assign(episodeSeason_, season, &AppModel::episodeSeasonChanged);
}

std::optional<QString> AppModel::browseAnchor(const QString& section) const {
  const auto anchor = browseAnchors_.find(section);
  if (anchor == browseAnchors_.end()) return std::nullopt;
  return *anchor;
}

void AppModel::setBrowseAnchor(const QString& section, const QString& id) {
  if (browseAnchor(section) == id) return;
  browseAnchors_.insert(section, id);
  Q_EMIT browseAnchorsChanged();
}

void AppModel::navigate(const QString& target) {
  if (target == section_) return;
  BrowsePosition left{category_, search_, std::nullopt, browseAnchor(section_)};
  if (selected_) left.selectedID = selected_->id;
  positions_[section_] = left;

  const auto known = positions_.find(target);
  const BrowsePosition position = known == positions_.end() ? BrowsePosition() : known->second;
  section_ = target;
  category_ = position.category;
  search_ = position.search;
  Q_EMIT sectionChanged();
  Q_EMIT categoryChanged();
  Q_EMIT searchChanged();
  Q_EMIT itemsChanged();
  setSelected(std::nullopt);
  detailTask_.cancel();
  clearDetails();
  setShowingEpisodes(false);
  setEpisodeSeason(0);
  if (position.anchor) setBrowseAnchor(target, *position.anchor);

  if (const auto library = kind()) load(*library, false);
  if (isCrossLibrary(target))
    for (const LibraryKind library : allLibraryKinds) load(library, false);

  if (!position.selectedID) return;
  if (const auto index = items().indexOf(*position.selectedID)) select(items().item(*index));
}

void AppModel::setCategory(const QString& id) {
  if (browseAnchors_.remove(section_) > 0) Q_EMIT browseAnchorsChanged();
  if (category_ != id) {
    category_ = id;
    Q_EMIT categoryChanged();
    Q_EMIT itemsChanged();
  }
  if (!items().empty()) select(items().item(0));
}

void AppModel::select(const MediaItem& item) {
  // Of its own: `item` may be the selection itself.
  const MediaItem chosen = item;
  detailTask_.cancel();
  setSelected(chosen);
  clearDetails();
  startDetails(chosen);
}

void AppModel::restoreSelection(LibraryKind library) {
  if (section_ != rawValue(library) || selected_) return;
  const auto position = positions_.find(section_);
  if (position == positions_.end() || !position->second.selectedID) return;
  if (const auto index = items().indexOf(*position->second.selectedID))
    select(items().item(*index));
}

void AppModel::resetBrowseState() {
  setSelected(std::nullopt);
  clearDetails();
  const bool filtered = !category_.isEmpty() || !search_.isEmpty();
  assign(category_, QString(), &AppModel::categoryChanged);
  assign(search_, QString(), &AppModel::searchChanged);
  if (filtered) Q_EMIT itemsChanged();
  positions_.clear();
  browseAnchors_.clear();
  Q_EMIT browseAnchorsChanged();
  progress_.clear();
  setShowingEpisodes(false);
  setEpisodeSeason(0);
  dropGuideFetches();
}

}  // namespace vantor
