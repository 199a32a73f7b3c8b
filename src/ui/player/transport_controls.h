#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariantList>

namespace vantor {

class Playback;
class TransportState;

/// The control bar of the player: position, volume, tracks, speed and where the sound goes. Main
/// thread only.
class TransportControls final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QString positionText READ positionText NOTIFY positionChanged)
  Q_PROPERTY(QString durationText READ durationText NOTIFY durationChanged)
  Q_PROPERTY(double sliderEnd READ sliderEnd NOTIFY durationChanged)
  Q_PROPERTY(double sliderValue READ sliderValue NOTIFY positionChanged)
  Q_PROPERTY(double volume READ volume WRITE setVolume NOTIFY volumeChanged)
  Q_PROPERTY(QVariantList audio READ audio NOTIFY audioChanged)
  Q_PROPERTY(bool audioEnabled READ audioEnabled NOTIFY audioChanged)
  Q_PROPERTY(QVariantList subtitles READ subtitles NOTIFY subtitlesChanged)
  Q_PROPERTY(QVariantList speeds READ speeds CONSTANT)
  Q_PROPERTY(int audioChoice READ audioChoice NOTIFY audioChoiceChanged)
  Q_PROPERTY(int subtitleChoice READ subtitleChoice NOTIFY subtitleChoiceChanged)
  Q_PROPERTY(int speedChoice READ speedChoice NOTIFY speedChoiceChanged)
  Q_PROPERTY(QVariantList outputs READ outputs NOTIFY outputsChanged)
  Q_PROPERTY(int outputChoice READ outputChoice NOTIFY outputChoiceChanged)
  Q_PROPERTY(QVariantList delays READ delays NOTIFY delayChanged)
  Q_PROPERTY(int delayChoice READ delayChoice NOTIFY delayChanged)

 public:
  explicit TransportControls(Playback& playback, QObject* parent = nullptr);

  /// "9:05", "1:00:00"; negative times are 0:00.
  static QString clock(double seconds);
  /// "Sound 25 ms after the picture".
  static QString delayText(int milliseconds);
  static constexpr int delayStep = 25;  // milliseconds

  QString positionText() const;
  QString durationText() const;
  double sliderEnd() const;
  double sliderValue() const;
  double volume() const;
  void setVolume(double percent);
  QVariantList audio() const;  // maps of "id" and "name"
  bool audioEnabled() const;
  QVariantList subtitles() const;  // likewise, "Off" first
  QVariantList speeds() const;     // maps of "rate" and "name"
  QVariantList outputs() const;    // maps of "id" and "name", the system's choice first
  QVariantList delays() const;     // maps of "delay" and "name", around the present one

  // The index in each of them of what is in force, -1 if it is none of them.
  int audioChoice() const;
  int subtitleChoice() const;
  int speedChoice() const;
  int outputChoice() const;
  int delayChoice() const;

  /// A drag of the position: only its end moves the playback.
  /// False while one is under way.
  Q_INVOKABLE bool beginSeek();
  Q_INVOKABLE void dragTo(double seconds);
  Q_INVOKABLE void endSeek();
  /// Forgets a drag whose slider went away, and where one led.
  Q_INVOKABLE void abandonSeek();

  Q_INVOKABLE void chooseAudio(int id);
  Q_INVOKABLE void chooseSubtitle(int id);
  Q_INVOKABLE void chooseSpeed(double rate);
  Q_INVOKABLE void chooseOutput(const QString& id);
  Q_INVOKABLE void chooseDelay(int milliseconds);

 Q_SIGNALS:
  void positionChanged();
  void durationChanged();
  void volumeChanged();
  void audioChanged();
  void subtitlesChanged();
  void audioChoiceChanged();
  void subtitleChoiceChanged();
  void speedChoiceChanged();
  void outputsChanged();
  void outputChoiceChanged();
  void delayChanged();

 private:
  double shownPosition() const;

  Playback& playback_;
  TransportState& state_;
  /// Of what the position is shown: of playback, of a drag, or of where one led, until playback
  /// tells where it is.
  enum class Shown { playback, drag, target };
  Shown shown_ = Shown::playback;
  double seekValue_ = 0;  // seconds
};

}  // namespace vantor
