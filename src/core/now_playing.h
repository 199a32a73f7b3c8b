#pragma once

#include <QObject>
#include <QUrl>
#include <optional>

namespace vantor {

class AppModel;
class Clock;
class EpisodeQueue;
class Zapping;

/// What plays as one tells somebody of it, and what lies before and after it: channels around a
/// channel, episodes around an episode. Main thread only.
class NowPlaying final : public QObject {
  Q_OBJECT

 public:
  struct Facts {
    QString title;  // of the programme, where the channel's guide has it
    QString show;
    std::optional<int> season;
    std::optional<int> episode;
    QString channel;
    QUrl artwork;  // where the provider has it; empty: nowhere
  };

  /// What is passed outlives it, and has heard of a change of source before it.
  NowPlaying(AppModel& model, Zapping& zapping, EpisodeQueue& episodes, const Clock& clock);

  /// Absent while nothing plays.
  std::optional<Facts> facts() const;
  /// Asks for the guide of a channel whose programme is not known.
  void keepUp();

  bool hasNext() const;
  bool hasPrevious() const;
  void next();
  void previous();

 Q_SIGNALS:
  void changed();

 private:
  bool mayChange() const;
  /// The title of what the channel shows now; empty while unknown.
  QString programmeOf(const QString& channelID) const;

  AppModel& model_;
  Zapping& zapping_;
  EpisodeQueue& episodes_;
  const Clock& clock_;
};

}  // namespace vantor
