#include "playback/libvlc_engine.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <optional>
#include <thread>
#include <utility>

#include "platform/mailbox.h"
#include "playback/libvlc_options.h"
#include "playback/libvlc_player.h"
#include "playback/still.h"

namespace vantor {

namespace {

using namespace std::chrono_literals;

constexpr auto sampleInterval = 100ms;
constexpr auto hurriedInterval = 5ms;
// A film with subtitles cannot be stopped while the library looks through the system's fonts.
constexpr auto longestGoodbye = 500ms;
constexpr auto longestSaving = 3s;

bool isOver(const EngineStatus& status) {
  return status.state == EngineState::ended || status.state == EngineState::error;
}

/// A difference that should not wait for the next look at the status.
bool isNews(const EngineStatus& before, const EngineStatus& now) {
  return (before.decodedVideo == 0 && now.decodedVideo > 0) ||
         (before.state != now.state && isOver(now));
}

}  // namespace

/// What the main thread and the engine's thread share. It outlives the engine when libVLC hangs.
class LibVLCEngine::Core : public std::enable_shared_from_this<Core> {
 public:
  using Command = std::function<void(LibVLCPlayer&)>;

  Core(LibVLCEngine* owner, std::shared_ptr<VideoFrameQueue> frames, QList<QByteArray> options,
       LibVLCInternals internals)
      : frames_(std::move(frames)),
        options_(std::move(options)),
        internals_(internals),
        owner_(owner) {}

  /// Main thread only; once started it stays so.
  void start() {
    if (thread_.joinable()) return;
    thread_ = std::thread([self = shared_from_this()] { self->run(); });
  }

  void post(Command command) {
    start();
    {
      const std::lock_guard lock(mutex_);
      commands_.push_back({std::move(command), {}});
    }
    wake_.notify_one();
  }

  /// For the present source only: left out when another has begun before its turn, so that of many
  /// openings in a row the last one does not wait for the others.
  void postForSource(Command command) {
    start();
    {
      const std::lock_guard lock(mutex_);
      commands_.push_back({std::move(command), source_});
    }
    wake_.notify_one();
  }

  /// Begins a new source, of which nothing but `status` is known.
  SourceNumber begin(const EngineStatus& status) {
    const std::lock_guard lock(mutex_);
    status_ = status;
    return ++source_;
  }

  EngineStatus status() const {
    const std::lock_guard lock(mutex_);
    return status_;
  }

  AudioDevices audioDevices() const {
    const std::lock_guard lock(mutex_);
    return devices_;
  }

  void markOpening() {
    const std::lock_guard lock(mutex_);
    if (isOver(status_)) status_.state = EngineState::opening;
  }

  void finish() {
    owner_ = nullptr;
    if (!thread_.joinable()) return;
    std::unique_lock lock(mutex_);
    quitting_ = true;
    commands_.clear();
    wake_.notify_one();
    const auto longest = recording_ ? longestSaving : longestGoodbye;
    const bool ended = ended_.wait_for(lock, longest, [this] { return over_; });
    lock.unlock();
    if (ended)
      thread_.join();
    else
      thread_.detach();
  }

 private:
  struct Posted {
    Command command;
    std::optional<SourceNumber> source;
  };

  void run() {
    {
      LibVLCPlayer player(options_, internals_, frames_, [this] { notice(); });
      while (const Command command = next(interval(player))) {
        command(player);
        publish(player.source(), player.sample());
        noteDevices(player.audioDevices());
        if (const auto file = player.takeRecording()) report(*file);
        noteRecording(player.isRecording());
      }
    }
    const std::lock_guard lock(mutex_);
    over_ = true;
    ended_.notify_one();
  }

  /// How long to wait for a command before looking at the player; absent when nothing can change.
  std::optional<std::chrono::milliseconds> interval(const LibVLCPlayer& player) const {
    if (player.isHurried()) return hurriedInterval;
    if (seen_.hasMedia && !isOver(seen_)) return sampleInterval;
    return {};
  }

  /// The next command, one that does nothing when it is time to look at the player, none at the
  /// end.
  Command next(std::optional<std::chrono::milliseconds> wait) {
    std::unique_lock lock(mutex_);
    const auto due = [this] { return quitting_ || noticed_ || !commands_.empty(); };
    if (wait)
      wake_.wait_for(lock, *wait, due);
    else
      wake_.wait(lock, due);
    noticed_ = false;
    if (quitting_) return {};
    while (!commands_.empty()) {
      Posted posted = std::move(commands_.front());
      commands_.pop_front();
      if (posted.source.value_or(source_) == source_) return std::move(posted.command);
    }
    return [](LibVLCPlayer&) {};
  }

  void notice() {
    {
      const std::lock_guard lock(mutex_);
      noticed_ = true;
    }
    wake_.notify_one();
  }

