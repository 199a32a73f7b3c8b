// Programmes of the channels that are shown, fetched in the background.
#include <algorithm>

#include "core/app_model.h"
#include "core/guide_bounds.h"
#include "platform/cancelled.h"
#include "platform/clock.h"
#include "provider/guide_loader.h"

namespace vantor {
namespace {

constexpr qsizetype runningFetches = 24;

}  // namespace

std::optional<GuideEntries> AppModel::guideOf(const QString& channelID) const {
  const auto cached = guideCache_.constFind(channelID);
  if (cached == guideCache_.constEnd()) return std::nullopt;
  return *cached;
}

void AppModel::setGuide(const GuideEntries& entries) {
  assign(guide_, entries, &AppModel::guideChanged);
}

std::optional<WallTime::duration> AppModel::sinceGuideCheck(const QString& channelID) const {
  const auto checked = guideChecked_.constFind(channelID);
  if (checked == guideChecked_.constEnd()) return std::nullopt;
  const auto age = services_.clock.now() - *checked;
  if (age < age.zero()) return std::nullopt;
  return age;
}

GuideLoader& AppModel::loader(const ProviderAccount& account) {
  if (!guideLoader_)
    guideLoader_ = std::make_unique<GuideLoader>(
        ProviderClient(account, services_.transport, services_.worker), services_.clock);
  return *guideLoader_;
}

QCoro::Task<GuideEntries> AppModel::loadGuide(QPointer<AppModel> self, ProviderAccount account,
                                              MediaItem item, std::stop_token stop) {
  for (;;) {
    try {
      const QCoro::Task<GuideEntries> loading = self->loader(account).load(item, stop);
      GuideEntries entries = co_await loading;
      co_return entries;
    } catch (const Cancelled&) {
      if (!self || stop.stop_requested()) throw;
    }
    // Only too many loads are turned away: channels that were passed over in a hurry are still
    // being fetched.
    const QCoro::Task<> pause = self->services_.clock.sleep(GuideLoader::waitStep, stop);
    co_await pause;
    if (!self || stop.stop_requested()) throw Cancelled();
  }
}

void AppModel::prefetchGuide(const MediaItem& item) {
  if (demo_ || item.isExample || !account_ || guideTasks_.contains(item.id)) return;
  if (guideTasks_.size() >= runningFetches) return;
  const auto age = sinceGuideCheck(item.id);
  if (age && *age <= guideInterval) return;
  guideTasks_.insert(item.id, Job::start([self = QPointer(this), account = *account_, item,
                                          token = generation_](std::stop_token stop) {
                       return fetchGuide(self, account, item, token, stop);
                     }));
}

QCoro::Task<> AppModel::fetchGuide(QPointer<AppModel> self, ProviderAccount account, MediaItem item,
                                   Generation token, std::stop_token stop) {
  if (!self || !self->isCurrent(token, stop)) co_return;
  GuideEntries entries;
  bool failed = false;
  try {
    const QCoro::Task<GuideEntries> loaded = loadGuide(self, account, item, stop);
    entries = co_await loaded;
  } catch (...) {
    // The row shows that there is no guide; nothing more is said about it.
    failed = true;
  }
  // A fetch that was cancelled leaves even its handle to the reset that cancelled it.
  if (!self || !self->isCurrent(token, stop)) co_return;
  self->guideTasks_.remove(item.id);
  if (failed)
    self->guideMissed(item.id);
  else
    self->guideArrived(item.id, entries);
}

void AppModel::guideMissed(const QString& channelID) {
  const Operation operation(announcements_);
  guideFailures_.insert(channelID);
  guideChecked_.insert(channelID, services_.clock.now());
  announcements_.note(&AppModel::guideFailuresChanged, channelID);
}

void AppModel::keepGuide(const QString& channelID, const GuideEntries& entries) {
  guideCache_.insert(channelID, entries);
  guideChecked_.insert(channelID, services_.clock.now());
  announcements_.note(&AppModel::guideCacheChanged, channelID);
}

void AppModel::guideArrived(const QString& channelID, const GuideEntries& entries) {
  const Operation operation(announcements_);
  keepGuide(channelID, entries);
  if (guideCache_.size() > cachedChannels) {
    const auto oldest = std::min_element(guideChecked_.begin(), guideChecked_.end(),
                                         [now = services_.clock.now()](WallTime a, WallTime b) {
                                           return keptSince(a, now) < keptSince(b, now);
                                         });
    if (guideCache_.remove(oldest.key()))
      announcements_.note(&AppModel::guideCacheChanged, oldest.key());
    guideChecked_.erase(oldest);
  }
  if (guideFailures_.remove(channelID))
    announcements_.note(&AppModel::guideFailuresChanged, channelID);
  if (!selected_ || selected_->id != channelID) return;
  setGuide(entries);
  assign<std::optional<QString>>(detailsError_, std::nullopt, &AppModel::detailsErrorChanged);
}

void AppModel::selectedGuideArrived(const QString& channelID, const GuideEntries& entries) {
  const Operation operation(announcements_);
  keepGuide(channelID, entries);
  if (guideCache_.size() > cachedChannels) {
    // Their times go too, or the rows on screen would wait for them to pass.
    for (auto dropped = guideCache_.cbegin(); dropped != guideCache_.cend(); ++dropped)
      if (dropped.key() != channelID) guideChecked_.remove(dropped.key());
    guideCache_ = {{channelID, entries}};
    announcements_.note(&AppModel::guideCacheChanged, {});
  }
  setGuide(entries);
  assign(detailsLoading_, false, &AppModel::detailsLoadingChanged);
}

void AppModel::forgetGuides() {
  if (guideCache_.isEmpty()) return;
  const Operation operation(announcements_);
  guideCache_.clear();
  announcements_.note(&AppModel::guideCacheChanged, {});
}

void AppModel::dropGuideFetches() {
  for (Job& task : guideTasks_) task.cancel();
  guideTasks_.clear();
  guideLoader_.reset();
  guideChecked_.clear();
  if (guideFailures_.isEmpty()) return;
  const Operation operation(announcements_);
  guideFailures_.clear();
  announcements_.note(&AppModel::guideFailuresChanged, {});
}

void AppModel::refreshGuide() {
  const Operation operation(announcements_);
  dropGuideFetches();
  forgetGuides();
  if (selected_ && selected_->kind == LibraryKind::live) select(*selected_);
}

}  // namespace vantor
