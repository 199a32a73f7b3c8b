#include "ui/player/player_pane.h"

#include "playback/playback.h"
#include "playback/stream_keeper.h"
#include "ui/entries/shown_text.h"

namespace vantor {

using namespace Qt::StringLiterals;

PlayerPane::PlayerPane(Playback& playback, StreamKeeper& keeper, QObject* parent)
    : QObject(parent), playback_(playback), keeper_(keeper) {
  for (const auto signal :
       {&Playback::sourceChanged, &Playback::stateChanged, &Playback::messageChanged,
        &Playback::expandedChanged, &Playback::heldFrameChanged})
    connect(&playback, signal, this, &PlayerPane::changed);
  connect(&playback, &Playback::heldFrameChanged, this, &PlayerPane::heldFrameChanged);
  connect(&keeper, &StreamKeeper::bringingBackChanged, this, &PlayerPane::changed);
  connect(&keeper, &StreamKeeper::bringingBackChanged, this, &PlayerPane::heldFrameChanged);
}

bool PlayerPane::idle() const {
  return !playback_.source();
}

QString PlayerPane::placeholder() const {
  return tr("Choose something to watch");
}

QString PlayerPane::title() const {
  return oneLine(playback_.title());
}

bool PlayerPane::loading() const {
  return playback_.loading() && !keeper_.bringingBack();
}

QString PlayerPane::openingText() const {
  return tr("Opening %1").arg(title());
}

QString PlayerPane::message() const {
  return keeper_.bringingBack() ? QString() : playback_.message().value_or(QString());
}

QString PlayerPane::interruption() const {
  return keeper_.bringingBack() ? tr("Interrupted. Trying again…") : QString();
}

QVariant PlayerPane::heldFrame() const {
  return playback_.heldFrame();
}

bool PlayerPane::holdingFrame() const {
  // The surface itself holds the picture of what comes back, in full.
  return !playback_.heldFrame().isNull() && !keeper_.bringingBack();
}

bool PlayerPane::surfaceVisible() const {
  return playback_.source() && message().isEmpty() && !holdingFrame();
}

QString PlayerPane::stateName() const {
  if (playback_.state() == PlaybackState::playing) return tr("Playing");
  return playback_.state() == PlaybackState::paused ? tr("Paused") : QString();
}

QString PlayerPane::playPauseSymbol() const {
  return playback_.paused() ? u"play.fill"_s : u"pause.fill"_s;
}

QString PlayerPane::expandSymbol() const {
  return playback_.expanded() ? u"arrow.down.right.and.arrow.up.left"_s
                              : u"arrow.up.left.and.arrow.down.right"_s;
}

void PlayerPane::togglePause() {
  playback_.togglePause();
}

void PlayerPane::tapPicture() {
  switch (playback_.state()) {
    case PlaybackState::opening:
    case PlaybackState::suspended:
    case PlaybackState::playing:
    case PlaybackState::paused:
      if (!keeper_.bringingBack()) playback_.togglePause();
      break;
    case PlaybackState::idle:
    case PlaybackState::ended:
    case PlaybackState::failed:
      break;
  }
}

void PlayerPane::toggleExpanded() {
  playback_.setExpanded(!playback_.expanded());
}

void PlayerPane::stop() {
  playback_.stop();
}

void PlayerPane::retry() {
  playback_.retry();
}

void PlayerPane::giveUp() {
  keeper_.giveUp();
}

}  // namespace vantor
