#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include "core/programme_guide.h"

namespace vantor {

/// More about the selected entry, fetched from the provider: a show's episodes, and through the
/// guide a channel's programmes. Main thread only.
class ShowDetails final : public QObject {
  Q_OBJECT

 public:
  ShowDetails(const AppServices& services, Announcements& announcements, const Session& session,
              ProgrammeGuide& guide);

  const QList<MediaItem>& episodes() const { return episodes_.get(); }  // of the selected show
  bool detailsLoading() const { return detailsLoading_.get(); }
  /// What fetching them failed with, one of the system's sentences.
  const std::optional<QString>& detailsError() const { return detailsError_.get(); }

  // What the model does.
  /// Fetches what there is about an entry that was just selected, instead of about the last one.
  void start(const MediaItem& item);
  void clear();
  void clearError() { detailsError_.set(std::nullopt); }
  /// Drops the episodes of every show.
  void forget();

 Q_SIGNALS:
  void episodesChanged();
  void detailsErrorChanged();
  void detailsLoadingChanged();

 private:
  static QCoro::Task<> fetch(QPointer<ShowDetails> self, ProviderAccount account, MediaItem item,
                             Session::Generation token, std::stop_token stop);
  void failed(std::exception_ptr failure);
  void episodesArrived(const QString& showID, const QList<MediaItem>& episodes);
  void guideArrived(const QString& channelID, const GuideEntries& entries);

  const AppServices& services_;
  Announcements& announcements_;
  const Session& session_;
  ProgrammeGuide& guide_;
  Announced<QList<MediaItem>> episodes_;
  Announced<std::optional<QString>> detailsError_;
  Announced<bool> detailsLoading_;
  QHash<QString, QList<MediaItem>> episodeCache_;  // by show entry id
  Job task_;                                       // of the entry that is selected now
};

}  // namespace vantor
