#include "playback/playback.h"

#include <QFile>
#include <chrono>

#include "platform/trace.h"
#include "platform/worker.h"
#include "playback/held_frame.h"
#include "playback/time_values.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kSavingWait = 100ms;
constexpr int kMostSavingWaits = 50;

QString idleTitle() {
  return u"Nothing playing yet"_s;
}

}  // namespace

Playback::Playback(MediaEngine& engine, Clock& clock, Worker& worker, const Folders& folders,
                   bool headless)
    : engine_(engine),
      clock_(clock),
      worker_(worker),
      folders_(folders),
      headless_(headless),
      recording_(engine, clock, folders),
      title_(idleTitle()) {
  connect(&recording_, &Recording::stageChanged, this, &Playback::recordingChanged);
  connect(&recording_, &Recording::noticeChanged, this, &Playback::recordingNoticeChanged);
  connect(&recording_, &Recording::noticeGiven, this, &Playback::recordingNoticeGiven);
  connect(&recording_, &Recording::filesChanged, this, &Playback::recordingsChanged);
  if (!headless_) recording_.refresh();
  engine_.onChange = [this] { tickWait_.request_stop(); };
}

Playback::~Playback() {
  engine_.onChange = nullptr;
  cancelTasks();
}

void Playback::play(const PlayRequest& request) {
  if (mayChangeSource()) start(request);
}

void Playback::retry() {
  if (!currentURL_ || !mayChangeSource()) return;
  start({.url = *currentURL_,
         .title = title_,
         .id = itemID_.value_or(u"retry"_s),
         .agent = currentAgent_,
         .local = isLocal_,
         .live = live_});
}

void Playback::restart() {
  engine_.setTime(0);
  engine_.play();
  setPaused(false);
}

void Playback::stop() {
  finishRecording();
  reportProgress();
  ++generation_;
  cancelTasks();
  engine_.unload();
  setHeldFrame({});
  setLoading(false);
  setItemID({});
  setTitle(idleTitle());
  setMessage({});
  currentURL_.reset();
  setExpanded(false);
  setPaused(false);
}

QCoro::Task<> Playback::shutdown() {
  return finishAndStop(this);
}

QCoro::Task<> Playback::finishAndStop(QPointer<Playback> self) {
  self->finishRecording();
  const std::stop_token never;
  for (int waits = 0; self && self->savingRecording() && waits < kMostSavingWaits; ++waits) {
    const QCoro::Task<> nap = self->clock_.sleep(kSavingWait, never);
    co_await nap;
  }
  if (self) self->stop();
}

bool Playback::mayChangeSource() {
  if (recording_.stage() == Recording::Stage::idle) return true;
  recording_.refuseChange();
  return false;
}

void Playback::startRecording(const std::optional<QString>& folder) {
  if (isPlaying()) recording_.start(folder);
}

void Playback::start(const PlayRequest& request) {
  const Ticket ticket = ++generation_;
  cancelTasks();
  const bool takeStill = !headless_ && engine_.status().decodedVideo > 0;
  setTitle(request.title);
  setItemID(request.id);
  setLoading(true);
  setMessage({});
  setPaused(false);
  setIsLocal(request.local);
  currentURL_ = request.url;
  currentAgent_ = request.agent;
  live_ = request.live;
  resumeApplied_ = false;
  const QPointer<Playback> self(this);
  loadTask_ = Job::start([self, ticket, takeStill, request](std::stop_token token) {
    return openSource(self, ticket, takeStill, request, token);
  });
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
    if (!token.stop_requested() && !still.isNull()) self->setHeldFrame(still);
  }
  if (token.stop_requested() || self->generation_ != ticket) co_return;
  self->load(request);
}

void Playback::load(const PlayRequest& request) {
  engine_.unload();
  if (request.local && !QFile::exists(request.url.toLocalFile())) {
    fail(u"This media file is no longer available."_s);
    return;
  }
  engine_.load({.address = request.url, .userAgent = request.agent});
  engine_.setVolume(wholePercent(transport_.volume()));
  engine_.play();
  transport_.reset();
  poll(generation_, request.resume);
}

void Playback::fail(const QString& message) {
  // The sentence, which names no source.
  qCInfo(playbackTrace).noquote() << "playing failed:" << message;
  finishRecording();
  setLoading(false);
  setHeldFrame({});
  setMessage(message);
  setPaused(true);
  engine_.unload();
}

void Playback::cancelTasks() {
  loadTask_ = {};
  pollTask_ = {};
}

void Playback::setExpanded(bool expanded) {
  if (expanded_ == expanded) return;
  expanded_ = expanded;
  Q_EMIT expandedChanged();
}

void Playback::setTitle(const QString& title) {
  if (title_ == title) return;
  title_ = title;
  Q_EMIT titleChanged();
}

void Playback::setItemID(const std::optional<QString>& id) {
  if (itemID_ == id) return;
  itemID_ = id;
  Q_EMIT itemIDChanged();
}

void Playback::setLoading(bool loading) {
  if (loading_ == loading) return;
  loading_ = loading;
  Q_EMIT loadingChanged();
}

void Playback::setMessage(const std::optional<QString>& message) {
  if (message_ == message) return;
  message_ = message;
  Q_EMIT messageChanged();
}

void Playback::setHeldFrame(const QImage& image) {
  if (heldFrame_.isNull() && image.isNull()) return;
  heldFrame_ = image;
  Q_EMIT heldFrameChanged();
}

void Playback::setIsLocal(bool local) {
  if (isLocal_ == local) return;
  isLocal_ = local;
  Q_EMIT isLocalChanged();
}

void Playback::setPaused(bool paused) {
  if (paused_ == paused) return;
  paused_ = paused;
  Q_EMIT pausedChanged();
}

}  // namespace vantor
