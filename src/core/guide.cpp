// Programmes of the channels that are shown, fetched in the background.
#include <algorithm>

#include "core/app_model.h"
#include "core/guide_bounds.h"
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
  if (guide_.isEmpty() && entries.isEmpty()) return;
  guide_ = entries;
  Q_EMIT guideChanged();
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
    const QCoro::Task<GuideEntries> loaded = self->loader(account).load(item, stop);
    entries = co_await loaded;
  } catch (...) {
    // The row shows that there is no guide; nothing more is said about it.
    failed = true;
  }
  // A fetch that was cancelled leaves even its handle to the reset that cancelled it.
  if (!self || !self->isCurrent(token, stop)) co_return;
  self->guideTasks_.remove(item.id);
  if (failed) {
    self->guideFailures_.insert(item.id);
    self->guideChecked_.insert(item.id, self->services_.clock.now());
    Q_EMIT self->guideFailuresChanged(item.id);
  } else {
    self->guideArrived(item.id, entries);
  }
}

void AppModel::guideArrived(const QString& channelID, const GuideEntries& entries) {
  guideCache_.insert(channelID, entries);
  guideChecked_.insert(channelID, services_.clock.now());
  QString dropped;
  if (guideCache_.size() > cachedChannels) {
    const auto oldest = std::min_element(guideChecked_.begin(), guideChecked_.end());
    dropped = oldest.key();
    guideCache_.remove(dropped);
    guideChecked_.erase(oldest);
  }
  const bool hadFailed = guideFailures_.remove(channelID);
  if (hadFailed) Q_EMIT guideFailuresChanged(channelID);
  if (!dropped.isEmpty()) Q_EMIT guideCacheChanged(dropped);
  Q_EMIT guideCacheChanged(channelID);
  if (selected_ && selected_->id == channelID) setGuide(entries);
}

void AppModel::dropGuideFetches() {
  for (Job& task : guideTasks_) task.cancel();
  guideTasks_.clear();
  guideLoader_.reset();
  guideChecked_.clear();
  if (guideFailures_.isEmpty()) return;
  guideFailures_.clear();
  Q_EMIT guideFailuresChanged({});
}

void AppModel::refreshGuide() {
  dropGuideFetches();
  guideCache_.clear();
  Q_EMIT guideCacheChanged({});
  if (selected_ && selected_->kind == LibraryKind::live) select(*selected_);
}

}  // namespace vantor
