#pragma once

#include "core/browsing.h"
#include "core/libraries.h"
#include "core/programme_guide.h"
#include "core/services.h"
#include "core/session.h"
#include "core/show_details.h"
#include "core/sound_setup.h"
#include "core/track_memory.h"
#include "core/viewing_habits.h"
#include "core/watch_record.h"

namespace vantor {

class Playback;

/// The one central state of the program; lives for the whole run. Each topic owns its state and is
/// read directly; what touches several topics is an operation of the model, and each signal of any
/// of them comes when the whole operation is done. Main thread only.
class AppModel final : public QObject {
  Q_OBJECT

 public:
  AppModel(AppServices services, std::unique_ptr<Playback> playback);
  ~AppModel() override;

  const Session& session() const { return session_; }
  const Libraries& libraries() const { return libraries_; }
  const Browsing& browsing() const { return browsing_; }
  Browsing& browsing() { return browsing_; }
  const ProgrammeGuide& guide() const { return guide_; }
  ProgrammeGuide& guide() { return guide_; }
  const ShowDetails& details() const { return details_; }
  const WatchRecord& record() const { return record_; }
  Playback& playback() const { return *playback_; }
  VantorConfiguration& configuration() const { return services_.configuration; }

  // browsing and what depends on it
  void navigate(Section section);
  void setCategory(const QString& id);
  void select(MediaItem item);
  void favorite(MediaItem item);
  /// Takes the entry out of "Continue watching"; where that is shown, the next one is highlighted.
  void stopContinuing(const QString& entryID);
  void load(LibraryKind kind, LoadMode mode) { libraries_.load(kind, mode); }
  void refreshGuide();

  // connection.cpp
  /// Signs in; what the provider, the disk store or the credential store fails with passes through.
  QCoro::Task<> connectAccount(ProviderAccount account, std::stop_token token);
  QCoro::Task<> disconnectAccount(std::stop_token token);

  // playback_handoff.cpp
  void play(MediaItem item);
  /// The entry that plays; absent for a file, and while nothing does.
  std::optional<MediaItem> playing() const;
  void openFile();
  void playFile(const QUrl& file);

  // Set by the interface.
  const std::optional<QString>& notice() const { return notice_.get(); }
  void tell(const QString& notice) { notice_.set(notice); }
  void clearNotice() { notice_.set(std::nullopt); }
  bool showingConnect() const { return showingConnect_.get(); }
  void setShowingConnect(bool showing) { showingConnect_.set(showing); }
  bool showingSettings() const { return showingSettings_.get(); }
  void setShowingSettings(bool showing) { showingSettings_.set(showing); }

 Q_SIGNALS:
  /// Playback has taken an entry, which may have been playing before.
  void handedOver();
  void noticeChanged();
  void showingConnectChanged();
  void showingSettingsChanged();
  /// Everything that an operation changed has been told.
  void settled();

 private:
  struct Restored;

  /// Goes where there is no account and nothing is loaded; every job of the world before is stale.
  void leaveWorld();
  /// Selects what was selected when the section was left, if it is in the list; among the channels
  /// the last one, if nothing was.
  void selectRemembered();
  /// Goes on with what is kept of the user's last account.
  void takeUpRecord();

  // start_up.cpp
  void beginStartUp();
  static QCoro::Task<> startUp(QPointer<AppModel> self, Session::Generation token,
                               Pending<Restored> reading, std::stop_token stop);
  void applyRestored(Restored restored);
  void libraryRestorable();

  // connection.cpp
  static QCoro::Task<> signIn(QPointer<AppModel> self, ProviderAccount account,
                              std::stop_token stop);
  static QCoro::Task<> signOut(QPointer<AppModel> self, std::stop_token stop);
  void signedIn(ProviderAccount account, Session::SignedIn accepted);
  void signedOut();

  // preview_library.cpp
  void explore();

  // playback_handoff.cpp
  static QCoro::Task<> chooseFile(QPointer<AppModel> self, std::stop_token stop);

  const AppServices services_;
  const std::unique_ptr<Playback> playback_;
  Announcements announcements_;
  // In the order in which their changes are told.
  Session session_;
  Libraries libraries_;
  WatchRecord record_;
  // Absent where saved state is not touched.
  std::optional<ViewingHabits> habits_;
  std::optional<TrackMemory> trackMemory_;
  std::optional<SoundSetup> soundSetup_;
  Browsing browsing_;
  ProgrammeGuide guide_;
  ShowDetails details_;
  Announced<std::optional<QString>> notice_;
  Announced<bool> showingConnect_;
  Announced<bool> showingSettings_;
  Announcement handOver_;
  std::optional<MediaItem> handedOver_;  // the last entry that playback took

  std::stop_source startUpReading_;
  Job startUpTask_;
  Job filePanelTask_;
};

}  // namespace vantor
