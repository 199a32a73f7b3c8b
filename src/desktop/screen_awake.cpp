#include "desktop/screen_awake.h"

#include "desktop/idle_inhibitor.h"
#include "playback/playback.h"
#include "playback/stream_keeper.h"

namespace vantor {

ScreenAwake::ScreenAwake(Playback& playback, const StreamKeeper& keeper, const MediaEngine& engine,
                         IdleInhibitor& inhibitor)
    : playback_(playback), keeper_(keeper), engine_(engine), inhibitor_(inhibitor) {
  connect(&playback, &Playback::stateChanged, this, &ScreenAwake::follow);
  // A picture may join the sound later.
  connect(playback.transport(), &TransportState::secondsChanged, this, &ScreenAwake::follow);
  connect(&keeper, &StreamKeeper::bringingBackChanged, this, &ScreenAwake::follow);
}

void ScreenAwake::setContinues(bool continues) {
  continues_ = continues;
  follow();
}

bool ScreenAwake::isWatched() const {
  // Without a key pressed for a while, a short break would turn the screen off at once.
  if (keeper_.bringingBack() || continues_ || playback_.state() == PlaybackState::opening)
    return watched_;
  return playback_.state() == PlaybackState::playing && engine_.status().decodedVideo > 0;
}

void ScreenAwake::follow() {
  if (watched_ == isWatched()) return;
  watched_ = !watched_;
  inhibitor_.setWanted(watched_);
}

}  // namespace vantor
