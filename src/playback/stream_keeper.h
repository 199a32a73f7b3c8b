#pragma once

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <cstdint>
#include <stop_token>
#include <vector>

#include "net/http_transport.h"
#include "platform/clock.h"
#include "platform/job.h"
#include "platform/pending.h"
#include "playback/media_engine.h"

namespace vantor {

class Playback;
class VideoFrameQueue;

/// Brings back what stopped by itself: a broadcast that ended, failed or froze, a film that was cut
/// off in the middle. It is opened again after growing waits, with its last picture held, until it
/// plays, three minutes are over, the server refuses it, or somebody tells the player what to do.
/// There is one connection at a time. Main thread only.
class StreamKeeper final : public QObject {
  Q_OBJECT

 public:
  /// Everything passed outlives the object. It is made before whatever shows the state of
  /// `playback`, so that it hears of a change first.
  StreamKeeper(Playback& playback, MediaEngine& engine, VideoFrameQueue& frames,
               HTTPTransport& transport, Clock& clock);
  ~StreamKeeper() override;

  /// The source has stopped by itself and is on its way back; meanwhile the state of the player is
  /// that of the attempts.
  bool bringingBack() const { return bringsBack(stage_); }
  /// Ends the attempts: the source has failed.
  void giveUp();
  /// The way to the server may be free again: no need to wait for the next attempt.
  void hurry();

 Q_SIGNALS:
  void bringingBackChanged();

 private:
  enum class Stage : unsigned char {
    idle,      // nothing plays that would be brought back
    watching,  // it plays
    waiting,   // for the next attempt
    opening,   // an attempt is under way
    asking,    // it has failed: does the server refuse us?
  };
  static constexpr bool bringsBack(Stage stage) { return stage > Stage::watching; }
  static QCoro::Task<> keep(QPointer<StreamKeeper> self, std::stop_token token);
  static QCoro::Task<> ask(QPointer<StreamKeeper> self, std::stop_token token);

  void enter(Stage stage);
  void begin();
  void forget();
  void onStateChanged();
  void tick();
  void look();
  void see();
  bool comesBack();
  bool hasMoved();
  void interrupted();
  void attempt();
  void opened();
  void answered(int status);
  void freeConnection();

  Playback& playback_;
  MediaEngine& engine_;
  VideoFrameQueue& frames_;
  HTTPTransport& transport_;
  Clock& clock_;

  Stage stage_ = Stage::idle;
  double length_ = 0;                 // seconds, of a film; 0 while unknown
  double place_ = 0;                  // seconds, where a film goes on
  EngineStatus seen_;                 // at the last look at what plays
  SteadyTime moved_;                  // when what is decoded last grew
  SteadyTime since_;                  // begin of the stage
  bool doubtful_ = false;             // the network has changed since
  bool hurried_ = false;              // it changed while an attempt was under way
  std::size_t attempts_ = 0;          // since it last played steadily
  SteadyTime interrupted_;            // begin of this interruption
  SteadyTime::duration spent_{};      // on those before it, since it last played steadily
  bool connected_ = false;            // the question has a connection
  std::vector<Pending<Done>> queue_;  // openings that wait for its end
  Job watch_;
  Job question_;
};

}  // namespace vantor
