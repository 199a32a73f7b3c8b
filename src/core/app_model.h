#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "core/announcements.h"
#include "core/item_list.h"
#include "core/services.h"
#include "platform/clock.h"
#include "platform/job.h"
#include "platform/pending.h"
#include "platform/preferences.h"
#include "provider/guide_entry.h"
#include "provider/provider_account.h"
#include "provider/provider_details.h"

namespace vantor {

class CatalogDiskStore;
class GuideLoader;
class Playback;

/// Where browsing stood in a section that was left.
struct BrowsePosition {
  QString category;
  QString search;
  std::optional<QString> selectedID;
  std::optional<QString> anchor;
};

/// The one central state of the program; lives for the whole run. Main thread only. Each operation
/// is implemented in the source of its topic; each signal means that the value differs now, and
/// comes when the whole operation is done.
class AppModel final : public QObject {
  Q_OBJECT

 public:
  AppModel(AppServices services, std::unique_ptr<Playback> playback);
  ~AppModel() override;

  Playback& playback() const { return *playback_; }
  /// Whether the saved account is still being read; no state depends on it afterwards.
  bool startingUp() const { return startingUp_; }
  /// Whether the live library of the restored account is yet to be asked for.
  bool restoringLibrary() const { return restoringLibrary_; }

  // browsing.cpp
  const QString& section() const { return section_; }
  std::optional<LibraryKind> kind() const { return libraryKind(section_); }
  Catalog catalog() const;
  const ItemList& items() const { return *sharedItems(); }  // valid until the model changes
  /// The same, to keep for as long as it is shown.
  std::shared_ptr<const ItemList> sharedItems() const;
  const QString& category() const { return category_; }
  const QString& search() const { return search_; }
  const std::optional<MediaItem>& selected() const { return selected_; }
  void setSearch(const QString& search);
  void navigate(const QString& section);
  void setCategory(const QString& id);
  void select(MediaItem item);
  std::optional<QString> browseAnchor(const QString& section) const;
  void setBrowseAnchor(const QString& section, const QString& id);
  bool showingEpisodes() const { return showingEpisodes_; }
  void setShowingEpisodes(bool showing);
  int episodeSeason() const { return episodeSeason_; }
  void setEpisodeSeason(int season);

  // guide.cpp
  /// Programmes of the selected channel.
  const GuideEntries& guide() const { return guide_; }
  /// A channel's programmes as last fetched; absent when there are none to show yet.
  std::optional<GuideEntries> guideOf(const QString& channelID) const;
  /// Whether the channel's last background fetch failed.
  bool guideFailed(const QString& channelID) const { return guideFailures_.contains(channelID); }
  /// Fetches a channel's guide in the background, unless that was done lately or too many run: ask
  /// again whenever the channel is shown.
  void prefetchGuide(const MediaItem& item);
  void refreshGuide();

  // details.cpp
  const QList<MediaItem>& episodes() const { return episodes_; }  // of the selected show
  bool detailsLoading() const { return detailsLoading_; }
  const std::optional<QString>& detailsError() const { return detailsError_; }

  // preview_library.cpp
  bool demo() const { return demo_; }

  // connection.cpp
  const std::optional<ProviderAccount>& account() const { return account_; }
  const std::optional<ProviderDetails>& details() const { return details_; }
  const std::map<LibraryKind, Catalog>& catalogs() const { return catalogs_; }
  const std::set<LibraryKind>& loading() const { return loading_; }
  const std::map<LibraryKind, QString>& errors() const { return errors_; }
  bool busy() const { return busy_; }
  /// Signs in; what the provider, the disk store or the credential store fails with passes through.
  QCoro::Task<> connectAccount(ProviderAccount account, std::stop_token token);
  QCoro::Task<> disconnectAccount(std::stop_token token);
  void load(LibraryKind kind, bool refresh);

  // watch_record.cpp
  const QSet<QString>& favorites() const { return favorites_; }
  void favorite(MediaItem item);

  // playback_handoff.cpp
  void play(MediaItem item);
  void openFile();

