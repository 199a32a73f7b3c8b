#pragma once

#include <QCoroTask>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <functional>
#include <optional>
#include <stop_token>

#include "platform/announcements.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/job.h"
#include "platform/pending.h"
#include "platform/trace.h"
#include "playback/media_engine.h"
#include "playback/picture_shape.h"
#include "playback/play_request.h"
#include "playback/playback_state.h"
#include "playback/recording.h"
#include "playback/transport_state.h"

namespace vantor {

class Worker;

/// The one controller between the program and the media engine: it opens sources, watches them and
/// turns what goes wrong into sentences. Main thread only. Each signal means that the value differs
/// now, and comes when the whole operation is done.
class Playback final : public QObject {
  Q_OBJECT

 public:
  /// Everything passed outlives the controller.
  Playback(MediaEngine& engine, Clock& clock, Worker& worker, const Folders& folders,
           Output output);
  ~Playback() override;

  /// Refused, with a notice, while a recording runs or is being saved; so is `retry`. Whether the
  /// source was taken.
  bool play(const PlayRequest& request);
  /// Opens the current source again, from its beginning.
  void retry();
  /// Plays the current source from its beginning, without opening it again.
  void restart();
  void stop();
  /// Ends playback when the program quits, after waiting at most 5 seconds for a recording.
  QCoro::Task<> shutdown();

  void togglePause();
  void seek(double seconds);
  void setVolume(double percent);
  /// Silences the sound, or gives it back the volume that it had.
  void toggleMuted();
  // Somebody has chosen the track.
  void setAudioTrack(int id);
  void setSubtitleTrack(int id);  // -1: none
  void setRate(double rate);
  /// Where sound goes from now on; empty: the system's choice.
  void setAudioDevice(const QString& id);
  /// Milliseconds of the sound behind the picture, at most `longestAudioDelay` either way.
  void setAudioDelay(int milliseconds);
  static constexpr int longestAudioDelay = 2000;
  /// Seconds; what was watched no longer is begun anew.
  static constexpr double shortestResume = 10;
  /// Seconds at the end of a film; who has come to them has seen it all.
  static constexpr double finishMargin = 20;

  // For what looks after a source that has stopped by itself; nobody has asked for these.
  /// Opens the current source again, at `resume` seconds.
  void reopen(double resume);
  /// Ends the current source as one that could not be opened.
  void abandon();
  /// Asked before each opening: what has to be over before it, if there is anything.
  std::function<std::optional<Pending<Done>>()> beforeOpening;

  PlaybackState state() const { return state_.get(); }
  bool loading() const { return isOpening(state()); }
  bool paused() const { return isHalted(state()); }
  /// The progress loop follows the source, so that `transport` tells where it is. Nothing follows
  /// what plays again from its end.
  bool followed() const { return pollTask_.running(); }
  const std::optional<QString>& message() const { return message_.get(); }  // what failed
  PictureFacts picture() const { return engine_.status().picture; }
  TransportState* transport() { return &transport_; }
  const std::optional<PlayRequest>& source() const { return source_.get(); }
  QString title() const;                     // also without a source
  std::optional<QString> itemID() const;     // the source's, if there is one
  bool isLocal() const { return isLocal_; }  // the source, or the last one, is a file from disk
  const QImage& heldFrame() const { return heldFrame_.get(); }  // last picture of the one before
  bool expanded() const { return expanded_.get(); }             // the player fills the window
  void setExpanded(bool expanded) { expanded_.set(expanded); }
  bool fullScreen() const { return fullScreen_.get(); }  // the picture fills the screen
  /// Only what has a source can.
  void setFullScreen(bool fullScreen) { fullScreen_.set(fullScreen && source()); }
  PictureShape pictureShape() const { return pictureShape_.get(); }  // the request's at first
  void setPictureShape(PictureShape shape);
  /// What to look for in the source: the request's choices at first, then what somebody chose.
  const TrackChoices& tracks() const { return tracks_; }

  Recording& recording() { return recording_; }
  /// Each tells why it did not, as a sentence. The folder is `Recording::folder` if none is given.
  std::optional<QString> startRecording(const std::optional<QString>& folder = {});
  std::optional<QString> finishRecording();

  /// Where watch progress goes: item identifier, position and duration in seconds.
  std::function<void(const QString& id, double seconds, double duration)> onProgress;

 Q_SIGNALS:
  /// Somebody has said what is to play, or from where, or whether; comes before what it changed.
  void commanded();
  void sourceChanged();
  void stateChanged();
  void messageChanged();
  void heldFrameChanged();
  void expandedChanged();
  void fullScreenChanged();
  void pictureShapeChanged();
  /// Somebody has said what it is to be; comes after what it changed.
  void pictureShapeChosen();
  /// Likewise, of a track that other sources may have too.
  void audioTrackChosen();
  void subtitleTrackChosen();

 private:
  using Ticket = std::int64_t;
  enum class Watch { goOn, over };
  static const char* const notOpened;
  struct Opening;  // what the progress loop knows of the source that it watches

  static QCoro::Task<> openSource(QPointer<Playback> self, Ticket ticket, bool takeStill,
                                  PlayRequest request, std::stop_token token);
  static QCoro::Task<> watch(QPointer<Playback> self, Ticket ticket, double resume,
                             std::stop_token token);
  bool mayChangeSource();
  void start(const PlayRequest& request);
  void startAgain(double resume);
  void endTasks();
  void load(const PlayRequest& request);
  void go(PlaybackEvent event) { state_.set(next(state(), event)); }
  /// With a sentence for the user, as it stands in English.
  void fail(const char* sentence);
  // progress_loop.cpp
  void onEngineChange();
  Watch tick(Opening& opening);
  void applyResume(Opening& opening);
  void applyTracks(const EngineStatus& status);
  void reportProgress();

  MediaEngine& engine_;
  Clock& clock_;
  Worker& worker_;
  const Folders folders_;
  const Output output_;
  Announcements announcements_;  // of these, in this order
  Announcement commanded_;
  Announced<std::optional<PlayRequest>> source_;
  Announced<PlaybackState> state_;
  Announced<std::optional<QString>> message_;
  Announced<QImage> heldFrame_;
  Announced<bool> expanded_;
  Announced<bool> fullScreen_;
  Announced<PictureShape> pictureShape_;
  Announcement shapeChosen_;
  Announcement audioChosen_;
  Announcement subtitlesChosen_;
  TransportState transport_;
  Recording recording_;
  Attempt playing_{playbackTrace, "playing a source"};
  bool isLocal_ = false;
  TrackChoices tracks_;
  // Looks at what was opened, its tracks listed, in which those chosen before are put in force.
  int audioLooks_ = 0;
  int subtitleLooks_ = 0;
  Ticket generation_ = 0;  // openings and stops so far; a task's copy of it tells when it is stale
  std::stop_source tickWait_;  // ends the wait for the next tick early
  Job loadTask_;
  Job pollTask_;
};

}  // namespace vantor
