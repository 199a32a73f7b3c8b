#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <map>

#include "core/session.h"
#include "library/guide_entry.h"
#include "library/media_item.h"
#include "platform/clock.h"
#include "platform/job.h"

namespace vantor {

class GuideLoader;

/// Programmes of the channels that are shown, fetched in the background. Main thread only.
class ProgrammeGuide final : public QObject {
  Q_OBJECT

 public:
  /// `shownArrived` is called within the change when the shown channel's programmes were fetched.
  ProgrammeGuide(const AppServices& services, Announcements& announcements, const Session& session,
                 std::function<void()> shownArrived);
  ~ProgrammeGuide() override;

  /// Programmes of the channel that is shown in full.
  const GuideEntries& guide() const { return guide_.get(); }
  /// A channel's programmes as last fetched; absent when there are none to show yet.
  std::optional<GuideEntries> guideOf(const QString& channelID) const;
  /// Whether the channel's last background fetch failed.
  bool guideFailed(const QString& channelID) const { return guideFailures_.contains(channelID); }
  /// Fetches a channel's guide in the background, unless that was done lately or too many run: ask
  /// again whenever the channel is shown.
  void prefetchGuide(const MediaItem& item);

  // What the model does.
  /// Shows a channel in full; whether its programmes are known and still good.
  bool show(const QString& channelID);
  void showNone();
  /// Fetches now; the caller hands what comes to `shownGuideArrived`.
  QCoro::Task<GuideEntries> load(MediaItem item, std::stop_token stop);
  void shownGuideArrived(const QString& channelID, const GuideEntries& entries);
  /// The account has another server, which is asked for whatever is being fetched.
  void serverChanged();
  /// Drops what was fetched, and when, and cancels what is being fetched.
  void forget();

 Q_SIGNALS:
  void guideChanged();
  void guideCacheChanged(const QString& channelID);     // empty: of every channel
  void guideFailuresChanged(const QString& channelID);  // likewise

 private:
  GuideLoader& loader();
  static QCoro::Task<GuideEntries> load(QPointer<ProgrammeGuide> self, MediaItem item,
                                        std::stop_token stop);
  static QCoro::Task<> fetch(QPointer<ProgrammeGuide> self, MediaItem item,
                             Session::Generation token, std::stop_token stop);
  void arrived(const QString& channelID, const GuideEntries& entries);
  void missed(const QString& channelID);
  /// Absent when the channel was never checked, or at a time that is still to come.
  std::optional<WallTime::duration> sinceCheck(const QString& channelID) const;
  void keep(const QString& channelID, const GuideEntries& entries);

  const AppServices& services_;
  Announcements& announcements_;
  const Session& session_;
  const std::function<void()> shownArrived_;
  Announced<GuideEntries> guide_;
  Announcement cacheDiffers_;
  Announcement failuresDiffer_;
  QString shown_;                            // a channel's entry id, empty: none
  QHash<QString, GuideEntries> guideCache_;  // by channel entry id, as the others
  QSet<QString> guideFailures_;
  QHash<QString, WallTime> guideChecked_;  // when last fetched, or last failed
  std::unique_ptr<GuideLoader> guideLoader_;
  std::map<QString, Job> guideTasks_;
};

}  // namespace vantor
