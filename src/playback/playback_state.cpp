#include "playback/playback_state.h"

#include <array>
#include <cstddef>

namespace vantor {
namespace {

using enum PlaybackState;
using After = std::array<PlaybackState, 7>;

// What comes after each event, in the order of the events.
constexpr std::array<After, 7> table = {{
    // clang-format off
    //                open       start      pause      resume     end        fail       stop
    /* idle */      {opening,   idle,      idle,      idle,      idle,      idle,      idle},
    /* opening */   {opening,   playing,   suspended, opening,   opening,   failed,    idle},
    /* suspended */ {opening,   paused,    suspended, opening,   suspended, failed,    idle},
    /* playing */   {opening,   playing,   paused,    playing,   ended,     failed,    idle},
    /* paused */    {opening,   paused,    paused,    playing,   ended,     failed,    idle},
    /* ended */     {opening,   ended,     ended,     playing,   ended,     failed,    idle},
    /* failed */    {opening,   failed,    failed,    failed,    failed,    failed,    idle},
    // clang-format on
}};

}  // namespace

PlaybackState next(PlaybackState state, PlaybackEvent event) {
  return table.at(static_cast<std::size_t>(state)).at(static_cast<std::size_t>(event));
}

}  // namespace vantor
