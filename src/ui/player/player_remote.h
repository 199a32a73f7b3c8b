#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariant>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "ui/player/channel_chooser.h"

namespace vantor {

class AppModel;
class ChannelBanner;
class NextEpisode;
class Statistics;
class Playback;
class TransportControls;
class Zapping;

/// The player as somebody in front of it works it: the picture that fills the screen, what lies
/// over it for a while, and the keys of a remote control. Main thread only.
class PlayerRemote final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool fullScreen READ fullScreen WRITE setFullScreen NOTIFY fullScreenChanged)
  Q_PROPERTY(bool small READ small WRITE setSmall NOTIFY smallChanged)
  Q_PROPERTY(bool pictureOnly READ pictureOnly NOTIFY pictureOnlyChanged)
  Q_PROPERTY(bool zapping READ zapping NOTIFY watchingChanged)
  Q_PROPERTY(bool controlsShown READ controlsShown NOTIFY controlsShownChanged)
  Q_PROPERTY(bool watching READ watching NOTIFY watchingChanged)
  Q_PROPERTY(bool busy READ busy WRITE setBusy NOTIFY busyChanged)
  Q_PROPERTY(QString note READ note NOTIFY noteChanged)
  Q_PROPERTY(int pictureShape READ pictureShape NOTIFY pictureShapeChanged)
  Q_PROPERTY(vantor::ChannelChooser* chooser READ chooser NOTIFY chooserChanged)
  Q_PROPERTY(QString fullScreenSymbol READ fullScreenSymbol NOTIFY fullScreenChanged)

 public:
  /// What the keys act on beside the playback itself.
  struct Parts {
    Zapping& zapping;
    ChannelBanner& banner;
    NextEpisode& nextEpisode;
    TransportControls& transport;
    Statistics& statistics;
  };

  /// What is passed outlives it.
  PlayerRemote(AppModel& model, const Parts& parts, Clock& clock, QObject* parent = nullptr);

  /// Only ever with a source. Leaves by itself for a sheet and for another section.
  bool fullScreen() const;
  void setFullScreen(bool fullScreen);
  Q_INVOKABLE void toggleFullScreen() { setFullScreen(!fullScreen()); }
  QString fullScreenSymbol() const;

  /// The window is a small one beside other work. Only ever with a source, and never together with
  /// the full screen; leaves by itself likewise.
  bool small() const { return small_; }
  void setSmall(bool small);
  Q_INVOKABLE void toggleSmall() { setSmall(!small()); }
  /// Neither full screen nor small.
  void leavePicture();
  bool pictureOnly() const { return fullScreen() || small(); }

  /// Somebody sits before the picture: it fills the screen, or the window.
  bool watching() const;
  /// Watches a channel of a list.
  bool zapping() const;

  /// Controls and pointer lie over the picture: for 3 seconds after a movement, and longer while
  /// playback is halted or they are being used.
  bool controlsShown() const;
  Q_INVOKABLE void moved();
  /// A menu is open, or a control has the keyboard.
  bool busy() const { return busy_; }
  void setBusy(bool busy);

  /// The list of channels over the picture; null while it is put away.
  ChannelChooser* chooser() const { return chooser_.get(); }
  /// Opens it while a channel is watched.
  Q_INVOKABLE bool chooseChannel();
  Q_INVOKABLE void putChooserAway();

  /// A `PictureShape`.
  int pictureShape() const;
  /// Goes on to the next one.
  Q_INVOKABLE void changeShape();

  /// What the last key did ("Volume 45 %"), shown for a moment; empty: nothing.
  QString note() const { return note_; }

  /// A key, as Qt names it, that nothing else took; `again` while it is held down. Whether it means
  /// something here.
  Q_INVOKABLE bool press(int key, int modifiers, bool again = false);
  /// Whether Esc put something away here.
  Q_INVOKABLE bool escape();
  Q_INVOKABLE void changeVolume(double percent);

 Q_SIGNALS:
  void fullScreenChanged();
  void smallChanged();
  void pictureOnlyChanged();
  void watchingChanged();
  void controlsShownChanged();
  void busyChanged();
  void noteChanged();
  void pictureShapeChanged();
  void chooserChanged();

 private:
  /// Whether the offer is seen: the small window has no room for it.
  bool offersEpisode() const;
  bool zap(int key);
  /// A key of the keyboard for playback itself, wherever one is.
  bool command(int key);
  bool pressWithControl(int key, bool shift);
  void toggleMuted();
  void changeDelay(int milliseconds);
  /// Going round choices by a key, which may be pressed again before the engine says what is in
  /// force.
  struct Round {
    int choice = 0;
    std::optional<SteadyTime> chosen;
  };
  /// The choice after the one in force.
  QVariantMap next(Round& round, int current, const QVariantList& choices);
  void nextAudio();
  void nextSubtitle();
  bool skip(double seconds);
  /// Shows a note for a moment.
  void say(const QString& note);
  void setNote(const QString& note);
  void updateControls();

  AppModel& model_;
  Playback& playback_;
  Zapping& zapping_;
  ChannelBanner& banner_;
  NextEpisode& nextEpisode_;
  TransportControls& transport_;
  Statistics& statistics_;
  Clock& clock_;
  std::unique_ptr<ChannelChooser> chooser_;
  bool small_ = false;
  bool controlsShown_ = false;
  bool busy_ = false;
  bool pointed_ = false;  // a movement was not long ago
  Round audioRound_;
  Round subtitleRound_;
  QString note_;
  std::unique_ptr<Clock::Timer> hiding_;
  std::unique_ptr<Clock::Timer> skipping_;  // until the position that skips add up to is taken
  std::unique_ptr<Clock::Timer> noting_;
};

}  // namespace vantor
