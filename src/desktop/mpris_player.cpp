#include "desktop/mpris_player.h"

#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/app_model.h"
#include "core/now_playing.h"
#include "desktop/media_files.h"
#include "playback/playback.h"
#include "playback/stream_keeper.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

constexpr double slowest = 0.5;
constexpr double fastest = 2;
// The position is looked at four times a second, and whoever counts on from one does so unevenly.
constexpr double unnoticed = 1'500'000;  // microseconds

qlonglong microseconds(double seconds) {
  constexpr double longest = 1e12;
  return std::llround(std::clamp(seconds, 0.0, longest) * 1'000'000);
}

}  // namespace

MprisPlayer::MprisPlayer(QObject& object, const Parts& parts)
    : QDBusAbstractAdaptor(&object),
      model_(parts.model),
      playback_(parts.model.playback()),
      transport_(*playback_.transport()),
      nowPlaying_(parts.nowPlaying),
      keeper_(parts.keeper),
      picture_(parts.picture),
      clock_(parts.clock),
      refuse_(parts.refuse) {
  connect(&playback_, &Playback::sourceChanged, this, &MprisPlayer::onSourceChanged);
  connect(&playback_, &Playback::stateChanged, this, &MprisPlayer::followPosition);
  connect(&keeper_, &StreamKeeper::bringingBackChanged, this, &MprisPlayer::followPosition);
  connect(&transport_, &TransportState::rateChanged, this, &MprisPlayer::followPosition);
  connect(&transport_, &TransportState::secondsChanged, this, [this] {
    sought_.reset();
    followPosition();
  });
  onSourceChanged();
}

MprisPlayer::Status MprisPlayer::status() const {
  if (keeper_.bringingBack()) return Status::playing;
  switch (playback_.state()) {
    case PlaybackState::opening:
    case PlaybackState::playing:
      return Status::playing;
    case PlaybackState::suspended:
    case PlaybackState::paused:
      return Status::paused;
    case PlaybackState::idle:
    case PlaybackState::ended:
    case PlaybackState::failed:
      break;
  }
  return Status::stopped;
}

QString MprisPlayer::playbackStatus() const {
  const Status now = status();
  return now == Status::playing ? u"Playing"_s : now == Status::paused ? u"Paused"_s : u"Stopped"_s;
}

bool MprisPlayer::hasTrack() const {
  return playback_.source().has_value();
}

bool MprisPlayer::canSeek() const {
  const PlaybackState state = playback_.state();
  return (state == PlaybackState::playing || state == PlaybackState::paused) &&
         playback_.followed() && transport_.seekable();
}

bool MprisPlayer::canGoNext() const {
  return nowPlaying_.hasNext();
}

bool MprisPlayer::canGoPrevious() const {
  return nowPlaying_.hasPrevious();
}

void MprisPlayer::Next() {
  nowPlaying_.next();
}

void MprisPlayer::Previous() {
  nowPlaying_.previous();
}

void MprisPlayer::Play() {
  if (!hasTrack()) return;
  if (status() == Status::paused)
    playback_.togglePause();
  else if (status() == Status::stopped)
    playback_.retry();
}

void MprisPlayer::Pause() {
  if (status() != Status::playing) return;
  // Between two attempts to bring it back nothing plays that could be paused.
  if (playback_.paused())
    playback_.stop();
  else
    playback_.togglePause();
}

void MprisPlayer::PlayPause() {
  if (!hasTrack())
    refuse_(QDBusError::NotSupported, u"Nothing is playing."_s);
  else if (status() == Status::playing)
    Pause();
  else
    Play();
}

void MprisPlayer::Stop() {
  if (hasTrack()) playback_.stop();
}

void MprisPlayer::Seek(qlonglong Offset) {
  if (!canSeek()) return;
  const double target =
      sought_.value_or(static_cast<double>(position())) + static_cast<double>(Offset);
  if (target > static_cast<double>(length()))
    Next();
  else
    seekTo(std::max(target, 0.0));
}

