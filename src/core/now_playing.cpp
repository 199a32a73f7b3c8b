#include "core/now_playing.h"

#include <algorithm>

#include "core/app_model.h"
#include "core/episode_queue.h"
#include "core/zapping.h"
#include "playback/playback.h"

namespace vantor {
namespace {

// Characters. The bus ends the connection of who sends 64 MB.
constexpr qsizetype longestFact = 1'000;

}  // namespace

NowPlaying::NowPlaying(AppModel& model, Zapping& zapping, EpisodeQueue& episodes,
                       const Clock& clock)
    : model_(model), zapping_(zapping), episodes_(episodes), clock_(clock) {
  connect(&model.playback(), &Playback::sourceChanged, this, &NowPlaying::changed);
  connect(&model.playback().recording(), &Recording::stageChanged, this, &NowPlaying::changed);
  connect(&zapping, &Zapping::changed, this, &NowPlaying::changed);
  connect(&episodes, &EpisodeQueue::changed, this, &NowPlaying::changed);
  connect(&model.guide(), &ProgrammeGuide::guideCacheChanged, this,
          [this](const QString& channelID) {
            const std::optional<QString> id = model_.playback().itemID();
            if (id && (channelID.isEmpty() || channelID == *id)) Q_EMIT changed();
          });
}

std::optional<NowPlaying::Facts> NowPlaying::facts() const {
  if (!model_.playback().source()) return {};
  Facts facts{.title = model_.playback().title().left(longestFact)};
  const std::optional<MediaItem> item = model_.playing();
  if (!item) return facts;
  facts.artwork = item->artwork.value_or(QUrl());
  if (item->kind == LibraryKind::live) {
    facts.channel = facts.title;
    const QString programme = programmeOf(item->id);
    if (!programme.isEmpty()) facts.title = programme.left(longestFact);
  } else if (item->show) {
    facts.show = item->show->left(longestFact);
    facts.season = item->season;
    facts.episode = item->episode;
  }
  return facts;
}

void NowPlaying::keepUp() {
  const std::optional<MediaItem> item = model_.playing();
  if (item && item->kind == LibraryKind::live && programmeOf(item->id).isEmpty())
    model_.guide().prefetchGuide(*item);
}

QString NowPlaying::programmeOf(const QString& channelID) const {
  const GuideEntries entries = model_.guide().guideOf(channelID).value_or(GuideEntries());
  const auto now = std::chrono::floor<ProviderTime::duration>(clock_.now());
  const auto current = std::ranges::find_if(
      entries, [now](const GuideEntry& entry) { return entry.start <= now && now < entry.end; });
  return current == entries.end() ? QString() : current->title;
}

bool NowPlaying::mayChange() const {
  return model_.playback().recording().stage() == Recording::Stage::idle;
}

bool NowPlaying::hasNext() const {
  return mayChange() && (zapping_.canStep() || episodes_.next());
}

bool NowPlaying::hasPrevious() const {
  return mayChange() && (zapping_.canStep() || episodes_.previous());
}

void NowPlaying::next() {
  if (hasNext() && !zapping_.step(1)) episodes_.playNext();
}

void NowPlaying::previous() {
  if (hasPrevious() && !zapping_.step(-1)) episodes_.playPrevious();
}

}  // namespace vantor
