#pragma once

#include <QObject>

#include "core/item_list.h"
#include "core/libraries.h"
#include "core/section.h"
#include "core/watch_record.h"

namespace vantor {

/// Which list of entries is shown: section, category and search, and what is selected and opened in
/// it. Main thread only.
class Browsing final : public QObject {
  Q_OBJECT

 public:
  /// The category of the entries that were begun and not finished, newest first. Half of a pair of
  /// code units is no text in Unicode, so no provider has a category of that id.
  static const QString continueWatching;

  Browsing(Announcements& announcements, const Libraries& libraries, const WatchRecord& record);

  Section section() const { return section_.get(); }
  std::optional<LibraryKind> kind() const { return libraryOf(section()); }
  /// The catalogue of the section's library, empty where it has none.
  Catalog catalog() const;
  const ItemList& items() const { return *sharedItems(); }  // valid until the list changes
  /// The same, to keep for as long as it is shown.
  std::shared_ptr<const ItemList> sharedItems() const;
  /// An id of the provider, `continueWatching`, or empty for all.
  const QString& category() const { return category_.get(); }
  /// Whether entries of the section were begun and not finished, so that it has that category.
  bool continueWatchingOffered() const;
  const QString& search() const { return search_.get(); }
  const std::optional<MediaItem>& selected() const { return selected_.get(); }
  /// The entry in the middle of a section's posters.
  std::optional<QString> browseAnchor(Section section) const;
  bool showingEpisodes() const { return showingEpisodes_.get(); }  // of the selected show
  int episodeSeason() const { return episodeSeason_.get(); }       // 0: all

  void setSearch(const QString& search);
  void setBrowseAnchor(Section section, const QString& id);
  void setShowingEpisodes(bool showing) { showingEpisodes_.set(showing); }
  void setEpisodeSeason(int season) { episodeSeason_.set(season); }

  // What the model does, which brings along what else depends on it.
  /// Leaves for another section, where it was left before, with nothing selected.
  void enter(Section section);
  /// The id of the entry that was selected when the section was left.
  std::optional<QString> rememberedID() const;
  void choose(const QString& category);
  void setSelected(std::optional<MediaItem> item);
  /// What the list is made of differs.
  void itemsDiffer();
  void favoritesDiffer();
  void begunDiffer();
  /// Back to the live section, whole, with no section remembered.
  void reset();

 Q_SIGNALS:
  void sectionChanged();
  void categoryChanged();
  void searchChanged();
  void itemsChanged();
  void selectedChanged();
  void showingEpisodesChanged();
  void episodeSeasonChanged();

 private:
  /// Where browsing stood in a section that was left.
  struct Position {
    QString category;
    QString search;
    std::optional<QString> selectedID;
    std::optional<QString> anchor;
  };
  /// A list whose search alone has changed since.
  struct Searched {
    std::shared_ptr<const ItemList> items;
    std::string foldedName;
  };
  /// Shows all entries instead of "Continue watching" when that has none.
  void setFilter(Section section, const QString& wanted, const QString& search);
  bool hasBegun(Section section) const;
  ItemList makeItems() const;

  Announcements& announcements_;
  const Libraries& libraries_;
  const WatchRecord& record_;
  Announced<Section> section_;
  Announced<QString> category_;
  Announced<QString> search_;
  Announcement itemsDiffer_;
  Announced<std::optional<MediaItem>> selected_;
  Announced<bool> showingEpisodes_;
  Announced<int> episodeSeason_;
  std::map<Section, QString> browseAnchors_;
  std::map<Section, Position> positions_;
  mutable std::shared_ptr<const ItemList> items_;  // made when first read
  std::optional<Searched> searched_;
};

}  // namespace vantor
