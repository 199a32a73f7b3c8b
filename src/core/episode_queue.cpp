#include "core/episode_queue.h"

#include <algorithm>

#include "core/app_model.h"
#include "playback/playback.h"

namespace vantor {
namespace {

qsizetype placeOf(const QList<MediaItem>& episodes, const std::optional<QString>& id) {
  const auto found = std::ranges::find(episodes, id, &MediaItem::id);
  return found == episodes.end() ? -1 : found - episodes.begin();
}

}  // namespace

EpisodeQueue::EpisodeQueue(AppModel& model) : model_(model) {
  connect(&model.playback(), &Playback::sourceChanged, this, &EpisodeQueue::onSourceChanged);
}

std::optional<MediaItem> EpisodeQueue::next() const {
  if (place_ < 0 || place_ + 1 == episodes_.size()) return {};
  return episodes_.at(place_ + 1);
}

std::optional<MediaItem> EpisodeQueue::previous() const {
  if (place_ < 1) return {};
  return episodes_.at(place_ - 1);
}

bool EpisodeQueue::playNext() {
  return play(next());
}

bool EpisodeQueue::playPrevious() {
  return play(previous());
}

bool EpisodeQueue::play(const std::optional<MediaItem>& episode) {
  if (episode) model_.play(*episode);
  return episode.has_value();
}

void EpisodeQueue::onSourceChanged() {
  const std::optional<QString> id = model_.playback().itemID();
  const QList<MediaItem>& shown = model_.details().episodes();
  if (placeOf(shown, id) >= 0) episodes_ = shown;
  place_ = placeOf(episodes_, id);
  if (place_ < 0) episodes_.clear();
  Q_EMIT changed();
}

}  // namespace vantor
