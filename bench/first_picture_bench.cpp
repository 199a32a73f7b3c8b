// From the request to play a channel to its first picture in the window, beside a bare libVLC
// program that shows the same source in a window of its own.
#include <vlc/vlc.h>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>
#include <QThread>
#include <QTimer>

#include "measure.h"
#include "platform/folders.h"
#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/playback.h"
#include "playback/video_surface.h"
#include "sim/library.h"
#include "sim/server.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

constexpr int rounds = 9;

/// The event loop between two rounds, so that what the last one left is gone.
void rest() {
  QEventLoop loop;
  QTimer::singleShot(300, &loop, &QEventLoop::quit);
  loop.exec();
}

/// What a small libVLC program does: it gives libVLC a window and waits for the picture in it.
class BarePlayer {
 public:
  BarePlayer() {
    const char* const arguments[] = {"--quiet", "--no-video-title-show", "--network-caching=1200",
                                     "--vout=xcb_x11", "--aout=dummy"};
    instance_ = libvlc_new(5, arguments);
    libvlc_log_set(
        instance_, [](void*, int, const libvlc_log_t*, const char*, va_list) {}, nullptr);
    window_.setSurfaceType(QSurface::RasterSurface);
    window_.resize(640, 360);
    window_.show();
    rest();
  }
  ~BarePlayer() { libvlc_release(instance_); }

  double firstPicture(const QUrl& address) {
    libvlc_media_t* media = libvlc_media_new_location(instance_, address.toEncoded().constData());
    libvlc_media_player_t* player = libvlc_media_player_new_from_media(media);
    libvlc_media_release(media);
    libvlc_media_player_set_xwindow(player, static_cast<std::uint32_t>(window_.winId()));
    window_.raise();
    rest();
    const QRgb before = pixel();
    QElapsedTimer timer;
    timer.start();
    libvlc_media_player_play(player);
    QRgb now = before;
    while ((now == before || now == qRgb(0, 0, 0)) && timer.elapsed() < 10'000) {
      QThread::usleep(500);
      now = pixel();
    }
    const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    libvlc_media_player_stop(player);
    libvlc_media_player_release(player);
    return time;
  }

 private:
  /// What the display shows at a place of the window that no source leaves black.
  QRgb pixel() {
    return window_.screen()
        ->grabWindow(0, window_.x() + 200, window_.y() + 100, 1, 1)
        .toImage()
        .pixel(0, 0);
  }

  libvlc_instance_t* instance_ = nullptr;
  QWindow window_;
};

/// Our controller, engine and surface in a window.
class OurPlayer {
 public:
  OurPlayer()
      : frames_(std::make_shared<VideoFrameQueue>()),
        engine_(frames_, Output::shown),
        playback_(engine_, clock_, worker_, Folders::ofUser(), Output::shown),
        surface_(new VideoSurface) {
    surface_->setFrames(frames_.get());
    surface_->setSize(QSizeF(640, 360));
    window_.resize(1320, 820);
    surface_->setParentItem(window_.contentItem());
    window_.show();
    QEventLoop shown;
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &shown, &QEventLoop::quit,
                     Qt::QueuedConnection);
    QTimer::singleShot(10'000, &shown, &QEventLoop::quit);
    shown.exec();
  }

  double firstPicture(const QUrl& address) {
    window_.raise();
    rest();
    QEventLoop waiting;
    QObject::connect(surface_, &VideoSurface::firstPictureShown, &waiting, &QEventLoop::quit);
    QTimer::singleShot(10'000, &waiting, &QEventLoop::quit);
    QElapsedTimer timer;
    timer.start();
    playback_.play({.url = address,
                    .title = u"Channel"_s,
                    .id = u"live:1"_s,
                    .agent = u"VantorPlayerMac/0.1.0"_s});
    waiting.exec();
    const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    playback_.stop();
    return time;
  }

 private:
  SystemClock clock_;
  Worker worker_;
  std::shared_ptr<VideoFrameQueue> frames_;
  LibVLCEngine engine_;
  Playback playback_;
  QQuickWindow window_;
  VideoSurface* surface_;  // owned by the window's scene
};

void bench(const char* name, const QUrl& address) {
  BarePlayer bare;
  OurPlayer ours;
  Times bareTimes;
  Times ourTimes;
  for (int i = 0; i < rounds; ++i) {
    bareTimes.add(std::chrono::duration<double, std::milli>(bare.firstPicture(address)));
    rest();
    ourTimes.add(std::chrono::duration<double, std::milli>(ours.firstPicture(address)));
    rest();
  }
  const double ratio = ourTimes.median() / bareTimes.median();
  row(std::string("play -> first picture in the window, ") + name, milliseconds(ourTimes.median()),
      "bare libVLC " + milliseconds(bareTimes.median()), factor(ratio) + " (1.3 x)", ratio <= 1.3);
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  sim::Options options;
  options.username = "user";
  options.password = "secret";
  options.mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString();
  const sim::Server server(options);
  const QString channel = QString::fromStdString(server.url() + "/live/user/secret/" +
                                                 std::to_string(sim::entryId(sim::Kind::live, 0)));
  vantor::bench::bench("TS", QUrl(channel + u".ts"_s));
  vantor::bench::bench("HLS", QUrl(channel + u".m3u8"_s));
  return 0;
}
