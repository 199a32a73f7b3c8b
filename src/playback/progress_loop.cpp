#include <algorithm>
#include <chrono>

#include "playback/playback.h"
#include "playback/time_values.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kTick = 250ms;
constexpr auto kStartLimit = 30s;
constexpr std::int64_t kAudibleTime = 1001;  // milliseconds of sound that count as a start
constexpr double kShortestResume = 10;       // seconds
constexpr double kCreditsLength = 20;        // seconds at the end that are not resumed into

/// A source with pictures has started with the first of them, one without after a second of sound.
bool hasStarted(const EngineStatus& status) {
  if (!status.hasMedia) return false;
  if (status.decodedVideo > 0) return true;
  return status.decodedAudio > 0 && status.videoTracks.isEmpty() && status.time >= kAudibleTime;
}

double wholeTime(std::int64_t milliseconds) {
  return std::max(0.0, static_cast<double>(milliseconds) / 1000);
}

}  // namespace

void Playback::poll(Ticket ticket, double resume) {
  const QPointer<Playback> self(this);
  pollTask_ = Job::start(
      [self, ticket, resume](std::stop_token token) { return watch(self, ticket, resume, token); });
}

QCoro::Task<> Playback::watch(QPointer<Playback> self, Ticket ticket, double resume,
                              std::stop_token token) {
  if (!self) co_return;
  const SteadyTime begin = self->clock_.steadyNow();
  while (!token.stop_requested() && self && self->generation_ == ticket && self->itemID_) {
    if (self->tick(ticket, begin, resume) == Watch::over) co_return;
    std::stop_source wait;
    self->tickWait_ = wait;
    const std::stop_callback endWait(token, [wait]() mutable { wait.request_stop(); });
    const std::stop_token waitToken = wait.get_token();
    const QCoro::Task<> nap = self->clock_.sleep(kTick, waitToken);
    co_await nap;
  }
}

Playback::Watch Playback::tick(Ticket ticket, SteadyTime begin, double resume) {
  const EngineStatus status = engine_.status();
  if (status.state == EngineState::error) {
    fail(
        u"This source could not be opened. It may be offline or your provider may be refusing the connection."_s);
    return Watch::over;
  }
  if (loading_ && hasStarted(status)) {
    setLoading(false);
    setHeldFrame({});
  }
  if (loading_ && clock_.steadyNow() - begin > kStartLimit) {
    fail(u"This source did not start within 30 seconds. Retry or choose another item."_s);
    return Watch::over;
  }
  transport_.setSeconds(wholeTime(status.time));
  transport_.setDuration(live_ ? 0 : wholeTime(status.length));
  transport_.setSeekable(status.seekable && transport_.duration() > 0);
  applyResume(resume);
  transport_.setAudio(status.audioTracks);
  transport_.setSubtitles(status.subtitleTracks);
  reportProgress();
  if (generation_ != ticket) return Watch::over;
  if (status.state != EngineState::ended) return Watch::goOn;
  if (loading_) {
    fail(u"The source ended before playback could start."_s);
  } else {
    setPaused(true);
    setHeldFrame({});
  }
  return Watch::over;
}

void Playback::applyResume(double resume) {
  if (resumeApplied_ || !transport_.seekable()) return;
  resumeApplied_ = true;
  if (resume > kShortestResume && transport_.duration() - kCreditsLength > resume)
    engine_.setTime(engineTime(resume));
}

void Playback::reportProgress() {
  if (!itemID_ || !(transport_.duration() > 0) || !onProgress) return;
  onProgress(*itemID_, transport_.seconds(), transport_.duration());
}

void Playback::togglePause() {
  if (!paused_ && engine_.status().state != EngineState::ended) {
    engine_.pause();
    setPaused(true);
  } else {
    engine_.play();
    setPaused(false);
  }
}

void Playback::seek(double seconds) {
  if (transport_.seekable()) engine_.setTime(engineTime(seconds));
}

void Playback::setVolume(double percent) {
  transport_.setVolume(percent);
  engine_.setVolume(wholePercent(percent));
}

void Playback::setAudioTrack(int id) {
  engine_.setAudioTrack(id);
}

void Playback::setSubtitleTrack(int id) {
  engine_.setSubtitleTrack(id);
}

void Playback::setRate(double rate) {
  engine_.setRate(static_cast<float>(rate));
}

}  // namespace vantor
