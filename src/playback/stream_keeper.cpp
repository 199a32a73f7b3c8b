#include "playback/stream_keeper.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "platform/app_error.h"
#include "platform/trace.h"
#include "playback/playback.h"
#include "playback/video_frame_queue.h"

namespace vantor {

namespace {

using namespace std::chrono_literals;

constexpr auto lookInterval = 250ms;
constexpr auto frozen = 10s;                         // without a picture or sound
constexpr auto frozenAfterNews = 2s;                 // once the network has changed
constexpr std::array waits = {1s, 2s, 4s, 8s, 15s};  // before each attempt; the last one again
constexpr auto longestInterruption = 3min;
constexpr auto steady = 30s;  // of playing, after which it is all forgotten
constexpr auto release = 50ms;
constexpr auto answer = 10s;                    // without data
constexpr std::int64_t longestReason = 65'536;  // bytes

/// That a later attempt would change nothing: the account, its rights, or its connections.
bool isRefusal(int status) {
  constexpr std::array refusals{401, 403, 429};
  return std::ranges::find(refusals, status) != refusals.end();
}

}  // namespace

StreamKeeper::StreamKeeper(Playback& playback, MediaEngine& engine, VideoFrameQueue& frames,
                           HTTPTransport& transport, Clock& clock)
    : playback_(playback), engine_(engine), frames_(frames), transport_(transport), clock_(clock) {
  connect(&playback_, &Playback::commanded, this, &StreamKeeper::forget);
  connect(&playback_, &Playback::stateChanged, this, &StreamKeeper::onStateChanged);
  playback_.beforeOpening = [this]() -> std::optional<Pending<Done>> {
    if (!connected_) return {};
    return queue_.emplace_back();
  };
}

StreamKeeper::~StreamKeeper() {
  playback_.beforeOpening = nullptr;
  freeConnection();
}

void StreamKeeper::giveUp() {
  if (!bringingBack()) return;
  enter(Stage::idle);
  if (playback_.state() != PlaybackState::failed) playback_.abandon();
}

void StreamKeeper::hurry() {
  doubtful_ = true;
  hurried_ = bringingBack();
  if (stage_ == Stage::waiting) tick();
}

void StreamKeeper::enter(Stage stage) {
  const bool before = bringingBack();
  stage_ = stage;
  since_ = clock_.steadyNow();
  if (stage != Stage::asking) question_ = {};
  if (stage == Stage::idle) watch_ = {};
  frames_.hold(stage != Stage::idle);
  if (before != bringingBack()) Q_EMIT bringingBackChanged();
}

void StreamKeeper::forget() {
  attempts_ = 0;
  spent_ = {};
  place_ = length_ = 0;
  hurried_ = false;
  enter(Stage::idle);
  // The command may have left the state as it was.
  onStateChanged();
}

void StreamKeeper::onStateChanged() {
  const PlaybackState state = playback_.state();
  switch (stage_) {
    case Stage::idle:
      if (state == PlaybackState::playing && playback_.source()->kind != SourceKind::file) begin();
      break;
    case Stage::watching:
      if (state == PlaybackState::playing) break;
      if ((state == PlaybackState::ended || state == PlaybackState::failed) && comesBack())
        interrupted();
      else
        enter(Stage::idle);
      break;
    case Stage::opening:
      if (state == PlaybackState::playing) {
        playback_.setRate(seen_.rate);
        opened();
      }
      if (state != PlaybackState::failed) break;
      enter(Stage::asking);
      question_ =
          Job::start([self = QPointer(this)](std::stop_token token) { return ask(self, token); });
      break;
    case Stage::waiting:
    case Stage::asking:
      break;
  }
}

void StreamKeeper::begin() {
  seen_ = {};
  hasMoved();
  doubtful_ = false;
  moved_ = clock_.steadyNow();
  enter(Stage::watching);
  if (!watch_.running())
    watch_ =
        Job::start([self = QPointer(this)](std::stop_token token) { return keep(self, token); });
}

QCoro::Task<> StreamKeeper::keep(QPointer<StreamKeeper> self, std::stop_token token) {
  while (self && !token.stop_requested()) {
    self->tick();
    if (!self || token.stop_requested()) co_return;
    const QCoro::Task<> nap = self->clock_.sleep(lookInterval, token);
    co_await nap;
  }
}

void StreamKeeper::tick() {
  if (stage_ == Stage::watching) look();
  if (!bringingBack()) return;
  const SteadyTime now = clock_.steadyNow();
  if (spent_ + (now - interrupted_) >= longestInterruption) {
    giveUp();
    return;
  }
  if (stage_ != Stage::waiting) return;
  if (playback_.state() == PlaybackState::playing && hasMoved()) {
    opened();
    return;
  }
  const auto longest = waits.at(std::min(attempts_, waits.size() - 1));
  if (now - since_ >= (hurried_ ? waits.front() : longest)) attempt();
}

void StreamKeeper::look() {
  const SteadyTime now = clock_.steadyNow();
  if (now - since_ >= steady) {
    attempts_ = 0;
    spent_ = {};
  }
  if (hasMoved()) {
    moved_ = now;
    doubtful_ = false;
  }
  if (now - moved_ >= (doubtful_ ? frozenAfterNews : frozen) && comesBack()) interrupted();
}

bool StreamKeeper::hasMoved() {
  const std::int64_t before = seen_.decoded;
  see();
  return seen_.decoded != before;
}

void StreamKeeper::see() {
  const EngineStatus now = engine_.status();
  // What has failed knows no place, nor does what was unloaded for it.
  if (now.hasMedia && now.state != EngineState::error) seen_ = now;
}

bool StreamKeeper::comesBack() {
  if (playback_.source()->kind == SourceKind::broadcast) return true;
  see();
  // A film that goes on at its place is at its beginning for a moment, and has no length.
  const bool again = attempts_ > 0;
  place_ = std::max(again ? place_ : 0, static_cast<double>(seen_.time) / 1000);
  length_ = std::max(again ? length_ : 0, static_cast<double>(seen_.length) / 1000);
  return place_ < length_ - Playback::finishMargin;
}

void StreamKeeper::interrupted() {
  interrupted_ = clock_.steadyNow();
  hurried_ = doubtful_;
  if (playback_.recording().stage() == Recording::Stage::running) playback_.finishRecording();
  enter(Stage::waiting);
}

void StreamKeeper::attempt() {
  if (playback_.recording().stage() != Recording::Stage::idle) return;
  ++attempts_;
  hurried_ = false;
  enter(Stage::opening);
  playback_.reopen(place_);
}

void StreamKeeper::opened() {
  spent_ += clock_.steadyNow() - interrupted_;
  begin();
}

QCoro::Task<> StreamKeeper::ask(QPointer<StreamKeeper> self, std::stop_token token) {
  while (self && !token.stop_requested() && self->engine_.status().releasing) {
    const QCoro::Task<> nap = self->clock_.sleep(release, token);
    co_await nap;
  }
  if (!self || token.stop_requested()) co_return;
  const PlayRequest& source = *self->playback_.source();
  const HTTPRequest request{source.url, source.agent.toUtf8(), answer};
  const Attempt trace(playbackTrace, "to ask whether a source is refused");
  int status = 0;
  self->connected_ = true;
  try {
    const QCoro::Task<QByteArray> asking = self->transport_.fetch(request, longestReason, token);
    co_await asking;
  } catch (const AppError&) {
    // It sends more than a reason to refuse, and that is all there is to know.
  } catch (const HTTPFailure& failure) {
    status = failure.status;
    trace.failed();
  } catch (...) {
    trace.failed();
  }
  if (!self) co_return;
  self->freeConnection();
  if (!token.stop_requested()) self->answered(status);
}

void StreamKeeper::answered(int status) {
  if (isRefusal(status))
    giveUp();
  else
    enter(Stage::waiting);
}

void StreamKeeper::freeConnection() {
  connected_ = false;
  for (const Pending<Done>& opening : std::exchange(queue_, {})) opening.resolve({});
}

}  // namespace vantor
