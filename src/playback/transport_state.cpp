#include "playback/transport_state.h"

namespace vantor {

namespace {

QVariantList items(const QList<EngineTrack>& tracks) {
  QVariantList list;
  for (const EngineTrack& track : tracks) {
    list.append(
        QVariantMap{{QStringLiteral("id"), track.id}, {QStringLiteral("name"), track.name}});
  }
  return list;
}

}  // namespace

QVariantList TransportState::audioItems() const {
  return items(audio_);
}

QVariantList TransportState::subtitleItems() const {
  return items(subtitles_);
}

void TransportState::setSeconds(double seconds) {
  if (seconds_ == seconds) return;
  seconds_ = seconds;
  Q_EMIT secondsChanged();
}

void TransportState::setDuration(double seconds) {
  if (duration_ == seconds) return;
  duration_ = seconds;
  Q_EMIT durationChanged();
}

void TransportState::setSeekable(bool seekable) {
  if (seekable_ == seekable) return;
  seekable_ = seekable;
  Q_EMIT seekableChanged();
}

void TransportState::setVolume(double percent) {
  if (volume_ == percent) return;
  volume_ = percent;
  Q_EMIT volumeChanged();
}

void TransportState::setAudio(const QList<EngineTrack>& tracks) {
  if (audio_ == tracks) return;
  audio_ = tracks;
  Q_EMIT audioChanged();
}

void TransportState::setSubtitles(const QList<EngineTrack>& tracks) {
  if (subtitles_ == tracks) return;
  subtitles_ = tracks;
  Q_EMIT subtitlesChanged();
}

void TransportState::reset() {
  setSeconds(0);
  setDuration(0);
  setSeekable(false);
  setAudio({});
  setSubtitles({});
}

}  // namespace vantor
