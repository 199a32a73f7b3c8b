#include "playback/transport_state.h"

namespace vantor {

TransportState::TransportState(Announcements& announcements)
    : announcements_(announcements),
      seconds_(announcements, *this, &TransportState::secondsChanged),
      duration_(announcements, *this, &TransportState::durationChanged),
      seekable_(announcements, *this, &TransportState::seekableChanged),
      volume_(announcements, *this, &TransportState::volumeChanged, 100),
      mutedFrom_(announcements, *this, &TransportState::mutedFromChanged),
      audio_(announcements, *this, &TransportState::audioChanged),
      subtitles_(announcements, *this, &TransportState::subtitlesChanged),
      audioTrack_(announcements, *this, &TransportState::audioTrackChanged, -1),
      subtitleTrack_(announcements, *this, &TransportState::subtitleTrackChanged, -1),
      rate_(announcements, *this, &TransportState::rateChanged, 1),
      audioDevices_(announcements, *this, &TransportState::audioDevicesChanged),
      audioDevice_(announcements, *this, &TransportState::audioDeviceChanged),
      audioDelay_(announcements, *this, &TransportState::audioDelayChanged) {}

void TransportState::reset() {
  const Announcements::Scope scope(announcements_);
  setSeconds(0);
  setDuration(0);
  setSeekable(false);
  setAudio({});
  setSubtitles({});
  setAudioTrack(-1);
  setSubtitleTrack(-1);
  setRate(1);
}

}  // namespace vantor
