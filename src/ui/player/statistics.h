#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <memory>

#include "platform/clock.h"

namespace vantor {

class Playback;

/// What is known of the playing picture, line by line, for people who want to know. Main thread
/// only.
class Statistics final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)

 public:
  /// What is passed outlives it.
  Statistics(Playback& playback, Clock& clock, QObject* parent = nullptr);

  /// Only ever with a source.
  bool shown() const { return shown_; }
  /// Lines like "Codec: H264 – MPEG-4 AVC"; what is unknown is left out.
  const QString& text() const { return text_; }

  /// False without a source.
  bool toggle();

 Q_SIGNALS:
  void changed();

 private:
  void read();
  void putAway();

  Playback& playback_;
  Clock& clock_;
  bool shown_ = false;
  QString text_;
  std::int64_t lastShown_ = -1;  // pictures, at `lastTime_`; negative before the first look
  SteadyTime lastTime_{};
  std::unique_ptr<Clock::Timer> next_;
};

}  // namespace vantor
