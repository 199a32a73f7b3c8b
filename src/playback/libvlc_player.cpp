#include "playback/libvlc_player.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "playback/libvlc_options.h"
#include "playback/libvlc_stop.h"

namespace vantor {

namespace {

constexpr std::array newsEvents{libvlc_MediaPlayerPlaying,          libvlc_MediaPlayerEndReached,
                                libvlc_MediaPlayerEncounteredError, libvlc_MediaPlayerESSelected,
                                libvlc_MediaPlayerAudioDevice,      libvlc_MediaPlayerAudioVolume};

// Pictures decoded after which a source has started although none was in time to be shown.
constexpr std::int64_t unseenPictures = 250;

// Bits a second, for the bytes a microsecond that the library counts.
constexpr double bitRateUnit = 8'000'000;

// The library's own messages carry addresses, and those carry passwords.
void discard(void*, int, const libvlc_log_t*, const char*, va_list) {}

EngineState stateOf(libvlc_state_t state) {
  switch (state) {
    case libvlc_Opening:
      return EngineState::opening;
    case libvlc_Buffering:
    case libvlc_Playing:
      return EngineState::playing;
    case libvlc_Paused:
      return EngineState::paused;
    case libvlc_Ended:
      return EngineState::ended;
    case libvlc_Error:
      return EngineState::error;
    case libvlc_NothingSpecial:
    case libvlc_Stopped:
      break;
  }
  return EngineState::idle;
}

/// What the media has told of each of the listed tracks, in their order; fewer when it is unknown.
std::vector<const libvlc_media_track_t*> toldOf(const QList<EngineTrack>& listed,
                                                libvlc_track_type_t type,
                                                const LibVLCTracks& told) {
  std::vector<const libvlc_media_track_t*> ofType;
  std::ranges::copy_if(told, std::back_inserter(ofType),
                       [type](const auto* track) { return track->i_type == type; });
  std::vector<const libvlc_media_track_t*> found;
  for (const EngineTrack& track : listed) {
    const auto same = std::ranges::find(ofType, track.id, &libvlc_media_track_t::i_id);
    if (same != ofType.end()) found.push_back(*same);
  }
  const auto count = static_cast<std::size_t>(listed.size());
  if (found.size() == count || ofType.size() < count) return found;
  // Those of a transport stream are told of under other numbers, in the same order; what it has had
  // before stays in front.
  return {ofType.end() - listed.size(), ofType.end()};
}

/// The library lists "Disable" with the identifier -1 among the tracks.
QList<EngineTrack> tracksOf(libvlc_track_description_t* first, libvlc_track_type_t type,
                            const LibVLCTracks& told) {
  const LibVLCHandle<libvlc_track_description_t> list(first);
  QList<EngineTrack> tracks;
  for (const libvlc_track_description_t* track = first; track; track = track->p_next) {
    if (track->i_id >= 0 && track->psz_name)
      tracks.append({.id = track->i_id, .name = QString::fromUtf8(track->psz_name)});
  }
  const auto known = toldOf(tracks, type, told);
  if (known.size() != static_cast<std::size_t>(tracks.size())) return tracks;
  for (qsizetype i = 0; i < tracks.size(); ++i) {
    tracks[i].language = QString::fromUtf8(known[i]->psz_language);
    tracks[i].title = QString::fromUtf8(known[i]->psz_description);
  }
  return tracks;
}

LibVLCHandle<libvlc_instance_t> makeInstance(const QList<QByteArray>& options) {
  std::vector<const char*> arguments;
  for (const QByteArray& option : options) arguments.push_back(option.constData());
  LibVLCHandle<libvlc_instance_t> instance(
      libvlc_new(static_cast<int>(arguments.size()), arguments.data()));
  if (instance) libvlc_log_set(instance.get(), discard, nullptr);
  return instance;
}

}  // namespace

LibVLCPlayer::LibVLCPlayer(const QList<QByteArray>& libraryOptions, LibVLCInternals internals,
                           std::shared_ptr<VideoFrameQueue> frames, std::function<void()> onNews)
    : onNews_(std::move(onNews)), instance_(makeInstance(libraryOptions)) {
  if (!instance_) return;
  player_.reset(libvlc_media_player_new(instance_.get()));
  if (!player_) return;
  if (!libraryOptions.contains("--vout=dummy")) {
    output_ = std::make_unique<LibVLCVideoOutput>(std::move(frames), internals, onNews_);
    output_->attach(player_.get());
  }
  if (internals == LibVLCInternals::used)
    recorder_ = std::make_unique<LibVLCRecorder>(player_.get(), onNews_);
  libvlc_event_manager_t* events = libvlc_media_player_event_manager(player_.get());
  for (const auto event : newsEvents) {
    libvlc_event_attach(events, event, onEvent, this);
  }
}

void LibVLCPlayer::onEvent(const libvlc_event_t* event, void* opaque) {
  auto* self = static_cast<LibVLCPlayer*>(opaque);
  if (event->type == libvlc_MediaPlayerEncounteredError) self->failed_ = true;
  self->onNews_();
}

LibVLCPlayer::~LibVLCPlayer() {
  if (!player_) return;
  libvlc_event_manager_t* events = libvlc_media_player_event_manager(player_.get());
  for (const auto event : newsEvents) {
    libvlc_event_detach(events, event, onEvent, this);
  }
  stopPlayer(player_.get());
}

void LibVLCPlayer::load(const MediaSource& source, SourceNumber number) {
  LibVLCHandle<libvlc_media_t> media;
  if (instance_)
    media.reset(libvlc_media_new_location(instance_.get(), source.address.toEncoded().constData()));
  if (media) {
    for (const QByteArray& option : mediaOptions(source))
      libvlc_media_add_option(media.get(), option.constData());
  }
  const bool refused = !media;
  replaceMedia(std::move(media), number);
  refused_ = refused;
}

void LibVLCPlayer::unload(SourceNumber number) {
  replaceMedia(nullptr, number);
}

void LibVLCPlayer::replaceMedia(LibVLCHandle<libvlc_media_t> media, SourceNumber number) {
  if (player_) {
    stop();
    // The library takes the last media's speed over.
    libvlc_media_player_set_rate(player_.get(), 1);
    if (media && output_) followAudio();
    libvlc_media_player_set_media(player_.get(), media.get());
  }
  media_ = std::move(media);
  source_ = number;
  last_ = {};
  refused_ = false;
  if (output_) output_->beginSource(number);
}

void LibVLCPlayer::stop() {
  stopPlayer(player_.get());
  if (recorder_) recorder_->inputEnded();
  failed_ = false;
  givenUp_ = false;
  volumeApplied_ = false;
  deviceApplied_ = false;
  delayApplied_ = 0;
}

void LibVLCPlayer::play() {
  if (!media_ || !player_) return;
  // A media that has ended keeps its input, which takes no order to play.
  const EngineState state = stateOf(libvlc_media_player_get_state(player_.get()));
  if (state == EngineState::ended || state == EngineState::error) {
    stop();
  }
  givenUp_ = false;
  refused_ = libvlc_media_player_play(player_.get()) != 0;
  applyDelay();
}

void LibVLCPlayer::pause() {
  if (player_) libvlc_media_player_set_pause(player_.get(), 1);
}

void LibVLCPlayer::setTime(std::int64_t milliseconds) {
  if (player_) libvlc_media_player_set_time(player_.get(), milliseconds);
}

void LibVLCPlayer::setVolume(int percent) {
  volume_ = percent;
  volumeApplied_ = false;
  applyVolume();
}

void LibVLCPlayer::followAudio() {
  const AudioOutput now = availableAudio();
  const std::optional<AudioOutput> before = std::exchange(audio_, now);
  // What there is at first the library finds by itself; without any it complains.
  if (before == now || (!before && now != AudioOutput::none)) return;
  const char* name = now == AudioOutput::none     ? "dummy"
                     : now == AudioOutput::server ? "pulse"
                                                  : "alsa";
  libvlc_audio_output_set(player_.get(), name);
}

void LibVLCPlayer::applyVolume() {
  // There is nothing to set before the media's sound has an output.
  if (volumeApplied_ || !player_ || libvlc_audio_get_volume(player_.get()) < 0) return;
  volumeApplied_ = libvlc_audio_set_volume(player_.get(), volume_) == 0;
}

void LibVLCPlayer::setAudioDevice(const QString& id) {
  if (id.isEmpty() && !device_.isEmpty() && player_ && !devices_.present.isEmpty())
    libvlc_audio_output_device_set(player_.get(), nullptr,
                                   audio_ == AudioOutput::server ? "@DEFAULT_SINK@" : "default");
  device_ = id;
  deviceApplied_ = false;
}

void LibVLCPlayer::lookAtDevices() {
  if (!output_ || audio_ == AudioOutput::none) return;
  const LibVLCHandle<libvlc_audio_output_device_t> first(
      libvlc_audio_output_device_enum(player_.get()));
  AudioDevices now;
  bool isPresent = false;
  bool wasPresent = false;
  for (const auto* device = first.get(); device; device = device->p_next) {
    const QString id = QString::fromUtf8(device->psz_device);
    now.present.append({.id = id, .name = QString::fromUtf8(device->psz_description)});
    isPresent = isPresent || id == device_;
    wasPresent = wasPresent || id == devices_.inForce;
  }
  const LibVLCHandle<char> inForce(libvlc_audio_output_device_get(player_.get()));
  // Between two media there is none.
  if (inForce || !wasPresent)
    now.inForce = QString::fromUtf8(inForce.get());
  else
    now.inForce = devices_.inForce;
  devices_ = now;
  // The sound of one that went goes elsewhere by itself, and is fetched back once.
  if (isPresent && !deviceApplied_ && !device_.isEmpty())
    libvlc_audio_output_device_set(player_.get(), nullptr, device_.toUtf8().constData());
  deviceApplied_ = isPresent;
}

void LibVLCPlayer::setAudioDelay(int milliseconds) {
  delay_ = std::int64_t{milliseconds} * 1000;
  applyDelay();
}

void LibVLCPlayer::applyDelay() {
  // The library forgets it with each input.
  if (!player_ || delay_ == delayApplied_) return;
  if (libvlc_audio_set_delay(player_.get(), delay_) == 0) delayApplied_ = delay_;
}

void LibVLCPlayer::setAudioTrack(std::int32_t id) {
  if (player_) libvlc_audio_set_track(player_.get(), id);
}

void LibVLCPlayer::setSubtitleTrack(std::int32_t id) {
  if (player_) libvlc_video_set_spu(player_.get(), id);
}

void LibVLCPlayer::setRate(float rate) {
  if (player_) libvlc_media_player_set_rate(player_.get(), rate);
}

void LibVLCPlayer::startRecording(const QString& folder) {
  if (recorder_) recorder_->start(folder);
}

void LibVLCPlayer::stopRecording() {
  if (recorder_) recorder_->stop();
}

std::optional<QString> LibVLCPlayer::takeRecording() {
  if (!recorder_) return {};
  if (recorder_->isStuck()) {
    stop();
    givenUp_ = true;
  }
  return recorder_->takeFinished();
}

EngineStatus LibVLCPlayer::sample() {
  if (refused_) return {.state = EngineState::error, .hasMedia = true};
  if (!media_ || !player_) return {};
  applyVolume();
  applyDelay();
  lookAtDevices();
  const PictureFacts facts = output_ ? output_->facts() : PictureFacts();
  const LibVLCTracks told(media_.get());
  const std::optional<SourceVideo> video = sourceVideo(told, facts.size);
  if (output_) output_->setPixelAspect(video ? std::optional(video->pixelAspect) : std::nullopt);

  libvlc_media_player_t* player = player_.get();
  EngineStatus status;
  status.hasMedia = true;
  status.state = failed_ ? EngineState::error : stateOf(libvlc_media_player_get_state(player));
  if (givenUp_) status.state = EngineState::ended;
  status.time = libvlc_media_player_get_time(player);
  status.length = libvlc_media_player_get_length(player);
  status.seekable = libvlc_media_player_is_seekable(player);
  status.recordable = recorder_ && recorder_->canRecord();
  for (const EngineTrack& track :
       tracksOf(libvlc_video_get_track_description(player), libvlc_track_video, told))
    status.videoTracks.append(track.id);
  status.audioTracks =
      tracksOf(libvlc_audio_get_track_description(player), libvlc_track_audio, told);
  status.subtitleTracks =
      tracksOf(libvlc_video_get_spu_description(player), libvlc_track_text, told);
  status.audioTrack = libvlc_audio_get_track(player);
  status.subtitleTrack = libvlc_video_get_spu(player);
  status.rate = double{libvlc_media_player_get_rate(player)};
  status.picture = facts;
  if (video) {
    status.picture.codec = video->codec;
    status.picture.rate = video->rate;
  }
  if (status.state == EngineState::ended) {
    // The input that knew the rest is gone.
    const EngineState ended = status.state;
    status = last_;
    status.hasMedia = true;
    status.state = ended;
  }
  libvlc_media_stats_t counts = {};
  if (libvlc_media_get_stats(media_.get(), &counts)) {
    status.decodedVideo = std::max<std::int64_t>(last_.decodedVideo, counts.i_decoded_video);
    status.decodedAudio = std::max<std::int64_t>(last_.decodedAudio, counts.i_decoded_audio);
    status.decoded = std::int64_t{counts.i_decoded_video} + counts.i_decoded_audio;
    status.picture.lost = counts.i_lost_pictures;
    // Some demultiplexers do not count.
    status.picture.bitsPerSecond =
        bitRateUnit * std::max(double{counts.f_demux_bitrate}, double{counts.f_input_bitrate});
  }
  // Decoded is not yet seen, and the library counts a few times a second only.
  if (output_ && status.decodedVideo < unseenPictures) status.decodedVideo = output_->pictures();
  last_ = status;
  return status;
}

std::optional<LibVLCPlayer::SourceVideo> LibVLCPlayer::sourceVideo(const LibVLCTracks& told,
                                                                   QSize pictures) {
  // Those of a codec that a broadcast has left behind stay in the list, under numbers of its own.
  std::optional<SourceVideo> found;
  for (const libvlc_media_track_t* track : told) {
    if (track->i_type != libvlc_track_video) continue;
    const libvlc_video_track_t& video = *track->video;
    const QSize size(static_cast<int>(video.i_width), static_cast<int>(video.i_height));
    if (video.i_width == 0 || (found && size != pictures)) continue;
    found.emplace();
    if (video.i_sar_num > 0 && video.i_sar_den > 0)
      found->pixelAspect = static_cast<double>(video.i_sar_num) / video.i_sar_den;
    if (video.i_frame_rate_den > 0)
      found->rate = static_cast<double>(video.i_frame_rate_num) / video.i_frame_rate_den;
    found->codec =
        QString::fromUtf8(libvlc_media_get_codec_description(libvlc_track_video, track->i_codec));
  }
  return found;
}

}  // namespace vantor