void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
  // Another track, or a place outside of it, is a wish that came too late.
  if (canSeek() && TrackId == trackID() && Position >= 0 && Position <= length())
    seekTo(static_cast<double>(Position));
}

void MprisPlayer::seekTo(double microseconds) {
  sought_ = microseconds;
  playback_.seek(microseconds / 1'000'000);
}

void MprisPlayer::OpenUri(const QString& Uri) {
  const std::optional<QUrl> file = localFile(Uri);
  if (!file)
    refuse_(QDBusError::NotSupported, u"Only files of this machine can be opened."_s);
  else if (!QFileInfo(file->toLocalFile()).isFile())
    refuse_(QDBusError::InvalidArgs, u"There is no such file."_s);
  else
    model_.playFile(*file);
}

double MprisPlayer::rate() const {
  return transport_.rate();
}

double MprisPlayer::minimumRate() {
  return slowest;
}

double MprisPlayer::maximumRate() {
  return fastest;
}

void MprisPlayer::setRate(double rate) {
  if (rate == 0) return Pause();
  // A media that is still to be loaded begins at its own speed.
  if (hasTrack() && !playback_.loading() && !std::isnan(rate))
    playback_.setRate(std::clamp(rate, slowest, fastest));
}

double MprisPlayer::volume() const {
  return transport_.volume() / 100;
}

void MprisPlayer::setVolume(double volume) {
  if (!std::isnan(volume)) playback_.setVolume(std::clamp(volume, 0.0, 1.0) * 100);
}

qlonglong MprisPlayer::position() const {
  // Until then it is that of the source before.
  return hasTrack() && !playback_.loading() ? microseconds(transport_.seconds()) : 0;
}

qlonglong MprisPlayer::length() const {
  return hasTrack() && !playback_.loading() ? microseconds(transport_.duration()) : 0;
}

QDBusObjectPath MprisPlayer::trackID() const {
  return QDBusObjectPath(u"/tv/vantor/player/track/%1"_s.arg(track_));
}

QVariantMap MprisPlayer::metadata() const {
  const std::optional<NowPlaying::Facts> facts = nowPlaying_.facts();
  if (!facts) return {};
  QVariantMap map{{u"mpris:trackid"_s, QVariant::fromValue(trackID())},
                  {u"xesam:title"_s, facts->title}};
  if (length() > 0) map.insert(u"mpris:length"_s, length());
  const QString& group = facts->show.isEmpty() ? facts->channel : facts->show;
  if (!group.isEmpty()) {
    map.insert(u"xesam:album"_s, group);
    map.insert(u"xesam:artist"_s, QStringList{group});
  }
  if (facts->season) map.insert(u"xesam:discNumber"_s, *facts->season);
  if (facts->episode) map.insert(u"xesam:trackNumber"_s, *facts->episode);
  if (!picture_.file().isEmpty()) map.insert(u"mpris:artUrl"_s, picture_.file().toString());
  if (playback_.isLocal())
    map.insert(u"xesam:url"_s, playback_.source()->url.toString(QUrl::FullyEncoded));
  return map;
}

void MprisPlayer::onSourceChanged() {
  // The same source opened once more is still the same track.
  const std::optional<PlayRequest> before = std::exchange(playing_, playback_.source());
  if (before && playing_ && before->isOfSameSource(*playing_)) return;
  ++track_;
  sought_.reset();
  told_ = here();
}

MprisPlayer::Place MprisPlayer::here() const {
  return {position(), clock_.steadyNow(), status() == Status::playing ? rate() : 0};
}

void MprisPlayer::followPosition() {
  // There is none until it plays.
  if (playback_.loading() || keeper_.bringingBack()) return;
  const Place now = here();
  const std::chrono::duration<double, std::micro> passed = now.since - told_.since;
  const double expected = static_cast<double>(told_.position) + passed.count() * told_.rate;
  const bool jumped = std::abs(static_cast<double>(now.position) - expected) > unnoticed;
  if (jumped || now.rate != told_.rate) told_ = now;
  if (jumped && hasTrack()) Q_EMIT Seeked(now.position);
}

}  // namespace vantor
