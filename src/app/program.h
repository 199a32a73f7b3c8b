#pragma once

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>
#include <memory>

#include "app/app_delegate.h"
#include "app/crash_notice.h"
#include "app/termination_signals.h"
#include "artwork/artwork_store.h"
#include "core/app_model.h"
#include "core/now_playing.h"
#include "desktop/desktop_settings.h"
#include "desktop/idle_inhibitor.h"
#include "desktop/mpris_service.h"
#include "desktop/network_watch.h"
#include "desktop/portal_file_panel.h"
#include "desktop/recording_service.h"
#include "desktop/screen_awake.h"
#include "diagnosis/run_log.h"
#include "net/http_client.h"
#include "platform/clock.h"
#include "platform/opener.h"
#include "platform/preferences.h"
#include "platform/secret_service_store.h"
#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/stream_keeper.h"
#include "provider/service_values.h"
#include "provider/vantor_configuration.h"
#include "storage/secure_store.h"
#include "ui/views.h"
#include "ui/window/dialog_file_panel.h"
#include "ui/window/window_place.h"

namespace vantor {

class ApplicationObject;

/// The composition root: every part of the program, made in the order in which they need each
/// other.
class Program final : public QObject {
  Q_OBJECT

 public:
  explicit Program(const LaunchArguments& launch);
  ~Program() override;

  /// Opens the window, soon; ends the event loop with status 1 when it cannot be made.
  void open();
  /// Does what others ask of `object` from now on.
  void obey(const ApplicationObject& object);

 Q_SIGNALS:
  /// It may still be saving a recording, but takes no more orders.
  void quitting();

 private:
  void makeWindow();
  void followWishes();
  void startUp();
  void showWindowWhenReady();
  void showWindow();
  void raiseWindow();
  void show(Section section);
  void offerSignIn();
  void quit();

  // Ends last: whoever insists on the end must not kill what is still closing a file.
  TerminationSignals signals_;
  const LaunchArguments launch_;
  const ServiceValues values_ = ServiceValues::ofBuild();
  const Folders folders_ = Folders::ofUser();
  // First, since everything may fail.
  std::optional<RunLog> log_;  // absent where saved state is not touched
  SystemClock clock_;
  Preferences preferences_;  // in an isolated run for whoever signs in
  Preferences unkept_{QString()};
  HTTPClient transport_;
  VantorConfiguration configuration_;
  SecretServiceStore credentials_;
  SecureStore secureStore_;
  // Behind what their work uses, since each waits for the end of what it is doing. None keeps
  // another waiting, whatever a picture costs and whoever has to be asked.
  Worker worker_{2, Worker::Share::little};
  Worker secretsWorker_;
  Worker artworkWorker_{1, Worker::Share::little};
  Worker busWorker_{2};
  ArtworkStore artwork_;
  DialogFilePanel ownFilePanel_;
  PortalFilePanel filePanel_;
  DesktopOpener opener_;
  std::shared_ptr<VideoFrameQueue> frames_;
  LibVLCEngine engine_;
  AppModel model_;
  StreamKeeper keeper_;
  RecordingService recordingService_;
  NetworkWatch networkWatch_;
  IdleInhibitor idleInhibitor_{clock_};
  DesktopSettings desktopSettings_;
  Views views_;
  ScreenAwake screenAwake_;  // hears of an end after the view that may go on by itself
  NowPlaying nowPlaying_;
  MprisService mpris_;
  std::optional<CrashNotice> crashNotice_;
  AppDelegate delegate_;
  QQmlEngine qml_;
  QQmlComponent component_{&qml_};
  std::unique_ptr<QQuickWindow> window_;
  std::unique_ptr<WindowPlace> windowPlace_;
  QTimer memoryReturn_;
  bool windowShown_ = false;
  bool quitting_ = false;
};

}  // namespace vantor