  // Set by the interface.
  const std::optional<QString>& notice() const { return notice_; }
  void clearNotice() { setNotice(std::nullopt); }
  bool showingConnect() const { return showingConnect_; }
  void setShowingConnect(bool showing);
  bool showingSettings() const { return showingSettings_; }
  void setShowingSettings(bool showing);

  VantorConfiguration& configuration() const { return services_.configuration; }

 Q_SIGNALS:
  // In the order in which they come.
  void startingUpChanged();
  void restoringLibraryChanged();
  void accountChanged();
  void demoChanged();
  void detailsChanged();
  void loadingChanged();
  void errorsChanged();
  void favoritesChanged();
  void sectionChanged();
  void categoryChanged();
  void searchChanged();
  void catalogsChanged();
  void itemsChanged();
  void selectedChanged();
  void browseAnchorsChanged();
  void showingEpisodesChanged();
  void episodeSeasonChanged();
  void episodesChanged();
  void guideChanged();
  void detailsErrorChanged();
  void detailsLoadingChanged();
  void noticeChanged();
  void showingConnectChanged();
  void showingSettingsChanged();
  void busyChanged();
  void guideCacheChanged(const QString& channelID);     // empty: of every channel
  void guideFailuresChanged(const QString& channelID);  // likewise
  /// Everything that an operation changed has been told.
  void settled();

 private:
  /// Names the current world of account and libraries; a job that holds another is stale.
  using Generation = QUuid;
  using CatalogCopy = Pending<std::optional<Catalog>>;
  struct Restored;

  /// Around everything that changes more than one field.
  using Operation = Announcements<AppModel>::Scope;

  template <class T>
  void assign(T& field, T value, void (AppModel::*changed)()) {
    if (field == value) return;
    const Operation operation(announcements_);
    field = std::move(value);
    announcements_.note(changed);
  }
  template <class Container>
  void clear(Container& field, void (AppModel::*changed)()) {
    if (!field.empty()) assign(field, Container(), changed);
  }
  void setNotice(std::optional<QString> notice);
  void setSelected(std::optional<MediaItem> item);
  void setFavorites(QSet<QString> favorites);
  void setCatalogs(std::map<LibraryKind, Catalog> catalogs);
  /// The list of entries is to be made anew, and told of.
  void itemsDiffer();
  void enterNewWorld();

  // start_up.cpp
  void beginStartUp();
  static QCoro::Task<> startUp(QPointer<AppModel> self, Generation token, Pending<Restored> reading,
                               std::stop_token stop);
  void applyRestored(Restored restored);
  void libraryRestorable();

  // browsing.cpp
  /// Shows the entries of that section, category and search.
  void setFilter(const QString& section, const QString& category, const QString& search);
  void selectRemembered(const QString& id);
  void restoreSelection(LibraryKind kind);
  void resetBrowseState();
  ItemList makeItems() const;

  // guide.cpp
  GuideLoader& loader(const ProviderAccount& account);
  static QCoro::Task<GuideEntries> loadGuide(QPointer<AppModel> self, ProviderAccount account,
                                             MediaItem item, std::stop_token stop);
  static QCoro::Task<> fetchGuide(QPointer<AppModel> self, ProviderAccount account, MediaItem item,
                                  Generation token, std::stop_token stop);
  void guideArrived(const QString& channelID, const GuideEntries& entries);
  void guideMissed(const QString& channelID);
  void selectedGuideArrived(const QString& channelID, const GuideEntries& entries);
  void setGuide(const GuideEntries& entries);
  /// Absent when the channel was never checked, or at a time that is still to come.
  std::optional<WallTime::duration> sinceGuideCheck(const QString& channelID) const;
  /// Keeps a guide that was just fetched; the caller looks after the cache's bound.
  void keepGuide(const QString& channelID, const GuideEntries& entries);
  void forgetGuides();
  void dropGuideFetches();

