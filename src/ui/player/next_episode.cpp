#include "ui/player/next_episode.h"

#include <algorithm>

#include "playback/playback.h"
#include "playback/stream_keeper.h"
#include "ui/entries/shown_text.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr double offerTime = 30;  // seconds before the end, of a short episode less
constexpr int secondsAfterEnd = 10;

}  // namespace

NextEpisode::NextEpisode(EpisodeQueue& queue, Playback& playback, StreamKeeper& keeper,
                         Clock& clock, QObject* parent)
    : QObject(parent), queue_(queue), playback_(playback), keeper_(keeper), clock_(clock) {
  connect(&queue, &EpisodeQueue::changed, this, [this] {
    refused_ = false;
    update();
  });
  connect(&playback, &Playback::stateChanged, this, &NextEpisode::update);
  connect(&playback, &Playback::fullScreenChanged, this, &NextEpisode::update);
  connect(&keeper, &StreamKeeper::bringingBackChanged, this, &NextEpisode::update);
  connect(playback.transport(), &TransportState::secondsChanged, this, &NextEpisode::update);
  connect(playback.transport(), &TransportState::durationChanged, this, &NextEpisode::update);
}

QString NextEpisode::title() const {
  const auto next = queue_.next();
  return next ? oneLine(next->name) : QString();
}

QString NextEpisode::outlook() const {
  return countsDown() ? tr("Plays in %1 s").arg(secondsLeft_) : tr("Return plays it");
}

bool NextEpisode::refuse() {
  if (!offered_) return false;
  refused_ = true;
  update();
  return true;
}

bool NextEpisode::isNearEnd() const {
  // What was cut off has ended for a moment only.
  if (keeper_.bringingBack()) return false;
  if (playback_.state() == PlaybackState::ended) return true;
  if (playback_.loading() || playback_.state() == PlaybackState::failed) return false;
  // Again from its beginning.
  if (!playback_.followed()) return false;
  const double duration = playback_.transport()->duration();
  const double left = duration - playback_.transport()->seconds();
  return duration > 0 && left <= std::min(offerTime, duration / 10);
}

void NextEpisode::update() {
  const bool offered = !refused_ && queue_.next() && isNearEnd();
  const bool counts =
      offered && playback_.state() == PlaybackState::ended && playback_.fullScreen();
  if (offered == offered_ && counts == countsDown()) return;
  offered_ = offered;
  second_.reset();
  secondsLeft_ = counts ? secondsAfterEnd : 0;
  if (counts) second_ = clock_.callAfter(1s, [this] { countDown(); });
  Q_EMIT changed();
}

void NextEpisode::countDown() {
  if (secondsLeft_ == 1) {
    play();
    // A recording that is being saved keeps what has ended.
    if (playback_.state() == PlaybackState::ended) refuse();
    return;
  }
  --secondsLeft_;
  second_ = clock_.callAfter(1s, [this] { countDown(); });
  Q_EMIT changed();
}

}  // namespace vantor
