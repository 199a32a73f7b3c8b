#pragma once

#include <QObject>

#include "playback/picture_shape.h"

namespace vantor {

class Playback;
class Preferences;
class Session;

/// How the user likes to watch, kept in the preferences: the volume, and per account the last
/// channel and the shapes of pictures. Only what the user does is recorded. Main thread only.
class ViewingHabits final : public QObject {
  Q_OBJECT

 public:
  /// Gives the playback the volume of the last run. What is passed outlives it.
  ViewingHabits(Preferences& preferences, const Session& session, Playback& playback);

  /// How the picture of the account's entry was laid last, `fit` unless otherwise; counts as a use
  /// of it, since those that were not used for the longest are forgotten.
  PictureShape shapeFor(const QString& id);
  /// The entry id of the account's channel that was played last, empty while there is none.
  QString lastChannel() const;
  void setLastChannel(const QString& id);
  /// Makes what is kept for one account what is kept for another.
  static void takeOver(Preferences& preferences, const QString& from, const QString& to);

 private:
  void restoreVolume();
  void storeVolume();
  void storeShape();

  Preferences& preferences_;
  const Session& session_;
  Playback& playback_;
};

}  // namespace vantor
