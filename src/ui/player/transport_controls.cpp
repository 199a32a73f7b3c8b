#include "ui/player/transport_controls.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "playback/playback.h"
#include "ui/entries/shown_text.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

/// Maps of "id" and "name".
QVariantList listed(const QList<EngineTrack>& tracks) {
  QVariantList list;
  for (const EngineTrack& track : tracks)
    list.append(QVariantMap{{u"id"_s, track.id}, {u"name"_s, oneLine(track.name)}});
  return list;
}

int indexOf(const QList<EngineTrack>& tracks, int id) {
  const auto found = std::find_if(tracks.begin(), tracks.end(),
                                  [id](const EngineTrack& track) { return track.id == id; });
  return found == tracks.end() ? -1 : static_cast<int>(found - tracks.begin());
}

/// Delays that are offered: the present one, some steps to each side, and none.
QList<int> delaysAround(int present) {
  constexpr int steps = 4;
  QList<int> delays;
  for (int step = -steps; step <= steps; ++step) {
    const int delay = present + step * TransportControls::delayStep;
    if (std::abs(delay) <= Playback::longestAudioDelay) delays.append(delay);
  }
  if (!delays.contains(0)) delays.insert(present > 0 ? 0 : delays.size(), 0);
  return delays;
}

constexpr std::array rates{0.5, 1.0, 1.25, 1.5, 2.0};

}  // namespace

TransportControls::TransportControls(Playback& playback, QObject* parent)
    : QObject(parent), playback_(playback), state_(*playback.transport()) {
  connect(&state_, &TransportState::secondsChanged, this, [this] {
    if (shown_ == Shown::drag) return;
    shown_ = Shown::playback;
    Q_EMIT positionChanged();
  });
  connect(&state_, &TransportState::durationChanged, this, &TransportControls::durationChanged);
  connect(&state_, &TransportState::durationChanged, this, &TransportControls::positionChanged);
  connect(&state_, &TransportState::volumeChanged, this, &TransportControls::volumeChanged);
  connect(&state_, &TransportState::audioChanged, this, &TransportControls::audioChanged);
  connect(&state_, &TransportState::subtitlesChanged, this, &TransportControls::subtitlesChanged);
  for (const auto signal : {&TransportState::audioChanged, &TransportState::audioTrackChanged})
    connect(&state_, signal, this, &TransportControls::audioChoiceChanged);
  for (const auto signal :
       {&TransportState::subtitlesChanged, &TransportState::subtitleTrackChanged})
    connect(&state_, signal, this, &TransportControls::subtitleChoiceChanged);
  connect(&state_, &TransportState::rateChanged, this, &TransportControls::speedChoiceChanged);
  connect(&state_, &TransportState::audioDevicesChanged, this, &TransportControls::outputsChanged);
  for (const auto signal :
       {&TransportState::audioDevicesChanged, &TransportState::audioDeviceChanged})
    connect(&state_, signal, this, &TransportControls::outputChoiceChanged);
  connect(&state_, &TransportState::audioDelayChanged, this, &TransportControls::delayChanged);
}

QString TransportControls::clock(double seconds) {
  constexpr double longest = 1e12;
  const auto whole =
      seconds > 0 ? static_cast<std::int64_t>(std::min(seconds, longest)) : std::int64_t(0);
  const auto padded = [](std::int64_t number) { return u"%1"_s.arg(number, 2, 10, QChar(u'0')); };
  const QString end = padded(whole % 60);
  if (whole < 3600) return QString::number(whole / 60) + u':' + end;
  return QString::number(whole / 3600) + u':' + padded(whole / 60 % 60) + u':' + end;
}

QString TransportControls::delayText(int milliseconds) {
  if (milliseconds == 0) return tr("Sound with the picture");
  return (milliseconds > 0 ? tr("Sound %1 ms after the picture")
                           : tr("Sound %1 ms before the picture"))
      .arg(std::abs(milliseconds));
}

double TransportControls::shownPosition() const {
  return shown_ == Shown::playback ? state_.seconds() : seekValue_;
}

QString TransportControls::positionText() const {
  return clock(shownPosition());
}

QString TransportControls::durationText() const {
  return clock(state_.duration());
}

