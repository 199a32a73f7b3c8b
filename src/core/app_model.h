#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <map>
#include <memory>
#include <optional>
#include <set>

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
/// is implemented in the source of its topic; each signal means that the value differs now.
class AppModel final : public QObject {
  Q_OBJECT

 public:
  AppModel(AppServices services, std::unique_ptr<Playback> playback);
  ~AppModel() override;

  Playback& playback() const { return *playback_; }
  /// Whether the saved account is still being read; no state depends on it afterwards.
  bool startingUp() const { return startingUp_; }

  // browsing.cpp
  const QString& section() const { return section_; }
  std::optional<LibraryKind> kind() const { return libraryKind(section_); }
  Catalog catalog() const;
  const ItemList& items() const;  // valid until the next change of the model
  const QString& category() const { return category_; }
  const QString& search() const { return search_; }
  const std::optional<MediaItem>& selected() const { return selected_; }
  void setSearch(const QString& search);
  void navigate(const QString& section);
  void setCategory(const QString& id);
  void select(const MediaItem& item);
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

  // playback_handoff.cpp
  const QSet<QString>& favorites() const { return favorites_; }
  void favorite(const MediaItem& item);
  void play(const MediaItem& item);
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
  void startingUpChanged();
  void sectionChanged();
  void accountChanged();
  void detailsChanged();
  void catalogsChanged();
  void loadingChanged();
  void errorsChanged();
  void categoryChanged();
  void searchChanged();
  void selectedChanged();
  void itemsChanged();
  void browseAnchorsChanged();
  void episodeSeasonChanged();
  void showingEpisodesChanged();
  void guideChanged();
  void guideCacheChanged(const QString& channelID);     // empty: of every channel
  void guideFailuresChanged(const QString& channelID);  // likewise
  void episodesChanged();
  void detailsLoadingChanged();
  void detailsErrorChanged();
  void noticeChanged();
  void showingConnectChanged();
  void showingSettingsChanged();
  void demoChanged();
  void favoritesChanged();
  void busyChanged();

 private:
  /// Names the current world of account and libraries; a job that holds another is stale.
  using Generation = QUuid;
  using CatalogCopy = Pending<std::optional<Catalog>>;
  struct Restored;
  /// What the list of entries was made from.
  struct ListKey {
    QString section, category, search;
    std::uint64_t revision = 0;
    bool operator==(const ListKey&) const = default;
  };

  template <class T>
  void assign(T& field, T value, void (AppModel::*changed)()) {
    if (field == value) return;
    field = std::move(value);
    Q_EMIT(this->*changed)();
  }
  void setNotice(std::optional<QString> notice);
  void setSelected(std::optional<MediaItem> item);
  void contentsChanged();
  void enterNewWorld();

  // start_up.cpp
  void beginStartUp();
  static QCoro::Task<> startUp(QPointer<AppModel> self, Generation token, Pending<Restored> reading,
                               std::stop_token stop);
  void applyRestored(Restored restored);

  // browsing.cpp
  void restoreSelection(LibraryKind kind);
  void resetBrowseState();
  ItemList makeItems() const;

  // guide.cpp
  GuideLoader& loader(const ProviderAccount& account);
  static QCoro::Task<> fetchGuide(QPointer<AppModel> self, ProviderAccount account, MediaItem item,
                                  Generation token, std::stop_token stop);
  void guideArrived(const QString& channelID, const GuideEntries& entries);
  void setGuide(const GuideEntries& entries);
  /// Absent when the channel was never checked, or at a time that is still to come.
  std::optional<WallTime::duration> sinceGuideCheck(const QString& channelID) const;
  void dropGuideFetches();

  // details.cpp
  void startDetails(const MediaItem& item);
  void clearDetails();
  static QCoro::Task<> loadDetails(QPointer<AppModel> self, ProviderAccount account, MediaItem item,
                                   Generation token, std::stop_token stop);
  void setEpisodes(const QList<MediaItem>& episodes);

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
  void arrived(LibraryKind kind, const Catalog& catalog);
  void setBusy(bool busy);
  /// Makes `account`, or none, the one that is shown, with nothing of it loaded yet.
  void settleIn(std::optional<ProviderAccount> account);
  void replaceDisk(std::shared_ptr<CatalogDiskStore> disk);
  CatalogCopy takeCopy(const QUuid& account, LibraryKind kind);

  // playback_handoff.cpp
  void storeProgress(const QString& id, double seconds, double duration);
  static QCoro::Task<> chooseFile(QPointer<AppModel> self, std::stop_token stop);

  const AppServices services_;
  const std::unique_ptr<Playback> playback_;

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
  bool startingUp_ = false;
  // Jobs take it from here at each use, so that the model's end is the end of its thread.
  std::shared_ptr<CatalogDiskStore> disk_;
  std::optional<CatalogCopy> liveCopy_;  // of this start, until the first load takes it
  Generation generation_ = QUuid::createUuid();

  std::uint64_t revision_ = 0;  // of catalogues and favourites
  mutable std::optional<ListKey> itemsKey_;
  mutable ItemList items_;

  std::map<LibraryKind, Job> tasks_;
  QHash<QString, Job> guideTasks_;  // by channel entry id
  Job detailTask_;
  std::stop_source startUpReading_;
  Job startUpTask_;
  Job filePanelTask_;
};

}  // namespace vantor