  // details.cpp
  void startDetails(const MediaItem& item);
  void clearDetails();
  static QCoro::Task<> loadDetails(QPointer<AppModel> self, ProviderAccount account, MediaItem item,
                                   Generation token, std::stop_token stop);
  void setEpisodes(const QList<MediaItem>& episodes);
  void episodesArrived(const QString& showID, const QList<MediaItem>& episodes);
  void detailsFailed(std::exception_ptr failure);

  // preview_library.cpp
  void explore();

  // connection.cpp
  static QCoro::Task<> signIn(QPointer<AppModel> self, ProviderAccount account,
                              std::stop_token stop);
  static QCoro::Task<> signOut(QPointer<AppModel> self, std::stop_token stop);
  static QCoro::Task<> refreshService(QPointer<AppModel> self, std::stop_token stop);
  static QCoro::Task<> loadLibrary(QPointer<AppModel> self, LibraryKind kind, bool refresh,
                                   ProviderAccount account, Generation token, std::stop_token stop);
  bool isCurrent(const Generation& token, const std::stop_token& stop) const;
  void signedIn(ProviderAccount account, ProviderDetails details,
                std::shared_ptr<CatalogDiskStore> disk);
  void signedOut();
  void arrived(LibraryKind kind, const Catalog& catalog);
  void loadFailed(LibraryKind kind, std::exception_ptr failure);
  void loadEnded(LibraryKind kind);
  void setBusy(bool busy);
  /// Makes `account`, or none, the one that is shown, with nothing of it loaded yet.
  void settleIn(std::optional<ProviderAccount> account);
  void replaceDisk(std::shared_ptr<CatalogDiskStore> disk);
  CatalogCopy takeCopy(const QUuid& account, LibraryKind kind);

  // watch_record.cpp
  void readRecord();
  /// Goes on with the record of the user's last account, and forgets other accounts' files.
  void beginRecord();
  void storeProgress(const QString& id, double seconds, double duration);

  // playback_handoff.cpp
  static QCoro::Task<> chooseFile(QPointer<AppModel> self, std::stop_token stop);

  const AppServices services_;
  const std::unique_ptr<Playback> playback_;
  Announcements<AppModel> announcements_;

  QString section_ = QStringLiteral("live");
  std::optional<ProviderAccount> account_;
  std::optional<ProviderDetails> details_;
  std::map<LibraryKind, Catalog> catalogs_;
  std::set<LibraryKind> loading_;
  std::map<LibraryKind, QString> errors_;
  QString category_;
  QString search_;
  std::optional<MediaItem> selected_;
  QHash<QString, QString> browseAnchors_;
  int episodeSeason_ = 0;
  bool showingEpisodes_ = false;
  std::map<QString, BrowsePosition> positions_;
  GuideEntries guide_;
  QHash<QString, GuideEntries> guideCache_;  // by channel entry id, as the next two
  QSet<QString> guideFailures_;
  QHash<QString, WallTime> guideChecked_;  // when last fetched, or last failed
  std::unique_ptr<GuideLoader> guideLoader_;
  QList<MediaItem> episodes_;
  QHash<QString, QList<MediaItem>> episodeCache_;  // by show entry id
  bool detailsLoading_ = false;
  std::optional<QString> detailsError_;
  NumberLists progress_;
  std::optional<QString> notice_;
  bool showingConnect_ = false;
  bool showingSettings_ = false;
  bool demo_ = false;
  QSet<QString> favorites_;
  bool busy_ = false;
  std::vector<Pending<Done>> untilIdle_;  // settled when it is not busy any more
  bool startingUp_ = false;
  bool restoringLibrary_ = false;
  // Jobs take it from here at each use, so that the model's end is the end of its thread.
  std::shared_ptr<CatalogDiskStore> disk_;
  std::optional<CatalogCopy> liveCopy_;  // of this start, until the first load takes it
  Generation generation_ = QUuid::createUuid();

  mutable std::shared_ptr<const ItemList> items_;  // made when first read

  std::map<LibraryKind, Job> tasks_;
  QHash<QString, Job> guideTasks_;  // by channel entry id
  Job detailTask_;
  std::stop_source startUpReading_;
  Job startUpTask_;
  Job filePanelTask_;
};

}  // namespace vantor
