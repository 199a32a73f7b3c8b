#include "playback/libvlc_recorder.h"

#include <vlc_common.h>
#include <vlc_variables.h>
// Needs the above first.
#include <vlc_input.h>

#include <QFile>
#include <atomic>
#include <cstring>
#include <mutex>
#include <utility>

namespace vantor {

namespace {

using namespace std::chrono_literals;

// After a stop, how long the input has to carry it out.
constexpr auto kPatience = 3s;

constexpr const char* kEvents = "intf-event";
constexpr const char* kRecord = "record";
constexpr const char* kFolder = "input-record-path";
constexpr const char* kRecordedFile = "record-file";

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
  std::atomic<int> changes = 0;    // starts and stops that the input has carried out
  std::atomic<bool> dead = false;  // the input has ended by itself
  std::mutex mutex;
  QString path;  // named at the start or at the stop, as the container goes

  static int onFile(vlc_object_t*, const char*, vlc_value_t, vlc_value_t now, void* opaque) {
    auto* self = static_cast<Signals*>(opaque);
    const std::lock_guard lock(self->mutex);
    self->path = now.psz_string ? QFile::decodeName(now.psz_string) : QString();
    return VLC_SUCCESS;
  }

  static int onEvent(vlc_object_t*, const char*, vlc_value_t, vlc_value_t now, void* opaque) {
    auto* self = static_cast<Signals*>(opaque);
    if (now.i_int == INPUT_EVENT_RECORD)
      ++self->changes;
    else if (now.i_int == INPUT_EVENT_DEAD)
      self->dead = true;
    else
      return VLC_SUCCESS;
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
    if (listener_) var_DelCallback(object_, kEvents, Signals::onEvent, listener_);
    if (object_) vlc_object_release(object_);
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  bool canRecord() const { return object_ && var_GetBool(object_, "can-record"); }
  void record(bool on) { var_SetBool(object_, kRecord, on); }
  void recordInto(const QByteArray& folder) {
    var_Create(object_, kFolder, VLC_VAR_STRING);
    var_SetString(object_, kFolder, folder.constData());
  }
  void tell(Signals* listener) {
    listener_ = listener;
    var_AddCallback(object_, kEvents, Signals::onEvent, listener);
  }

 private:
  vlc_object_t* object_ = nullptr;
  Signals* listener_ = nullptr;
};

LibVLCRecorder::LibVLCRecorder(libvlc_media_player_t* player, std::function<void()> onNews)
    : player_(player), signals_(std::make_unique<Signals>()) {
  signals_->onNews = std::move(onNews);
  vlc_object_t* library = libraryOf(player_);
  var_Create(library, kRecordedFile, VLC_VAR_STRING);
  var_AddCallback(library, kRecordedFile, Signals::onFile, signals_.get());
}

LibVLCRecorder::~LibVLCRecorder() {
  vlc_object_t* library = libraryOf(player_);
  var_DelCallback(library, kRecordedFile, Signals::onFile, signals_.get());
  var_Destroy(library, kRecordedFile);
}

bool LibVLCRecorder::canRecord() const {
  return Input(player_).canRecord();
}

bool LibVLCRecorder::start(const QString& folder) {
  if (stage_ != Stage::idle) return false;
  auto input = std::make_unique<Input>(player_);
  if (!input->canRecord()) return false;
  {
    const std::lock_guard lock(signals_->mutex);
    signals_->path.clear();
  }
  signals_->changes = 0;
  signals_->dead = false;
  inputEnded_ = false;
  input->tell(signals_.get());
  input->recordInto(QFile::encodeName(folder));
  input->record(true);
  input_ = std::move(input);
  stage_ = Stage::running;
  return true;
}

void LibVLCRecorder::stop() {
  // One that did not start is answered as well, with no file.
  if (stage_ == Stage::idle) inputEnded_ = true;
  stage_ = Stage::stopping;
  stopAsked_ = std::chrono::steady_clock::now();
  if (input_) input_->record(false);
}

void LibVLCRecorder::inputEnded() {
  inputEnded_ = true;
}

bool LibVLCRecorder::isComplete() const {
  constexpr int kStartAndStop = 2;
  return inputEnded_ || signals_->dead || signals_->changes >= kStartAndStop ||
         std::chrono::steady_clock::now() - stopAsked_ > kPatience;
}

std::optional<QString> LibVLCRecorder::takeFinished() {
  if (stage_ != Stage::stopping || !isComplete()) return {};
  stage_ = Stage::idle;
  input_.reset();
  const std::lock_guard lock(signals_->mutex);
  return std::exchange(signals_->path, {});
}

}  // namespace vantor
