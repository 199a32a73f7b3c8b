#include "playback/libvlc_recorder.h"

#include <sys/statvfs.h>

#include <vlc_common.h>
#include <vlc_variables.h>
// Needs the above first.
#include <vlc_input.h>

#include <QDir>
#include <QFile>
#include <QUuid>
#include <algorithm>
#include <atomic>
#include <cstring>
#include <mutex>
#include <utility>

#include "playback/libvlc_handles.h"

namespace vantor {

namespace {

using namespace std::chrono_literals;

// After a stop, how long an input that waits for its source keeps a file that has a name already.
constexpr auto patience = 3s;

// After a stop, how long an input that waits for its source keeps any file.
constexpr auto longestPatience = 10s;

// What libVLC holds in memory at most before it writes anything but a transport stream.
constexpr std::int64_t mostHeld = 20 << 20;
// Room for the end of such a file: its index grows with its length, generously by this every
// second.
constexpr std::int64_t leastEnd = 512 << 10;
constexpr std::int64_t endEverySecond = 2 << 10;
// Read by then, a transport stream has got its file.
constexpr std::int64_t surelyBegun = 256 << 10;

constexpr const char* events = "intf-event";
constexpr const char* recordVariable = "record";
constexpr const char* folderVariable = "input-record-path";
constexpr const char* recordedFile = "record-file";

vlc_object_t* objectOf(libvlc_media_player_t* player) {
  return reinterpret_cast<vlc_object_t*>(player);
}

vlc_object_t* libraryOf(libvlc_media_player_t* player) {
  return reinterpret_cast<vlc_object_t*>(objectOf(player)->obj.libvlc);
}

}  // namespace

/// What libVLC's threads tell.
struct LibVLCRecorder::Signals {
  std::function<void()> onNews;
  std::atomic<int> changes = 0;       // starts and stops that the input has carried out
  std::atomic<bool> failed = false;   // to start
  std::atomic<bool> stopped = false;  // by us
  std::atomic<bool> dead = false;     // the input has ended by itself
  std::mutex mutex;
  QString path;  // named at the start or at the stop, as the container goes

  static int onFile(vlc_object_t*, const char*, vlc_value_t, vlc_value_t now, void* opaque) {
    auto* self = static_cast<Signals*>(opaque);
    const std::lock_guard lock(self->mutex);
    self->path = now.psz_string ? QFile::decodeName(now.psz_string) : QString();
    return VLC_SUCCESS;
  }

