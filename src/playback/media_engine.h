#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <functional>

namespace vantor {

/// Whether pictures and sound go anywhere.
enum class Output : unsigned char { shown, discarded };

enum class EngineState { idle, opening, playing, paused, ended, error };

struct EngineTrack {
  std::int32_t id = -1;
  QString name;      // as shown: what the source says of it, or a number
  QString language;  // ISO 639, as the source writes it; empty: unknown
  QString title;     // the source's own name for it; empty: none
  bool operator==(const EngineTrack&) const = default;
};

/// Somewhere that sound can go.
struct AudioDevice {
  QString id;
  QString name;
  bool operator==(const AudioDevice&) const = default;
};

struct AudioDevices {
  QList<AudioDevice> present;
  QString inForce;  // the id of the one that sound goes to; empty: unknown
  bool operator==(const AudioDevices&) const = default;
};

enum class PictureDecoder : unsigned char { unknown, software, vaapi, vdpau };

/// What is known of the current media's pictures, for people who want to know.
struct PictureFacts {
  QString codec;  // as the engine names it; empty while unknown
  PictureDecoder decoder = PictureDecoder::unknown;
  QSize size;                // without the decoder's padding
  int bits = 8;              // of a sample, as shown
  double rate = 0;           // pictures a second in the source, which may have two fields each
  double bitsPerSecond = 0;  // of the media as a whole, 0 while unknown
  std::int64_t shown = 0;    // handed to the surface
  std::int64_t lost = 0;     // came too late to be
  bool operator==(const PictureFacts&) const = default;
};

/// What the engine knows of its current media at one moment.
struct EngineStatus {
  EngineState state = EngineState::idle;
  bool hasMedia = false;
  bool releasing = false;   // the media before may still hold its connection
  std::int64_t time = 0;    // milliseconds
  std::int64_t length = 0;  // milliseconds, 0 while unknown
  bool seekable = false;
  bool recordable = false;
  std::int64_t decodedVideo = 0;  // pictures
  std::int64_t decodedAudio = 0;  // blocks
  std::int64_t decoded = 0;       // both; only what is new counts, not a picture shown again
  QList<std::int32_t> videoTracks;
  QList<EngineTrack> audioTracks;
  QList<EngineTrack> subtitleTracks;
  // What is in force; -1: none.
  std::int32_t audioTrack = -1;
  std::int32_t subtitleTrack = -1;
  double rate = 1;
  PictureFacts picture;
};

constexpr int networkCaching = 1200;  // milliseconds of a source that are read ahead

/// One media to load; the engine gets the texts as values, never as options to parse.
struct MediaSource {
  QUrl address;
  QString userAgent;
};

/// The media engine, one player for the whole run. Called on the main thread; no call waits for the
/// engine. Commands are carried out in their order, except that those for a media that is not yet
/// loaded are left out once there is a later one; `status` speaks of the media of the last `load`
/// or `unload` only, never of an earlier one.
class MediaEngine {
 public:
  virtual ~MediaEngine() = default;

  /// The media begins at its own speed.
  virtual void load(const MediaSource& source) = 0;
  /// Stops and drops the media.
  virtual void unload() = 0;
  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void setTime(std::int64_t milliseconds) = 0;
  virtual void setVolume(int percent) = 0;  // 0 to 100; 100 is the engine's normal level
  virtual void setAudioTrack(std::int32_t id) = 0;
  virtual void setSubtitleTrack(std::int32_t id) = 0;  // -1: none
  virtual void setRate(float rate) = 0;
  virtual EngineStatus status() const = 0;

  // Of every media, also of those to come.
  /// Empty: the system's choice, as at first. A device that is not there is taken when it comes.
  virtual void setAudioDevice(const QString& id) = 0;
  /// How far the sound is behind the picture; negative: before it.
  virtual void setAudioDelay(int milliseconds) = 0;
  /// As the last media that played found them.
  virtual AudioDevices audioDevices() const = 0;

  /// Writes the current picture to `file` as PNG, `width` pixels wide with its aspect ratio kept;
  /// the file appears some time later, or never.
  virtual void saveSnapshot(const QString& file, int width) = 0;

  /// Records what plays into a file of the engine's naming in `folder`; false when it cannot. Else
  /// `onRecordingStopped` follows once, however the recording ends, and no other may be started
  /// before.
  virtual bool startRecording(const QString& folder) = 0;
  /// False when it cannot.
  virtual bool stopRecording() = 0;

  /// Called on the main thread once the file of a recording is complete: after it was stopped, when
  /// its media ended or was unloaded, when the disk runs full, or when it could not begin after
  /// all. The path is empty when there is no file.
  std::function<void(const QString& path)> onRecordingStopped;

  /// Called on the main thread when the status changed in a way that should not wait for the next
  /// look at it: the first picture of a media, its end, its failure.
  std::function<void()> onChange;
};

}  // namespace vantor
