// More about the selected entry: a show's episodes, a channel's programmes.
#include "core/app_model.h"
#include "core/guide_bounds.h"
#include "provider/error_wording.h"
#include "provider/guide_loader.h"

namespace vantor {
namespace {

constexpr qsizetype cachedShows = 30;

}  // namespace

void AppModel::setEpisodes(const QList<MediaItem>& episodes) {
  assign(episodes_, episodes, &AppModel::episodesChanged);
}

void AppModel::clearDetails() {
  const Operation operation(announcements_);
  setEpisodes({});
  setGuide({});
  assign<std::optional<QString>>(detailsError_, std::nullopt, &AppModel::detailsErrorChanged);
  assign(detailsLoading_, false, &AppModel::detailsLoadingChanged);
}

void AppModel::startDetails(const MediaItem& item) {
  if (item.isExample || !account_ || item.kind == LibraryKind::movies) return;
  if (item.kind == LibraryKind::shows) {
    const auto cached = episodeCache_.constFind(item.id);
    if (cached != episodeCache_.constEnd()) return setEpisodes(*cached);
  } else if (const auto cached = guideOf(item.id)) {
    const auto age = sinceGuideCheck(item.id);
    if (age && *age < guideInterval) return setGuide(*cached);
  }
  detailTask_ = Job::start([self = QPointer(this), account = *account_, item,
                            token = generation_](std::stop_token stop) {
    return loadDetails(self, account, item, token, stop);
  });
  assign(detailsLoading_, true, &AppModel::detailsLoadingChanged);
}

QCoro::Task<> AppModel::loadDetails(QPointer<AppModel> self, ProviderAccount account,
                                    MediaItem item, Generation token, std::stop_token stop) {
  if (!self || !self->isCurrent(token, stop)) co_return;
  QList<MediaItem> episodes;
  GuideEntries entries;
  std::exception_ptr failure;
  try {
    if (item.kind == LibraryKind::shows) {
      const ProviderClient client(account, self->services_.transport, self->services_.worker);
      const QCoro::Task<QList<MediaItem>> answered = client.episodes(item, stop);
      episodes = co_await answered;
    } else {
      const QCoro::Task<GuideEntries> loaded = loadGuide(self, account, item, stop);
      entries = co_await loaded;
    }
  } catch (...) {
    failure = std::current_exception();
  }
  if (!self || !self->isCurrent(token, stop)) co_return;
  if (!self->selected_ || self->selected_->id != item.id) co_return;
  if (failure)
    self->detailsFailed(failure);
  else if (item.kind == LibraryKind::shows)
    self->episodesArrived(item.id, episodes);
  else
    self->selectedGuideArrived(item.id, entries);
}

void AppModel::detailsFailed(std::exception_ptr failure) {
  const Operation operation(announcements_);
  assign(detailsError_, std::optional(readableError(failure)), &AppModel::detailsErrorChanged);
  assign(detailsLoading_, false, &AppModel::detailsLoadingChanged);
}

void AppModel::episodesArrived(const QString& showID, const QList<MediaItem>& episodes) {
  const Operation operation(announcements_);
  episodeCache_.insert(showID, episodes);
  if (episodeCache_.size() > cachedShows) episodeCache_ = {{showID, episodes}};
  setEpisodes(episodes);
  assign(detailsLoading_, false, &AppModel::detailsLoadingChanged);
}

}  // namespace vantor
