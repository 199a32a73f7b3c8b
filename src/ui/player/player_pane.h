#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariant>

namespace vantor {

class Playback;
class StreamKeeper;

/// What the player panel and the picture over it show. Main thread only.
class PlayerPane final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool idle READ idle NOTIFY changed)
  Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(bool loading READ loading NOTIFY changed)
  Q_PROPERTY(QString openingText READ openingText NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)
  Q_PROPERTY(QString interruption READ interruption NOTIFY changed)
  Q_PROPERTY(QVariant heldFrame READ heldFrame NOTIFY heldFrameChanged)
  Q_PROPERTY(bool holdingFrame READ holdingFrame NOTIFY heldFrameChanged)
  Q_PROPERTY(bool surfaceVisible READ surfaceVisible NOTIFY changed)
  Q_PROPERTY(QString playPauseSymbol READ playPauseSymbol NOTIFY changed)
  Q_PROPERTY(QString stateName READ stateName NOTIFY changed)
  Q_PROPERTY(QString expandSymbol READ expandSymbol NOTIFY changed)

 public:
  PlayerPane(Playback& playback, StreamKeeper& keeper, QObject* parent = nullptr);

  bool idle() const;
  QString placeholder() const;
  QString title() const;
  bool loading() const;
  QString openingText() const;
  QString message() const;       // failure; empty: none
  QString interruption() const;  // while the source is on its way back; empty: it is not
  QVariant heldFrame() const;    // a QImage
  bool holdingFrame() const;
  /// Whether the engine's picture is shown where there is a place for it.
  bool surfaceVisible() const;
  QString playPauseSymbol() const;
  /// "Playing", "Paused"; empty when it is neither.
  QString stateName() const;
  QString expandSymbol() const;

  Q_INVOKABLE void togglePause();
  /// The same for a click on the picture, where another one takes it back: a double click is no
  /// order to pause.
  Q_INVOKABLE void tapPicture();
  Q_INVOKABLE void toggleExpanded();
  Q_INVOKABLE void stop();
  Q_INVOKABLE void retry();
  /// Lets an interrupted source be.
  Q_INVOKABLE void giveUp();

 Q_SIGNALS:
  void changed();
  void heldFrameChanged();

 private:
  Playback& playback_;
  StreamKeeper& keeper_;
};

}  // namespace vantor
