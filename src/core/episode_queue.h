#pragma once

#include <QObject>
#include <optional>

#include "library/media_item.h"

namespace vantor {

class AppModel;

/// What lies around the episode that plays: the ones before and after it of the show that it was
/// started from, whatever is browsed meanwhile. Main thread only.
class EpisodeQueue final : public QObject {
  Q_OBJECT

 public:
  /// The model outlives it.
  explicit EpisodeQueue(AppModel& model);

  /// Absent after the last one, and while no episode plays.
  std::optional<MediaItem> next() const;
  /// Likewise before the first one.
  std::optional<MediaItem> previous() const;
  /// False when there is none.
  bool playNext();
  bool playPrevious();

 Q_SIGNALS:
  /// Another source plays, so that something else may follow.
  void changed();

 private:
  bool play(const std::optional<MediaItem>& episode);
  void onSourceChanged();

  AppModel& model_;
  QList<MediaItem> episodes_;
  qsizetype place_ = -1;  // of what plays; -1: no episode
};

}  // namespace vantor
