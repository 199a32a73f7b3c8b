#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <functional>

namespace vantor {

class Playback;

/// The program as a media player of the session bus (MPRIS 2.2). Main thread only.
class MprisRoot final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(bool CanQuit READ always)
  Q_PROPERTY(bool Fullscreen READ fullScreen WRITE setFullScreen)
  Q_PROPERTY(bool CanSetFullscreen READ canSetFullScreen)
  Q_PROPERTY(bool CanRaise READ always)
  Q_PROPERTY(bool HasTrackList READ never)
  Q_PROPERTY(QString Identity READ identity)
  Q_PROPERTY(QString DesktopEntry READ desktopEntry)
  Q_PROPERTY(QStringList SupportedUriSchemes READ schemes)
  Q_PROPERTY(QStringList SupportedMimeTypes READ types)

 public:
  /// What the window and the program do about it.
  struct Actions {
    std::function<void()> raise;
    std::function<void()> quit;
  };

  /// `playback` outlives the object; `application` names the desktop entry.
  MprisRoot(QObject& object, Playback& playback, Actions actions, QString application);

 public Q_SLOTS:
  // As D-Bus writes methods.
  void Raise() { actions_.raise(); }
  void Quit() { actions_.quit(); }

 private:
  static bool always() { return true; }
  static bool never() { return false; }
  bool fullScreen() const;
  void setFullScreen(bool fullScreen);
  bool canSetFullScreen() const;
  static QString identity();
  QString desktopEntry() const { return application_; }
  static QStringList schemes();
  static QStringList types();

  Playback& playback_;
  const Actions actions_;
  const QString application_;
};

}  // namespace vantor
