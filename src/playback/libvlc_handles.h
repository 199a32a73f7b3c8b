#pragma once

#include <vlc/vlc.h>

#include <memory>

namespace vantor {

struct LibVLCRelease {
  void operator()(libvlc_instance_t* instance) const { libvlc_release(instance); }
  void operator()(libvlc_media_t* media) const { libvlc_media_release(media); }
  void operator()(libvlc_media_player_t* player) const { libvlc_media_player_release(player); }
  void operator()(libvlc_audio_output_t* list) const { libvlc_audio_output_list_release(list); }
  void operator()(libvlc_audio_output_device_t* list) const {
    libvlc_audio_output_device_list_release(list);
  }
  void operator()(char* text) const { libvlc_free(text); }
  void operator()(libvlc_track_description_t* list) const {
    libvlc_track_description_list_release(list);
  }
};

/// The tracks that a media has told of.
class LibVLCTracks {
 public:
  explicit LibVLCTracks(libvlc_media_t* media) : count_(libvlc_media_tracks_get(media, &tracks_)) {}
  ~LibVLCTracks() {
    if (tracks_) libvlc_media_tracks_release(tracks_, count_);
  }
  LibVLCTracks(const LibVLCTracks&) = delete;
  LibVLCTracks& operator=(const LibVLCTracks&) = delete;

  libvlc_media_track_t** begin() const { return tracks_; }
  libvlc_media_track_t** end() const { return tracks_ + count_; }

 private:
  libvlc_media_track_t** tracks_ = nullptr;
  unsigned count_;
};

template <class T>
using LibVLCHandle = std::unique_ptr<T, LibVLCRelease>;

}  // namespace vantor
