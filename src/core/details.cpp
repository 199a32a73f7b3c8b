// More about the selected entry: a show's episodes, a channel's programmes.
#include "core/app_model.h"
#include "core/guide_bounds.h"
#include "provider/error_wording.h"
#include "provider/guide_loader.h"

namespace vantor {
namespace {

constexpr qsizetype cachedShows = 30;

/// Once a cache is over its bound, it starts afresh with the newest.
template <class Value>
bool keep(QHash<QString, Value>& cache, const QString& id, const Value& value, qsizetype bound) {
  cache.insert(id, value);
  if (cache.size() <= bound) return false;
  cache = {{id, value}};
  return true;
}

}  // namespace

void AppModel::setEpisodes(const QList<MediaItem>& episodes) {
  if (episodes_.isEmpty() && episodes.isEmpty()) return;
  episodes_ = episodes;
  Q_EMIT episodesChanged();
}

void AppModel::clearDetails() {
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
      const QCoro::Task<GuideEntries> loaded = self->loader(account).load(item, stop);
      entries = co_await loaded;
    }
  } catch (...) {
    failure = std::current_exception();
  }
  if (!self || !self->isCurrent(token, stop)) co_return;
  if (!self->selected_ || self->selected_->id != item.id) co_return;
  if (failure) {
    self->assign(self->detailsError_, std::optional(readableError(failure)),
                 &AppModel::detailsErrorChanged);
  } else if (item.kind == LibraryKind::shows) {
    keep(self->episodeCache_, item.id, episodes, cachedShows);
    self->setEpisodes(episodes);
  } else {
    self->guideChecked_.insert(item.id, self->services_.clock.now());
    const bool cleared = keep(self->guideCache_, item.id, entries, cachedChannels);
    Q_EMIT self->guideCacheChanged(cleared ? QString() : item.id);
    self->setGuide(entries);
  }
  // A listener of these changes may have selected something else.
  if (!self || !self->isCurrent(token, stop)) co_return;
  self->assign(self->detailsLoading_, false, &AppModel::detailsLoadingChanged);
}

}  // namespace vantor