  void publish(SourceNumber source, const EngineStatus& status) {
    const EngineStatus before = std::exchange(seen_, status);
    const std::lock_guard lock(mutex_);
    if (source != source_) return;
    status_ = status;
    if (isNews(before, status))
      Mailbox::postToMain([self = shared_from_this(), source] { self->announce(source); });
  }

  void noteDevices(const AudioDevices& devices) {
    const std::lock_guard lock(mutex_);
    devices_ = devices;
  }

  void noteRecording(bool recording) {
    const std::lock_guard lock(mutex_);
    recording_ = recording;
  }

  void report(const QString& file) {
    Mailbox::postToMain([self = shared_from_this(), file] { self->deliver(file); });
  }

  void deliver(const QString& file) {
    if (!owner_) return;
    if (owner_->onRecordingStopped) owner_->onRecordingStopped(file);
  }

  void announce(SourceNumber source) {
    {
      const std::lock_guard lock(mutex_);
      if (source != source_) return;
    }
    if (owner_ && owner_->onChange) owner_->onChange();
  }

  const std::shared_ptr<VideoFrameQueue> frames_;
  const QList<QByteArray> options_;
  const LibVLCInternals internals_;
  LibVLCEngine* owner_;  // main thread only; null once it is gone
  std::thread thread_;
  EngineStatus seen_;  // engine's thread only

  mutable std::mutex mutex_;  // guards what follows
  std::condition_variable wake_;
  std::condition_variable ended_;
  std::deque<Posted> commands_;
  bool noticed_ = false;
  bool quitting_ = false;
  bool over_ = false;
  bool recording_ = false;  // a recording is not finished
  SourceNumber source_ = 0;
  EngineStatus status_;
  AudioDevices devices_;
};

LibVLCEngine::LibVLCEngine(std::shared_ptr<VideoFrameQueue> frames, Output output,
                           LibVLCInternals internals)
    : frames_(std::move(frames)),
      core_(std::make_shared<Core>(this, frames_, libraryOptions(output), internals)) {}

void LibVLCEngine::warmUp() {
  core_->start();
}

LibVLCEngine::~LibVLCEngine() {
  core_->finish();
}

void LibVLCEngine::load(const MediaSource& source) {
  const SourceNumber number = core_->begin({.hasMedia = true, .releasing = true});
  frames_->expect(number);
  core_->postForSource([source, number](LibVLCPlayer& player) { player.load(source, number); });
}

void LibVLCEngine::unload() {
  const SourceNumber number = core_->begin({.releasing = true});
  frames_->expect(number);
  core_->postForSource([number](LibVLCPlayer& player) { player.unload(number); });
}

void LibVLCEngine::play() {
  core_->markOpening();
  core_->postForSource([](LibVLCPlayer& player) { player.play(); });
}

void LibVLCEngine::pause() {
  core_->postForSource([](LibVLCPlayer& player) { player.pause(); });
}

void LibVLCEngine::setTime(std::int64_t milliseconds) {
  core_->postForSource([milliseconds](LibVLCPlayer& player) { player.setTime(milliseconds); });
}

void LibVLCEngine::setVolume(int percent) {
  core_->post([percent](LibVLCPlayer& player) { player.setVolume(percent); });
}

void LibVLCEngine::setAudioTrack(std::int32_t id) {
  core_->postForSource([id](LibVLCPlayer& player) { player.setAudioTrack(id); });
}

void LibVLCEngine::setSubtitleTrack(std::int32_t id) {
  core_->postForSource([id](LibVLCPlayer& player) { player.setSubtitleTrack(id); });
}

void LibVLCEngine::setRate(float rate) {
  core_->postForSource([rate](LibVLCPlayer& player) { player.setRate(rate); });
}

EngineStatus LibVLCEngine::status() const {
  return core_->status();
}

void LibVLCEngine::setAudioDevice(const QString& id) {
  core_->post([id](LibVLCPlayer& player) { player.setAudioDevice(id); });
}

void LibVLCEngine::setAudioDelay(int milliseconds) {
  core_->post([milliseconds](LibVLCPlayer& player) { player.setAudioDelay(milliseconds); });
}

AudioDevices LibVLCEngine::audioDevices() const {
  return core_->audioDevices();
}

void LibVLCEngine::saveSnapshot(const QString& file, int width) {
  const SharedFrame frame = frames_->latest();
  if (!frame) return;
  core_->postForSource(
      [frame, file, width](LibVLCPlayer&) { savePNG(stillOf(*frame, width), file); });
}

bool LibVLCEngine::startRecording(const QString& folder) {
  if (!core_->status().recordable) return false;
  core_->post([folder](LibVLCPlayer& player) { player.startRecording(folder); });
  return true;
}

bool LibVLCEngine::stopRecording() {
  core_->post([](LibVLCPlayer& player) { player.stopRecording(); });
  return true;
}

}  // namespace vantor
