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

std::shared_ptr<const ItemList> AppModel::sharedItems() const {
  if (!items_) items_ = std::make_shared<const ItemList>(makeItems());
  return items_;
}

void AppModel::itemsDiffer() {
  items_.reset();
  announcements_.note(&AppModel::itemsChanged);
}

void AppModel::setCatalogs(std::map<LibraryKind, Catalog> catalogs) {
  if (catalogs_.empty() && catalogs.empty()) return;
  const Operation operation(announcements_);
  catalogs_ = std::move(catalogs);
  announcements_.note(&AppModel::catalogsChanged);
  itemsDiffer();
}

void AppModel::setFavorites(QSet<QString> favorites) {
  if (favorites_ == favorites) return;
  const Operation operation(announcements_);
  assign(favorites_, std::move(favorites), &AppModel::favoritesChanged);
  if (section_ == favoritesSection) itemsDiffer();
}

void AppModel::setFilter(const QString& section, const QString& category, const QString& search) {
  if (section_ == section && category_ == category && search_ == search) return;
  const Operation operation(announcements_);
  assign(section_, section, &AppModel::sectionChanged);
  assign(category_, category, &AppModel::categoryChanged);
  assign(search_, search, &AppModel::searchChanged);
  itemsDiffer();
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
  setFilter(section_, category_, search);
}

void AppModel::setSelected(std::optional<MediaItem> item) {
  if (selected_ == item) return;
  const Operation operation(announcements_);
  assign(selected_, std::move(item), &AppModel::selectedChanged);
  setEpisodeSeason(0);
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
  QHash<QString, QString> anchors = browseAnchors_;
  anchors.insert(section, id);
  assign(browseAnchors_, std::move(anchors), &AppModel::browseAnchorsChanged);
}

void AppModel::navigate(const QString& target) {
  if (target == section_) return;
  const Operation operation(announcements_);
  BrowsePosition left{category_, search_, std::nullopt, browseAnchor(section_)};
  if (selected_) left.selectedID = selected_->id;
  positions_[section_] = left;

  const auto known = positions_.find(target);
  const BrowsePosition position = known == positions_.end() ? BrowsePosition() : known->second;
  setFilter(target, position.category, position.search);
  setSelected(std::nullopt);
  detailTask_.cancel();
  clearDetails();
  setShowingEpisodes(false);
  setEpisodeSeason(0);
  if (position.anchor) setBrowseAnchor(target, *position.anchor);

  if (const auto library = kind()) load(*library, false);
  if (isCrossLibrary(target))
    for (const LibraryKind library : allLibraryKinds) load(library, false);

  if (position.selectedID) selectRemembered(*position.selectedID);
}

void AppModel::selectRemembered(const QString& id) {
  if (const auto index = items().indexOf(id)) select(items().item(*index));
}

void AppModel::setCategory(const QString& id) {
  const Operation operation(announcements_);
  QHash<QString, QString> anchors = browseAnchors_;
  anchors.remove(section_);
  assign(browseAnchors_, std::move(anchors), &AppModel::browseAnchorsChanged);
  setFilter(section_, id, search_);
  if (!items().empty()) select(items().item(0));
}

void AppModel::select(MediaItem item) {
  const Operation operation(announcements_);
  detailTask_.cancel();
  setSelected(item);
  clearDetails();
  startDetails(item);
}

void AppModel::restoreSelection(LibraryKind library) {
  if (section_ != rawValue(library) || selected_) return;
  const auto position = positions_.find(section_);
  if (position != positions_.end() && position->second.selectedID)
    selectRemembered(*position->second.selectedID);
}

void AppModel::resetBrowseState() {
  const Operation operation(announcements_);
  setSelected(std::nullopt);
  clearDetails();
  setFilter(section_, QString(), QString());
  positions_.clear();
  clear(browseAnchors_, &AppModel::browseAnchorsChanged);
  progress_.clear();
  setShowingEpisodes(false);
  setEpisodeSeason(0);
  dropGuideFetches();
}

}  // namespace vantor
