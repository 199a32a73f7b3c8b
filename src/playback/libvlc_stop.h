#pragma once

struct libvlc_media_player_t;

namespace vantor {

/// Stops a player, which takes some milliseconds; a little over a second when its server has fallen
/// silent, whose connections are then shut down. Not on the main thread.
void stopPlayer(libvlc_media_player_t* player);

}  // namespace vantor
