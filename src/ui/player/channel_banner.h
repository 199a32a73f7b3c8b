#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QUrl>
#include <memory>

#include "core/zapping.h"
#include "library/guide_entry.h"

namespace vantor {

class ProgrammeGuide;

/// What lies over the picture while somebody zaps: the channel with its programmes. Main thread
/// only.
class ChannelBanner final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString number READ number NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QUrl artwork READ artwork NOTIFY changed)
  Q_PROPERTY(QString now READ now NOTIFY changed)
  Q_PROPERTY(QString times READ times NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)
  Q_PROPERTY(QString next READ next NOTIFY changed)

 public:
  /// What is passed outlives it.
  ChannelBanner(Zapping& zapping, ProgrammeGuide& guide, Clock& clock, QObject* parent = nullptr);

  /// For 4 seconds after the last change, and after `show`.
  bool shown() const { return shown_; }
  void show();

  QString number() const;  // of the channel, or what was typed
  QString name() const;
  QUrl artwork() const;
  QString now() const;      // the programme's title, or why there is none
  QString times() const;    // "20:15 – 21:45", empty without a programme
  double progress() const;  // 0 to 1, negative without a programme
  QString next() const;     // title with its time, empty when unknown

 Q_SIGNALS:
  void changed();

 private:
  /// The one that is told of: of the typed number, else the chosen one.
  std::optional<MediaItem> told() const;
  GuideEntries upcoming() const;

  Zapping& zapping_;
  ProgrammeGuide& guide_;
  Clock& clock_;
  bool shown_ = false;
  std::unique_ptr<Clock::Timer> hiding_;
  std::unique_ptr<Clock::Timer> asking_;
};

}  // namespace vantor
