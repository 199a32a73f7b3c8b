#pragma once

#include <QObject>
#include <functional>

#include "playback/track_choice.h"

namespace vantor {

class Playback;
class Preferences;
class Session;

/// The sound and the subtitles that the user chose last, for each show and in general: kept per
/// account in the preferences. Only what the user does is recorded. Main thread only.
class TrackMemory final : public QObject {
  Q_OBJECT

 public:
  /// `showPlaying` gives the id of the show that plays, empty for anything else. What is passed
  /// outlives it.
  TrackMemory(Preferences& preferences, const Session& session, Playback& playback,
              std::function<QString()> showPlaying);

  /// What to look for in a source, of a show if the id is not empty.
  TrackChoices choicesFor(const QString& showID) const;
  /// Makes what is kept for one account what is kept for another.
  static void takeOver(Preferences& preferences, const QString& from, const QString& to);

 private:
  QList<TrackChoice> choices(const QString& topic, const QString& showID) const;
  void store(const QString& topic, const QList<TrackChoice>& chosen);
  QString key(const QString& topic) const;

  Preferences& preferences_;
  const Session& session_;
  Playback& playback_;
  const std::function<QString()> showPlaying_;
};

}  // namespace vantor
