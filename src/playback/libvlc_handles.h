#pragma once

#include <vlc/vlc.h>

#include <memory>

namespace vantor {

struct LibVLCRelease {
  void operator()(libvlc_instance_t* instance) const { libvlc_release(instance); }
  void operator()(libvlc_media_t* media) const { libvlc_media_release(media); }
  void operator()(libvlc_media_player_t* player) const { libvlc_media_player_release(player); }
  void operator()(libvlc_track_description_t* list) const {
    libvlc_track_description_list_release(list);
  }
};

template <class T>
using LibVLCHandle = std::unique_ptr<T, LibVLCRelease>;

}  // namespace vantor