  static int onEvent(vlc_object_t* input, const char*, vlc_value_t, vlc_value_t now, void* opaque) {
    auto* self = static_cast<Signals*>(opaque);
    if (now.i_int == INPUT_EVENT_RECORD) {
      ++self->changes;
      // The input takes back what it could not do.
      if (!var_GetBool(input, recordVariable) && !self->stopped) self->failed = true;
    } else if (now.i_int == INPUT_EVENT_DEAD) {
      self->dead = true;
    } else {
      return VLC_SUCCESS;
    }
    self->onNews();
    return VLC_SUCCESS;
  }
};

/// The player's present input, held so that it outlives the player's interest in it.
class LibVLCRecorder::Input {
 public:
  explicit Input(libvlc_media_player_t* player) {
    vlc_list_t* children = vlc_list_children(objectOf(player));
    for (int i = 0; children && i < children->i_count; ++i) {
      auto* child = static_cast<vlc_object_t*>(children->p_values[i].p_address);
      if (!object_ && std::strcmp(child->obj.object_type, "input") == 0)
        object_ = static_cast<vlc_object_t*>(vlc_object_hold(child));
    }
    if (children) vlc_list_release(children);
  }
  ~Input() {
    if (listener_) var_DelCallback(object_, events, Signals::onEvent, listener_);
    if (object_) vlc_object_release(object_);
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  bool canRecord() const { return object_ && var_GetBool(object_, "can-record"); }
  void record(bool on) { var_SetBool(object_, recordVariable, on); }
  void recordInto(const QByteArray& folder, const QByteArray& name) {
    var_Create(object_, folderVariable, VLC_VAR_STRING);
    var_SetString(object_, folderVariable, folder.constData());
    input_item_SetName(input_GetItem(reinterpret_cast<input_thread_t*>(object_)), name.constData());
  }
  void tell(Signals* listener) {
    listener_ = listener;
    var_AddCallback(object_, events, Signals::onEvent, listener);
  }

 private:
  vlc_object_t* object_ = nullptr;
  Signals* listener_ = nullptr;
};

LibVLCRecorder::LibVLCRecorder(libvlc_media_player_t* player, std::function<void()> onNews)
    : player_(player), signals_(std::make_unique<Signals>()) {
  signals_->onNews = std::move(onNews);
  vlc_object_t* library = libraryOf(player_);
  var_Create(library, recordedFile, VLC_VAR_STRING);
  var_AddCallback(library, recordedFile, Signals::onFile, signals_.get());
}

LibVLCRecorder::~LibVLCRecorder() {
  vlc_object_t* library = libraryOf(player_);
  var_DelCallback(library, recordedFile, Signals::onFile, signals_.get());
  var_Destroy(library, recordedFile);
}

bool LibVLCRecorder::canRecord() const {
  return Input(player_).canRecord();
}

void LibVLCRecorder::start(const QString& folder) {
  if (stage_ != Stage::idle) return;
  {
    const std::lock_guard lock(signals_->mutex);
    signals_->path.clear();
  }
  signals_->changes = 0;
  signals_->failed = signals_->stopped = signals_->dead = false;
  stage_ = Stage::running;
  auto input = std::make_unique<Input>(player_);
  inputEnded_ = !input->canRecord();
  if (inputEnded_) return;
  input->tell(signals_.get());
  // The library names its files after the end of the address, which may hold a key, and after the
  // second, so that one recording would replace another.
  name_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
  folder_ = folder;
  read_.begin(bytesRead().value_or(0));
  started_ = std::chrono::steady_clock::now();
  input->recordInto(QFile::encodeName(folder_), name_.toLatin1());
  input->record(true);
  input_ = std::move(input);
}

void LibVLCRecorder::stop() {
  if (stage_ != Stage::running) return;
  stage_ = Stage::stopping;
  stopAsked_ = std::chrono::steady_clock::now();
  signals_->stopped = true;
  if (input_) input_->record(false);
}

void LibVLCRecorder::inputEnded() {
  inputEnded_ = true;
}

bool LibVLCRecorder::isComplete() const {
  constexpr int startAndStop = 2;
  if (inputEnded_ || signals_->dead || signals_->failed || signals_->changes >= startAndStop)
    return true;
  if (stage_ != Stage::stopping || std::chrono::steady_clock::now() - stopAsked_ < patience)
    return false;
  const std::lock_guard lock(signals_->mutex);
  return !signals_->path.isEmpty();
}

bool LibVLCRecorder::isStuck() const {
  return stage_ == Stage::stopping && !isComplete() &&
         std::chrono::steady_clock::now() - stopAsked_ > longestPatience;
}

std::optional<std::int32_t> LibVLCRecorder::bytesRead() const {
  const LibVLCHandle<libvlc_media_t> media(libvlc_media_player_get_media(player_));
  libvlc_media_stats_t counts = {};
  if (!media || !libvlc_media_get_stats(media.get(), &counts)) return {};
  return counts.i_demux_read_bytes;
}

bool LibVLCRecorder::diskRunsFull() {
  {
    const std::lock_guard lock(signals_->mutex);
    if (!signals_->path.isEmpty()) return false;  // a transport stream plays as far as it goes
  }
  const std::optional<std::int32_t> count = bytesRead();
  const std::int64_t read = count ? read_.grownTo(*count) : 0;
  struct statvfs disk = {};
  if (read < surelyBegun || ::statvfs(QFile::encodeName(folder_).constData(), &disk) != 0)
    return false;
  const auto left = static_cast<std::int64_t>(disk.f_bavail * disk.f_frsize);
  const auto lasted =
      std::chrono::floor<std::chrono::seconds>(std::chrono::steady_clock::now() - started_);
  return left < std::min(read, mostHeld) + leastEnd + lasted.count() * endEverySecond;
}

std::optional<QString> LibVLCRecorder::takeFinished() {
  if (stage_ == Stage::running && !isComplete() && diskRunsFull()) stop();
  if (stage_ == Stage::idle || !isComplete()) return {};
  stage_ = Stage::idle;
  input_.reset();
  const std::lock_guard lock(signals_->mutex);
  return existing(std::exchange(signals_->path, {}));
}

QString LibVLCRecorder::existing(const QString& reported) const {
  if (reported.isEmpty() || QFile::exists(reported)) return reported;
  // The path of anything but a transport stream comes with its quotes and backslashes escaped.
  const QFileInfoList found =
      QDir(folder_).entryInfoList({QLatin1Char('*') + name_ + QLatin1Char('*')}, QDir::Files);
  return found.isEmpty() ? reported : found.first().filePath();
}

}  // namespace vantor
