#include "core/browsing.h"

#include <algorithm>

#include "library/folded_text.h"

namespace vantor {

const QString Browsing::continueWatching(QChar(0xD800));

Browsing::Browsing(Announcements& announcements, const Libraries& libraries,
                   const WatchRecord& record)
    : announcements_(announcements),
      libraries_(libraries),
      record_(record),
      section_(announcements, *this, &Browsing::sectionChanged, Section::live),
      category_(announcements, *this, &Browsing::categoryChanged),
      search_(announcements, *this, &Browsing::searchChanged),
      itemsDiffer_(announcements, *this, &Browsing::itemsChanged),
      selected_(announcements, *this, &Browsing::selectedChanged),
      showingEpisodes_(announcements, *this, &Browsing::showingEpisodesChanged),
      episodeSeason_(announcements, *this, &Browsing::episodeSeasonChanged) {}

Catalog Browsing::catalog() const {
  const auto library = kind();
  return library ? libraries_.catalog(*library) : Catalog::empty();
}

std::shared_ptr<const ItemList> Browsing::sharedItems() const {
  if (!items_) items_ = std::make_shared<const ItemList>(makeItems());
  return items_;
}

ItemList Browsing::makeItems() const {
  const bool continues = category() == continueWatching;
  const bool listsIDs = continues || section() == Section::favorites;
  const CatalogFilter filter{continues ? QString() : category(), folded(search().toStdString())};
  // The text has grown, so the entries are some of those that it found before.
  if (!listsIDs && searched_ && !filter.foldedName.empty() &&
      filter.foldedName.find(searched_->foldedName) != std::string::npos)
    return searched_->items->narrowed(filter.foldedName);
  ItemList list;
  for (const auto& [library, loaded] : libraries_.catalogs()) {
    if (kind() && library != kind()) continue;
    if (continues)
      list.appendInOrder(library, loaded, filter, record_.begun());
    else if (listsIDs)
      list.append(library, loaded, filter, record_.favorites().values());
    else
      list.append(library, loaded, filter);
  }
  return list;
}

bool Browsing::hasBegun(Section section) const {
  const auto library = libraryOf(section);
  if (!library || library == LibraryKind::live) return false;
  const Catalog loaded = libraries_.catalog(*library);
  return std::ranges::any_of(record_.begun(),
                             [&](const QString& id) { return loaded.indexOf(id).has_value(); });
}

bool Browsing::continueWatchingOffered() const {
  return hasBegun(section());
}

void Browsing::itemsDiffer() {
  const Announcements::Scope scope(announcements_);
  if (category() == continueWatching && !continueWatchingOffered()) category_.set({});
  searched_.reset();
  items_.reset();
  itemsDiffer_.note();
}

void Browsing::favoritesDiffer() {
  if (section() == Section::favorites) itemsDiffer();
}

void Browsing::begunDiffer() {
  if (category() == continueWatching) itemsDiffer();
}

void Browsing::setFilter(Section section, const QString& wanted, const QString& search) {
  const QString category = wanted == continueWatching && !hasBegun(section) ? QString() : wanted;
  if (section_.get() == section && category_.get() == category && search_.get() == search) return;
  const Announcements::Scope scope(announcements_);
  std::optional<Searched> before;
  if (section_.get() == section && category_.get() == category) {
    before = searched_;
    if (items_ && !search_.get().isEmpty())
      before = Searched{items_, folded(search_.get().toStdString())};
  }
  section_.set(section);
  category_.set(category);
  search_.set(search);
  itemsDiffer();
  searched_ = std::move(before);
}

void Browsing::setSearch(const QString& search) {
  setFilter(section(), category(), search);
}

void Browsing::choose(const QString& category) {
  browseAnchors_.erase(section());
  setFilter(section(), category, search());
}

void Browsing::setSelected(std::optional<MediaItem> item) {
  if (selected_.get() == item) return;
  const Announcements::Scope scope(announcements_);
  selected_.set(std::move(item));
  setEpisodeSeason(0);
}

std::optional<QString> Browsing::browseAnchor(Section section) const {
  const auto anchor = browseAnchors_.find(section);
  if (anchor == browseAnchors_.end()) return std::nullopt;
  return anchor->second;
}

void Browsing::setBrowseAnchor(Section section, const QString& id) {
  browseAnchors_[section] = id;
}

void Browsing::enter(Section target) {
  const Announcements::Scope scope(announcements_);
  Position left{category(), search(), std::nullopt, browseAnchor(section())};
  if (selected()) left.selectedID = selected()->id;
  positions_[section()] = left;

  const auto known = positions_.find(target);
  const Position position = known == positions_.end() ? Position() : known->second;
  setFilter(target, position.category, position.search);
  setSelected(std::nullopt);
  setShowingEpisodes(false);
  setEpisodeSeason(0);
  if (position.anchor) setBrowseAnchor(target, *position.anchor);
}

std::optional<QString> Browsing::rememberedID() const {
  const auto position = positions_.find(section());
  return position == positions_.end() ? std::nullopt : position->second.selectedID;
}

void Browsing::reset() {
  const Announcements::Scope scope(announcements_);
  setSelected(std::nullopt);
  setFilter(Section::live, QString(), QString());
  positions_.clear();
  browseAnchors_.clear();
  setShowingEpisodes(false);
  setEpisodeSeason(0);
}

}  // namespace vantor
