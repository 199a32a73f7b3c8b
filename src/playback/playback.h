#pragma once

#include <QCoroTask>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <functional>
#include <optional>
#include <stop_token>

#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/job.h"
#include "playback/media_engine.h"
#include "playback/recording.h"
#include "playback/transport_state.h"

namespace vantor {

class Worker;

/// One source to play.
struct PlayRequest {
  QUrl url;
  QString title;
  QString id;          // key under which progress is reported
  QString agent;       // HTTP User-Agent
  bool local = false;  // a file chosen from disk
  bool live = false;   // a broadcast: without a length, whatever the engine takes for one
  double resume = 0;   // seconds
};

/// The one controller between the program and the media engine: it opens sources, watches them and
/// turns what goes wrong into sentences. Main thread only. Texts that are absent read as empty from
/// QML. Each signal means that the value differs now.
class Playback final : public QObject {
  Q_OBJECT
  Q_PROPERTY(vantor::TransportState* transport READ transport CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY titleChanged)
  Q_PROPERTY(QString itemID READ itemIDText NOTIFY itemIDChanged)
  Q_PROPERTY(bool hasItem READ hasItem NOTIFY itemIDChanged)
  Q_PROPERTY(bool loading READ loading NOTIFY loadingChanged)
  Q_PROPERTY(QString message READ messageText NOTIFY messageChanged)
  Q_PROPERTY(QImage heldFrame READ heldFrame NOTIFY heldFrameChanged)
  Q_PROPERTY(bool isLocal READ isLocal NOTIFY isLocalChanged)
  Q_PROPERTY(bool expanded READ expanded WRITE setExpanded NOTIFY expandedChanged)
  Q_PROPERTY(bool paused READ paused NOTIFY pausedChanged)
  Q_PROPERTY(bool recording READ recording NOTIFY recordingChanged)
  Q_PROPERTY(bool savingRecording READ savingRecording NOTIFY recordingChanged)
  Q_PROPERTY(QString recordingNotice READ recordingNoticeText NOTIFY recordingNoticeChanged)
  Q_PROPERTY(QList<QUrl> recordings READ recordings NOTIFY recordingsChanged)

 public:
  /// Everything passed outlives the controller. `headless`: no picture is ever taken.
  Playback(MediaEngine& engine, Clock& clock, Worker& worker, const Folders& folders,
           bool headless);
  ~Playback() override;

  /// Refused, with a notice, while a recording runs or is being saved; so is `retry`.
  void play(const PlayRequest& request);
  /// Opens the current source again, from its beginning.
  Q_INVOKABLE void retry();
  /// Plays the current source from its beginning, without opening it again.
  Q_INVOKABLE void restart();
  Q_INVOKABLE void stop();
  /// Ends playback when the program quits, after waiting at most 5 seconds for a recording.
  QCoro::Task<> shutdown();

  Q_INVOKABLE void togglePause();
  Q_INVOKABLE void seek(double seconds);
  Q_INVOKABLE void setVolume(double percent);
  Q_INVOKABLE void setAudioTrack(int id);
  Q_INVOKABLE void setSubtitleTrack(int id);  // -1: none
  Q_INVOKABLE void setRate(double rate);

  /// A source is really playing: not opening, paused, ended or failed.
  bool isPlaying() const { return itemID_ && !loading_ && !message_ && !paused_; }
  /// Does nothing unless `isPlaying`. Without a folder it is `recordingsFolder`.
  void startRecording(const std::optional<QString>& folder = {});
  Q_INVOKABLE void finishRecording() { recording_.finish(); }
  void refreshRecordings() { recording_.refresh(); }

  TransportState* transport() { return &transport_; }
  const QString& title() const { return title_; }
  const std::optional<QString>& itemID() const { return itemID_; }  // absent when nothing plays
  QString itemIDText() const { return itemID_.value_or(QString()); }
  bool hasItem() const { return itemID_.has_value(); }
  bool loading() const { return loading_; }  // no picture or sound has arrived yet
  const std::optional<QString>& message() const { return message_; }  // failure, shown to the user
  QString messageText() const { return message_.value_or(QString()); }
  const QImage& heldFrame() const { return heldFrame_; }  // last picture of the previous source
  bool isLocal() const { return isLocal_; }
  bool expanded() const { return expanded_; }  // the player fills the window
  void setExpanded(bool expanded);
  bool paused() const { return paused_; }  // also after the end and after a failure

  bool recording() const { return recording_.stage() == Recording::Stage::running; }
  bool savingRecording() const { return recording_.stage() == Recording::Stage::saving; }
  const std::optional<QString>& recordingNotice() const { return recording_.notice(); }
  QString recordingNoticeText() const { return recordingNotice().value_or(QString()); }
  const QList<QUrl>& recordings() const { return recording_.files(); }  // the newest first
  QString recordingsFolder() const { return recording_.folder(); }

  /// Where watch progress goes: item identifier, position and duration in seconds.
  std::function<void(const QString& id, double seconds, double duration)> onProgress;

 Q_SIGNALS:
  void titleChanged();
  void itemIDChanged();
  void loadingChanged();
  void messageChanged();
  void heldFrameChanged();
  void isLocalChanged();
  void expandedChanged();
  void pausedChanged();
  void recordingChanged();
  void recordingNoticeChanged();
  void recordingNoticeGiven();  // also when it says the same again
  void recordingsChanged();

 private:
  using Ticket = std::int64_t;
  enum class Watch { goOn, over };

  static QCoro::Task<> openSource(QPointer<Playback> self, Ticket ticket, bool takeStill,
                                  PlayRequest request, std::stop_token token);
  static QCoro::Task<> finishAndStop(QPointer<Playback> self);
  static QCoro::Task<> watch(QPointer<Playback> self, Ticket ticket, double resume,
                             std::stop_token token);

  bool mayChangeSource();
  void start(const PlayRequest& request);
  void load(const PlayRequest& request);
  void fail(const QString& message);
  void cancelTasks();

  void poll(Ticket ticket, double resume);
  Watch tick(Ticket ticket, SteadyTime begin, double resume);
  void applyResume(double resume);
  void reportProgress();

  void setTitle(const QString& title);
  void setItemID(const std::optional<QString>& id);
  void setLoading(bool loading);
  void setMessage(const std::optional<QString>& message);
  void setHeldFrame(const QImage& image);
  void setIsLocal(bool local);
  void setPaused(bool paused);

  MediaEngine& engine_;
  Clock& clock_;
  Worker& worker_;
  const Folders folders_;
  const bool headless_;

  TransportState transport_;
  Recording recording_;
  QString title_;
  std::optional<QString> itemID_;
  bool loading_ = false;
  std::optional<QString> message_;
  QImage heldFrame_;
  bool isLocal_ = false;
  bool expanded_ = false;
  bool paused_ = false;

  std::optional<QUrl> currentURL_;  // with currentAgent_, kept for retry
  QString currentAgent_;
  bool live_ = false;      // likewise
  Ticket generation_ = 0;  // openings and stops so far; a task's copy of it tells when it is stale
  bool resumeApplied_ = false;

  std::stop_source tickWait_;  // ends the wait for the next tick early
  Job loadTask_;
  Job pollTask_;
};

}  // namespace vantor
