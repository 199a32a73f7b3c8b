#include "playback/playback.h"

#include <QFileInfo>
#include <algorithm>
#include <chrono>

#include "platform/trace.h"
#include "platform/worker.h"
#include "playback/held_frame.h"
#include "playback/time_values.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto savingWait = 100ms;
constexpr int mostSavingWaits = 50;
// The library lists tracks a moment before it puts its own choice of them in force.
constexpr int looksForTracks = 4;
// Volume that a sound comes back to whose own was 0.
constexpr double usualVolume = 50;  // per cent

}  // namespace

const char* const Playback::notOpened = QT_TR_NOOP(
    "This source could not be opened. It may be offline or your provider may be refusing the "
    "connection.");

Playback::Playback(MediaEngine& engine, Clock& clock, Worker& worker, const Folders& folders,
                   Output output)
    : engine_(engine),
      clock_(clock),
      worker_(worker),
      folders_(folders),
      output_(output),
      announcements_([] {}),
      commanded_(announcements_, *this, &Playback::commanded),
      source_(announcements_, *this, &Playback::sourceChanged),
      state_(announcements_, *this, &Playback::stateChanged, PlaybackState::idle),
      message_(announcements_, *this, &Playback::messageChanged),
      heldFrame_(announcements_, *this, &Playback::heldFrameChanged),
      expanded_(announcements_, *this, &Playback::expandedChanged),
      fullScreen_(announcements_, *this, &Playback::fullScreenChanged),
      pictureShape_(announcements_, *this, &Playback::pictureShapeChanged),
      shapeChosen_(announcements_, *this, &Playback::pictureShapeChosen),
      audioChosen_(announcements_, *this, &Playback::audioTrackChosen),
      subtitlesChosen_(announcements_, *this, &Playback::subtitleTrackChosen),
      transport_(announcements_),
      recording_(announcements_, engine, clock, folders) {
  if (output_ == Output::shown) recording_.refresh();
  engine_.onChange = [this] { onEngineChange(); };
}

Playback::~Playback() {
  engine_.onChange = nullptr;
}

QString Playback::title() const {
  return source() ? source()->title : tr("Nothing playing yet");
}

std::optional<QString> Playback::itemID() const {
  return source() ? std::optional(source()->id) : std::nullopt;
}

bool Playback::play(const PlayRequest& request) {
  const Announcements::Scope scope(announcements_);
  if (!mayChangeSource()) return false;
  commanded_.note();
  start(request);
  return true;
}

void Playback::retry() {
  const Announcements::Scope scope(announcements_);
  if (!source() || !mayChangeSource()) return;
  commanded_.note();
  startAgain(0);
}

void Playback::reopen(double resume) {
  if (source() && mayChangeSource()) startAgain(resume);
}

void Playback::restart() {
  const Announcements::Scope scope(announcements_);
  commanded_.note();
  engine_.setTime(0);
  engine_.play();
  go(PlaybackEvent::resume);
}

void Playback::stop() {
  const Announcements::Scope scope(announcements_);
  commanded_.note();
  recording_.finish();
  reportProgress();
  endTasks();
  engine_.unload();
  heldFrame_.set({});
  source_.set(std::nullopt);
  message_.set(std::nullopt);
  expanded_.set(false);
  fullScreen_.set(false);
  go(PlaybackEvent::stop);
}

void Playback::abandon() {
  if (!source()) return;
  const Announcements::Scope scope(announcements_);
  endTasks();
  fail(notOpened);
}

void Playback::endTasks() {
  ++generation_;
  loadTask_ = {};
  pollTask_ = {};
}

QCoro::Task<> Playback::shutdown() {
  const QPointer<Playback> self(this);
  recording_.finish();
  const std::stop_token never;
  for (int waits = 0; waits < mostSavingWaits; ++waits) {
    if (!self || self->recording_.stage() != Recording::Stage::saving) break;
    const QCoro::Task<> nap = self->clock_.sleep(savingWait, never);
    co_await nap;
  }
  if (self) self->stop();
}

bool Playback::mayChangeSource() {
  if (recording_.stage() == Recording::Stage::idle) return true;
  recording_.refuseChange();
  return false;
}

std::optional<QString> Playback::startRecording(const std::optional<QString>& folder) {
  if (recording_.stage() == Recording::Stage::idle) {
    if (state() != PlaybackState::playing)
      return message().value_or(tr("Only what is playing can be recorded."));
    if (recording_.start(folder)) return {};
  }
  return recording_.notice();
}

std::optional<QString> Playback::finishRecording() {
  if (recording_.stage() == Recording::Stage::idle) return tr("Nothing is being recorded.");
  return recording_.finish() ? std::nullopt : recording_.notice();
}

void Playback::start(const PlayRequest& request) {
  const Announcements::Scope scope(announcements_);
  const Ticket ticket = ++generation_;
  pollTask_ = {};
  const bool takeStill = output_ == Output::shown && engine_.status().decodedVideo > 0;
  if (!source() || !source()->isOfSameSource(request)) {
    pictureShape_.set(request.shape);
    tracks_ = request.tracks;
  }
  source_.set(request);
  isLocal_ = request.kind == SourceKind::file;
  message_.set(std::nullopt);
  go(PlaybackEvent::open);
  const QPointer<Playback> self(this);
  loadTask_ = Job::start([self, ticket, takeStill, request](std::stop_token token) {
    return openSource(self, ticket, takeStill, request, token);
  });
}

