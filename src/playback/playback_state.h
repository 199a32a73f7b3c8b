#pragma once

namespace vantor {

/// Where the player stands with its source.
enum class PlaybackState : unsigned char {
  idle,       // there is none
  opening,    // no picture or sound has arrived yet
  suspended,  // paused before any has
  playing,
  paused,
  ended,
  failed,
};

enum class PlaybackEvent : unsigned char {
  open,   // a source is to be played
  start,  // its first picture or sound has arrived
  pause,  // by the user, like `resume`
  resume,
  end,  // of a source that had started
  fail,
  stop,
};

/// No picture or sound has arrived yet.
constexpr bool isOpening(PlaybackState state) {
  return state == PlaybackState::opening || state == PlaybackState::suspended;
}

/// Paused, or at an end.
constexpr bool isHalted(PlaybackState state) {
  return state == PlaybackState::suspended || state == PlaybackState::paused ||
         state == PlaybackState::ended || state == PlaybackState::failed;
}

/// The state that follows, the same one where the event means nothing.
PlaybackState next(PlaybackState state, PlaybackEvent event);

}  // namespace vantor
