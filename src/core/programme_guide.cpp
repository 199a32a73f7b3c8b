#include "core/programme_guide.h"

#include <algorithm>

#include "platform/cancelled.h"
#include "platform/trace.h"
#include "provider/guide_loader.h"

namespace vantor {
namespace {

/// How long a channel's guide is good for.
constexpr std::chrono::seconds guideInterval{300};
/// Channels whose guides are kept.
constexpr qsizetype cachedChannels = 128;
constexpr std::size_t runningFetches = 24;

}  // namespace

ProgrammeGuide::ProgrammeGuide(const AppServices& services, Announcements& announcements,
                               const Session& session, std::function<void()> shownArrived)
    : services_(services),
      announcements_(announcements),
      session_(session),
      shownArrived_(std::move(shownArrived)),
      guide_(announcements, *this, &ProgrammeGuide::guideChanged),
      cacheDiffers_(announcements, *this, &ProgrammeGuide::guideCacheChanged),
      failuresDiffer_(announcements, *this, &ProgrammeGuide::guideFailuresChanged) {}

ProgrammeGuide::~ProgrammeGuide() = default;

std::optional<GuideEntries> ProgrammeGuide::guideOf(const QString& channelID) const {
  const auto cached = guideCache_.constFind(channelID);
  if (cached == guideCache_.constEnd()) return std::nullopt;
  return *cached;
}

std::optional<WallTime::duration> ProgrammeGuide::sinceCheck(const QString& channelID) const {
  const auto checked = guideChecked_.constFind(channelID);
  if (checked == guideChecked_.constEnd()) return std::nullopt;
  const auto age = services_.clock.now() - *checked;
  if (age < age.zero()) return std::nullopt;
  return age;
}

bool ProgrammeGuide::show(const QString& channelID) {
  shown_ = channelID;
  const auto age = sinceCheck(channelID);
  const auto cached = guideOf(channelID);
  if (!cached || !age || *age >= guideInterval) return false;
  guide_.set(*cached);
  return true;
}

void ProgrammeGuide::showNone() {
  shown_.clear();
  guide_.set({});
}

GuideLoader& ProgrammeGuide::loader() {
  if (!guideLoader_)
    guideLoader_ = std::make_unique<GuideLoader>(
        ProviderClient(*session_.account(), services_.transport, services_.worker),
        services_.clock);
  return *guideLoader_;
}

void ProgrammeGuide::serverChanged() {
  guideLoader_.reset();
}

QCoro::Task<GuideEntries> ProgrammeGuide::load(MediaItem item, std::stop_token stop) {
  return load(QPointer(this), std::move(item), stop);
}

QCoro::Task<GuideEntries> ProgrammeGuide::load(QPointer<ProgrammeGuide> self, MediaItem item,
                                               std::stop_token stop) {
  for (;;) {
    try {
      const QCoro::Task<GuideEntries> loading = self->loader().load(item, stop);
      GuideEntries entries = co_await loading;
      co_return entries;
    } catch (const Cancelled&) {
      if (!self || stop.stop_requested()) throw;
    }
    // Turned away, since channels that were passed over in a hurry are still being fetched; or
    // asked of a server that is no longer the account's.
    const QCoro::Task<> pause = self->services_.clock.sleep(GuideLoader::waitStep, stop);
    co_await pause;
    if (!self || stop.stop_requested()) throw Cancelled();
  }
}

void ProgrammeGuide::prefetchGuide(const MediaItem& item) {
  if (session_.demo() || item.isExample || !session_.account()) return;
  if (guideTasks_.contains(item.id) || guideTasks_.size() >= runningFetches) return;
  const auto age = sinceCheck(item.id);
  if (age && *age <= guideInterval) return;
  guideTasks_[item.id] =
      Job::start([self = QPointer(this), item, token = session_.generation()](
                     std::stop_token stop) { return fetch(self, item, token, stop); });
}

QCoro::Task<> ProgrammeGuide::fetch(QPointer<ProgrammeGuide> self, MediaItem item,
                                    Session::Generation token, std::stop_token stop) {
  if (!self || !self->session_.isCurrent(token, stop)) co_return;
  GuideEntries entries;
  bool failed = false;
  const Attempt attempt(providerTrace, "loading the guide of a row");
  try {
    const QCoro::Task<GuideEntries> loaded = load(self, item, stop);
    entries = co_await loaded;
  } catch (...) {
    // The row shows that there is no guide; nothing more is said about it.
    attempt.failed();
    failed = true;
  }
  // A fetch that was cancelled leaves even its handle to the reset that cancelled it.
  if (!self || !self->session_.isCurrent(token, stop)) co_return;
  self->guideTasks_.erase(item.id);
  if (failed)
    self->missed(item.id);
  else
    self->arrived(item.id, entries);
}

void ProgrammeGuide::missed(const QString& channelID) {
  guideFailures_.insert(channelID);
  guideChecked_.insert(channelID, services_.clock.now());
  failuresDiffer_.note(channelID);
}

void ProgrammeGuide::keep(const QString& channelID, const GuideEntries& entries) {
  guideCache_.insert(channelID, entries);
  guideChecked_.insert(channelID, services_.clock.now());
  cacheDiffers_.note(channelID);
}

void ProgrammeGuide::arrived(const QString& channelID, const GuideEntries& entries) {
  const Announcements::Scope scope(announcements_);
  keep(channelID, entries);
  if (guideCache_.size() > cachedChannels) {
    const auto oldest = std::min_element(guideChecked_.begin(), guideChecked_.end(),
                                         [now = services_.clock.now()](WallTime a, WallTime b) {
                                           return keptSince(a, now) < keptSince(b, now);
                                         });
    if (guideCache_.remove(oldest.key())) cacheDiffers_.note(oldest.key());
    guideChecked_.erase(oldest);
  }
  if (guideFailures_.remove(channelID)) failuresDiffer_.note(channelID);
  if (shown_ != channelID) return;
  guide_.set(entries);
  shownArrived_();
}

void ProgrammeGuide::shownGuideArrived(const QString& channelID, const GuideEntries& entries) {
  const Announcements::Scope scope(announcements_);
  keep(channelID, entries);
  if (guideCache_.size() > cachedChannels) {
    // Their times go too, or the rows on screen would wait for them to pass.
    for (auto dropped = guideCache_.cbegin(); dropped != guideCache_.cend(); ++dropped)
      if (dropped.key() != channelID) guideChecked_.remove(dropped.key());
    guideCache_ = {{channelID, entries}};
    cacheDiffers_.note();
  }
  guide_.set(entries);
}

void ProgrammeGuide::forget() {
  const Announcements::Scope scope(announcements_);
  // Who waits for a fetch has to ask again.
  if (!guideTasks_.empty() || !guideCache_.isEmpty()) cacheDiffers_.note();
  guideTasks_.clear();
  guideLoader_.reset();
  guideChecked_.clear();
  if (!guideFailures_.isEmpty()) {
    guideFailures_.clear();
    failuresDiffer_.note();
  }
  guideCache_.clear();
}

}  // namespace vantor
