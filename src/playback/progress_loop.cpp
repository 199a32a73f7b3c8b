#include <algorithm>
#include <chrono>
#include <utility>

#include "playback/playback.h"
#include "playback/time_values.h"

namespace vantor {

namespace {

using namespace std::chrono_literals;

constexpr auto tickInterval = 250ms;
constexpr auto startLimit = 30s;
constexpr std::int64_t audibleTime = 1001;  // milliseconds of sound that count as a start

/// A source with pictures has started with the first of them, one without after a second of sound.
bool hasStarted(const EngineStatus& status) {
  if (!status.hasMedia) return false;
  if (status.decodedVideo > 0) return true;
  return status.decodedAudio > 0 && status.videoTracks.isEmpty() && status.time >= audibleTime;
}

double wholeTime(std::int64_t milliseconds) {
  return std::max(0.0, static_cast<double>(milliseconds) / 1000);
}

}  // namespace

struct Playback::Opening {
  Ticket ticket;
  SteadyTime begin;
  double resume;  // seconds, 0 once it was looked at
};

QCoro::Task<> Playback::watch(QPointer<Playback> self, Ticket ticket, double resume,
                              std::stop_token token) {
  if (!self) co_return;
  Opening opening = {ticket, self->clock_.steadyNow(), resume};
  while (!token.stop_requested() && self && self->generation_ == ticket && self->source()) {
    if (self->tick(opening) == Watch::over || !self) co_return;
    std::stop_source wait;
    self->tickWait_ = wait;
    const std::stop_callback endWait(token, [wait]() mutable { wait.request_stop(); });
    const std::stop_token waitToken = wait.get_token();
    const QCoro::Task<> nap = self->clock_.sleep(tickInterval, waitToken);
    co_await nap;
  }
}

void Playback::onEngineChange() {
  tickWait_.request_stop();
  const bool playsAgain = state() == PlaybackState::playing || state() == PlaybackState::paused;
  if (followed() || !playsAgain) return;
  const EngineState engine = engine_.status().state;
  if (engine == EngineState::error) fail(notOpened);
  if (engine == EngineState::ended) go(PlaybackEvent::end);
}

Playback::Watch Playback::tick(Opening& opening) {
  const Announcements::Scope scope(announcements_);
  const EngineStatus status = engine_.status();
  if (status.state == EngineState::error) {
    fail(notOpened);
    return Watch::over;
  }
  if (loading() && hasStarted(status)) {
    go(PlaybackEvent::start);
    heldFrame_.set({});
  }
  if (loading() && clock_.steadyNow() - opening.begin > startLimit) {
    fail(QT_TR_NOOP("This source did not start within 30 seconds. Retry or choose another item."));
    return Watch::over;
  }
  transport_.setSeconds(wholeTime(status.time));
  transport_.setDuration(source()->kind == SourceKind::broadcast ? 0 : wholeTime(status.length));
  transport_.setSeekable(status.seekable && transport_.duration() > 0);
  applyResume(opening);
  applyTracks(status);
  transport_.setAudio(status.audioTracks);
  transport_.setSubtitles(status.subtitleTracks);
  transport_.setAudioTrack(status.audioTrack);
  transport_.setSubtitleTrack(status.subtitleTrack);
  transport_.setRate(status.rate);
  transport_.setAudioDevices(engine_.audioDevices());
  reportProgress();
  if (generation_ != opening.ticket) return Watch::over;
  if (status.state != EngineState::ended) return Watch::goOn;
  if (loading()) {
    fail(QT_TR_NOOP("The source ended before playback could start."));
  } else {
    go(PlaybackEvent::end);
    heldFrame_.set({});
  }
  return Watch::over;
}

void Playback::applyResume(Opening& opening) {
  if (!transport_.seekable()) return;
  const double resume = std::exchange(opening.resume, 0);
  if (resume > shortestResume && transport_.duration() - finishMargin > resume)
    engine_.setTime(engineTime(resume));
}

void Playback::applyTracks(const EngineStatus& status) {
  const auto wanted = [](int& looks, const QList<TrackChoice>& choices,
                         const QList<EngineTrack>& tracks, std::int32_t now) {
    const auto track = looks > 0 ? trackOf(choices, tracks) : std::nullopt;
    if (track) --looks;
    return track == now ? std::nullopt : track;
  };
  if (const auto track = wanted(audioLooks_, tracks_.audio, status.audioTracks, status.audioTrack))
    engine_.setAudioTrack(*track);
  if (const auto track =
          wanted(subtitleLooks_, tracks_.subtitles, status.subtitleTracks, status.subtitleTrack))
    engine_.setSubtitleTrack(*track);
}

void Playback::reportProgress() {
  if (!source() || !(transport_.duration() > 0) || !onProgress) return;
  onProgress(source()->id, transport_.seconds(), transport_.duration());
}

}  // namespace vantor
