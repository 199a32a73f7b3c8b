#pragma once

#include <QObject>

namespace vantor {

class Playback;
class Preferences;

/// Where the user's sound goes, kept in the preferences: the device, and for each device how far
/// the sound is behind the picture there. Main thread only.
class SoundSetup final : public QObject {
  Q_OBJECT

 public:
  /// Gives the playback what the last run had. What is passed outlives it.
  SoundSetup(Preferences& preferences, Playback& playback);

 private:
  void restore();
  void takeDelay();
  void storeDevice();
  void storeDelay();

  Preferences& preferences_;
  Playback& playback_;
};

}  // namespace vantor