double TransportControls::sliderEnd() const {
  return std::max(state_.duration(), 1.0);
}

double TransportControls::sliderValue() const {
  return shown_ == Shown::playback ? std::min(state_.seconds(), state_.duration()) : seekValue_;
}

double TransportControls::volume() const {
  return state_.volume();
}

void TransportControls::setVolume(double percent) {
  playback_.setVolume(percent);
}

QVariantList TransportControls::audio() const {
  return listed(state_.audio());
}

bool TransportControls::audioEnabled() const {
  return !state_.audio().isEmpty();
}

QVariantList TransportControls::subtitles() const {
  QVariantList list = listed(state_.subtitles());
  list.prepend(QVariantMap{{u"id"_s, -1}, {u"name"_s, tr("Off")}});
  return list;
}

QVariantList TransportControls::speeds() const {
  QVariantList list;
  for (const double rate : rates)
    list.append(QVariantMap{
        {u"rate"_s, rate},
        {u"name"_s, QLocale().toString(rate, 'f', QLocale::FloatingPointShortest) + u'×'}});
  return list;
}

QVariantList TransportControls::outputs() const {
  QVariantList list{QVariantMap{{u"id"_s, QString()}, {u"name"_s, tr("The system's choice")}}};
  for (const AudioDevice& device : state_.audioDevices().present)
    list.append(QVariantMap{{u"id"_s, device.id}, {u"name"_s, device.name}});
  return list;
}

QVariantList TransportControls::delays() const {
  QVariantList list;
  for (const int delay : delaysAround(state_.audioDelay()))
    list.append(QVariantMap{{u"delay"_s, delay}, {u"name"_s, delayText(delay)}});
  return list;
}

int TransportControls::audioChoice() const {
  return indexOf(state_.audio(), state_.audioTrack());
}

int TransportControls::subtitleChoice() const {
  // "Off" stands first.
  return state_.subtitleTrack() < 0 ? 0 : indexOf(state_.subtitles(), state_.subtitleTrack()) + 1;
}

int TransportControls::speedChoice() const {
  const auto found = std::find_if(rates.begin(), rates.end(), [this](double rate) {
    return std::abs(rate - state_.rate()) < 0.01;
  });
  return found == rates.end() ? -1 : static_cast<int>(found - rates.begin());
}

int TransportControls::outputChoice() const {
  // The system's choice stands first.
  if (state_.audioDevice().isEmpty()) return 0;
  const AudioDevices& devices = state_.audioDevices();
  const auto found = std::ranges::find(devices.present, devices.inForce, &AudioDevice::id);
  return found == devices.present.end() ? -1
                                        : static_cast<int>(found - devices.present.begin()) + 1;
}

int TransportControls::delayChoice() const {
  return static_cast<int>(delaysAround(state_.audioDelay()).indexOf(state_.audioDelay()));
}

bool TransportControls::beginSeek() {
  if (shown_ == Shown::drag) return false;
  seekValue_ = sliderValue();
  shown_ = Shown::drag;
  return true;
}

void TransportControls::dragTo(double seconds) {
  if (shown_ != Shown::drag) return;
  seekValue_ = seconds;
  Q_EMIT positionChanged();
}

void TransportControls::endSeek() {
  if (shown_ != Shown::drag) return;
  const PlaybackState state = playback_.state();
  const bool goes = playback_.followed() && state_.seekable() && state != PlaybackState::ended &&
                    state != PlaybackState::failed;
  shown_ = goes ? Shown::target : Shown::playback;
  playback_.seek(seekValue_);
  Q_EMIT positionChanged();
}

void TransportControls::abandonSeek() {
  if (std::exchange(shown_, Shown::playback) != Shown::playback) Q_EMIT positionChanged();
}

void TransportControls::chooseAudio(int id) {
  playback_.setAudioTrack(id);
}

void TransportControls::chooseSubtitle(int id) {
  playback_.setSubtitleTrack(id);
}

void TransportControls::chooseOutput(const QString& id) {
  playback_.setAudioDevice(id);
}

void TransportControls::chooseDelay(int milliseconds) {
  playback_.setAudioDelay(milliseconds);
}

void TransportControls::chooseSpeed(double rate) {
  playback_.setRate(rate);
}

}  // namespace vantor
