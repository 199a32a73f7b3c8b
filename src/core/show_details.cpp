#include "core/show_details.h"

#include "platform/trace.h"
#include "provider/error_wording.h"
#include "provider/provider_client.h"

namespace vantor {
namespace {

constexpr qsizetype cachedShows = 30;
// Of all shows together, since one alone may have 200,000.
constexpr qsizetype cachedEpisodes = 50'000;

}  // namespace

ShowDetails::ShowDetails(const AppServices& services, Announcements& announcements,
                         const Session& session, ProgrammeGuide& guide)
    : services_(services),
      announcements_(announcements),
      session_(session),
      guide_(guide),
      episodes_(announcements, *this, &ShowDetails::episodesChanged),
      detailsError_(announcements, *this, &ShowDetails::detailsErrorChanged),
      detailsLoading_(announcements, *this, &ShowDetails::detailsLoadingChanged) {}

void ShowDetails::clear() {
  const Announcements::Scope scope(announcements_);
  task_ = {};
  episodes_.set({});
  guide_.showNone();
  clearError();
  detailsLoading_.set(false);
}

void ShowDetails::forget() {
  clear();
  episodeCache_.clear();
}

void ShowDetails::start(const MediaItem& item) {
  const Announcements::Scope scope(announcements_);
  clear();
  if (item.isExample || !session_.account() || item.kind == LibraryKind::movies) return;
  if (item.kind == LibraryKind::shows) {
    const auto cached = episodeCache_.constFind(item.id);
    if (cached != episodeCache_.constEnd()) return episodes_.set(*cached);
  } else if (guide_.show(item.id)) {
    return;
  }
  task_ = Job::start([self = QPointer(this), account = *session_.account(), item,
                      token = session_.generation()](std::stop_token stop) {
    return fetch(self, account, item, token, stop);
  });
  detailsLoading_.set(true);
}

QCoro::Task<> ShowDetails::fetch(QPointer<ShowDetails> self, ProviderAccount account,
                                 MediaItem item, Session::Generation token, std::stop_token stop) {
  if (!self || !self->session_.isCurrent(token, stop)) co_return;
  QList<MediaItem> episodes;
  GuideEntries entries;
  std::exception_ptr failure;
  const Attempt attempt(providerTrace, "loading episodes or a guide");
  try {
    if (item.kind == LibraryKind::shows) {
      const ProviderClient client(account, self->services_.transport, self->services_.worker);
      const QCoro::Task<QList<MediaItem>> answered = client.episodes(item, stop);
      episodes = co_await answered;
    } else {
      const QCoro::Task<GuideEntries> loaded = self->guide_.load(item, stop);
      entries = co_await loaded;
    }
  } catch (...) {
    attempt.failed();
    failure = std::current_exception();
  }
  // Another selection has dropped this job.
  if (!self || !self->session_.isCurrent(token, stop)) co_return;
  if (failure)
    self->failed(failure);
  else if (item.kind == LibraryKind::shows)
    self->episodesArrived(item.id, episodes);
  else
    self->guideArrived(item.id, entries);
}

void ShowDetails::failed(std::exception_ptr failure) {
  const Announcements::Scope scope(announcements_);
  detailsError_.set(readableError(failure));
  detailsLoading_.set(false);
}

void ShowDetails::episodesArrived(const QString& showID, const QList<MediaItem>& episodes) {
  const Announcements::Scope scope(announcements_);
  episodeCache_.insert(showID, episodes);
  qsizetype cached = 0;
  for (const QList<MediaItem>& each : std::as_const(episodeCache_)) cached += each.size();
  if (episodeCache_.size() > cachedShows || cached > cachedEpisodes)
    episodeCache_ = {{showID, episodes}};
  episodes_.set(episodes);
  detailsLoading_.set(false);
}

void ShowDetails::guideArrived(const QString& channelID, const GuideEntries& entries) {
  const Announcements::Scope scope(announcements_);
  guide_.shownGuideArrived(channelID, entries);
  detailsLoading_.set(false);
}

}  // namespace vantor