void Playback::startAgain(double resume) {
  PlayRequest again = *source();
  again.resume = resume;
  start(again);
}

QCoro::Task<> Playback::openSource(QPointer<Playback> self, Ticket ticket, bool takeStill,
                                   PlayRequest request, std::stop_token token) {
  if (!self) co_return;
  if (takeStill && !token.stop_requested()) {
    const StillSource source{&self->engine_, &self->clock_, &self->worker_,
                             self->folders_.temporary};
    const QCoro::Task<QImage> capture = captureStill(source, token);
    const QImage still = co_await capture;
    if (!self) co_return;
    if (!token.stop_requested() && !still.isNull()) self->heldFrame_.set(still);
  }
  if (!self || token.stop_requested()) co_return;
  const std::optional<Pending<Done>> other =
      self->beforeOpening ? self->beforeOpening() : std::nullopt;
  if (other) {
    const Pending<Done>& over = *other;
    co_await over;
  }
  if (!self || token.stop_requested() || self->generation_ != ticket) co_return;
  self->load(request);
}

void Playback::load(const PlayRequest& request) {
  const Announcements::Scope scope(announcements_);
  playing_ = Attempt(playbackTrace, "playing a source");
  engine_.unload();
  if (request.kind == SourceKind::file && !QFileInfo(request.url.toLocalFile()).isFile()) {
    fail(QT_TR_NOOP("This media file is no longer available."));
    return;
  }
  engine_.load({.address = request.url, .userAgent = request.agent});
  engine_.setVolume(wholePercent(transport_.volume()));
  // What was there before the first source the engine has not been told, so as not to begin its
  // work.
  if (!transport_.audioDevice().isEmpty()) engine_.setAudioDevice(transport_.audioDevice());
  if (transport_.audioDelay() != 0) engine_.setAudioDelay(transport_.audioDelay());
  engine_.play();
  transport_.reset();
  audioLooks_ = subtitleLooks_ = looksForTracks;
  const QPointer<Playback> self(this);
  pollTask_ = Job::start([self, ticket = generation_, resume = request.resume](
                             std::stop_token token) { return watch(self, ticket, resume, token); });
}

void Playback::fail(const char* sentence) {
  const Announcements::Scope scope(announcements_);
  // The sentence names no source.
  playing_.failed(QString::fromUtf8(sentence));
  recording_.finish();
  heldFrame_.set({});
  message_.set(tr(sentence));
  go(PlaybackEvent::fail);
  engine_.unload();
}

void Playback::togglePause() {
  const Announcements::Scope scope(announcements_);
  commanded_.note();
  if (!paused() && engine_.status().state != EngineState::ended) {
    engine_.pause();
    go(PlaybackEvent::pause);
  } else {
    engine_.play();
    go(PlaybackEvent::resume);
  }
}

void Playback::seek(double seconds) {
  if (!transport_.seekable()) return;
  // What has ended or failed goes nowhere, and may be on its way back.
  if (state() != PlaybackState::ended && state() != PlaybackState::failed) commanded_.note();
  engine_.setTime(engineTime(seconds));
}

void Playback::setPictureShape(PictureShape shape) {
  const Announcements::Scope scope(announcements_);
  pictureShape_.set(shape);
  shapeChosen_.note();
}

void Playback::toggleMuted() {
  const Announcements::Scope scope(announcements_);
  const double volume = transport_.volume();
  const double before = transport_.mutedFrom() > 0 ? transport_.mutedFrom() : usualVolume;
  setVolume(volume > 0 ? 0 : before);
  transport_.setMutedFrom(volume);
}

void Playback::setVolume(double percent) {
  const Announcements::Scope scope(announcements_);
  transport_.setVolume(percent);
  transport_.setMutedFrom(0);
  engine_.setVolume(wholePercent(percent));
}

void Playback::setAudioTrack(int id) {
  audioLooks_ = 0;
  engine_.setAudioTrack(id);
  const std::optional<TrackChoice> choice = choiceOf(id, transport_.audio());
  if (!choice) return;
  tracks_.audio = {*choice};
  audioChosen_.note();
}

void Playback::setSubtitleTrack(int id) {
  subtitleLooks_ = 0;
  engine_.setSubtitleTrack(id);
  const std::optional<TrackChoice> choice = choiceOf(id, transport_.subtitles());
  if (!choice) return;
  tracks_.subtitles = {*choice};
  subtitlesChosen_.note();
}

void Playback::setRate(double rate) {
  engine_.setRate(static_cast<float>(rate));
}

void Playback::setAudioDevice(const QString& id) {
  transport_.setAudioDevice(id);
  engine_.setAudioDevice(id);
}

void Playback::setAudioDelay(int milliseconds) {
  const int delay = std::clamp(milliseconds, -longestAudioDelay, longestAudioDelay);
  transport_.setAudioDelay(delay);
  engine_.setAudioDelay(delay);
}

}  // namespace vantor
