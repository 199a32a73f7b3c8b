#pragma once

#include <QList>
#include <QObject>
#include <QUrl>
#include <optional>

#include "platform/announcements.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "playback/media_engine.h"

namespace vantor {

/// The recording of the playing source, and the recordings there are. Main thread only. What comes
/// of every step is told in `notice`, never thrown.
class Recording final : public QObject {
  Q_OBJECT

 public:
  enum class Stage { idle, running, saving };

  /// What is passed outlives the object, which becomes the one to hear of the engine's recordings.
  Recording(Announcements& announcements, MediaEngine& engine, Clock& clock,
            const Folders& folders);
  ~Recording() override;

  Stage stage() const { return stage_.get(); }
  const std::optional<QString>& notice() const { return notice_.get(); }
  /// Files in `folder`, the newest of ours first.
  const QList<QUrl>& files() const { return files_.get(); }
  /// Where recordings go unless another folder is asked for; made when it is needed.
  QString folder() const;

  /// Records what the engine plays, which the caller knows to be playing; false when it does not.
  bool start(const std::optional<QString>& folder);
  /// Ends a running recording; its file is complete when the stage is `idle` again. False when it
  /// could not be ended.
  bool finish();
  void refresh();
  /// Tells the user why the source does not change.
  void refuseChange();

 Q_SIGNALS:
  void stageChanged();
  void noticeChanged();
  /// Also when it says the same again.
  void noticeGiven();
  void filesChanged();

 private:
  void completed(const QString& path);
  QString outcomeOf(const QString& path) const;
  void enter(Stage stage, const QString& notice);
  void say(const QString& notice);

  Announcements& announcements_;
  MediaEngine& engine_;
  Clock& clock_;
  const Folders folders_;
  Announced<Stage> stage_;
  Announced<std::optional<QString>> notice_;
  Announcement noticeGiven_;
  Announced<QList<QUrl>> files_;
  QString target_;  // folder of the last recording, empty before the first
};

}  // namespace vantor
