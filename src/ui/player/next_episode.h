#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <memory>

#include "core/episode_queue.h"
#include "platform/clock.h"

namespace vantor {

class Playback;
class StreamKeeper;

/// The next episode, offered near the end of the one before. Main thread only.
class NextEpisode final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool offered READ offered NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString outlook READ outlook NOTIFY changed)

 public:
  /// What is passed outlives it.
  NextEpisode(EpisodeQueue& queue, Playback& playback, StreamKeeper& keeper, Clock& clock,
              QObject* parent = nullptr);

  /// From 30 seconds before the end, until it is refused. On the whole screen it plays by itself 10
  /// seconds after the end.
  bool offered() const { return offered_; }
  QString title() const;
  QString outlook() const;  // when it plays, or how
  /// It plays by itself in a moment.
  bool countsDown() const { return secondsLeft_ > 0; }

  /// Plays it, offered or not; false when there is none.
  Q_INVOKABLE bool play() { return queue_.playNext(); }
  /// False when there is none before this one.
  bool playPrevious() { return queue_.playPrevious(); }
  /// False when nothing is offered.
  Q_INVOKABLE bool refuse();

 Q_SIGNALS:
  void changed();

 private:
  bool isNearEnd() const;
  void update();
  void countDown();

  EpisodeQueue& queue_;
  Playback& playback_;
  StreamKeeper& keeper_;
  Clock& clock_;
  bool offered_ = false;
  bool refused_ = false;  // of what plays now
  int secondsLeft_ = 0;   // until it plays by itself; 0: it does not
  std::unique_ptr<Clock::Timer> second_;
};

}  // namespace vantor
