#pragma once

#include <QObject>

namespace vantor {

class IdleInhibitor;
class MediaEngine;
class Playback;
class StreamKeeper;

/// Has the screen stay on while somebody watches: while a picture plays, and between two of them.
/// Main thread only.
class ScreenAwake final : public QObject {
  Q_OBJECT

 public:
  /// Everything passed outlives the object.
  ScreenAwake(Playback& playback, const StreamKeeper& keeper, const MediaEngine& engine,
              IdleInhibitor& inhibitor);

  /// Whether what has ended is followed by something in a moment, with nobody pressing a key.
  void setContinues(bool continues);

 private:
  bool isWatched() const;
  void follow();

  Playback& playback_;
  const StreamKeeper& keeper_;
  const MediaEngine& engine_;
  IdleInhibitor& inhibitor_;
  bool continues_ = false;
  bool watched_ = false;
};

}  // namespace vantor
