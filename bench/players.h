#pragma once

#include <vlc/vlc.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>
#include <QThread>
#include <QTimer>

#include "platform/folders.h"
#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/playback.h"
#include "playback/video_surface.h"

namespace vantor::bench {

using namespace Qt::StringLiterals;

/// The event loop between two rounds, so that what the last one left is gone.
inline void rest() {
  QEventLoop loop;
  QTimer::singleShot(300, &loop, &QEventLoop::quit);
  loop.exec();
}

/// What a small libVLC program does: it gives libVLC a window and waits for the picture in it.
class BarePlayer {
 public:
  explicit BarePlayer(const QSize& size = {640, 360}) {
    const char* const arguments[] = {"--quiet", "--no-video-title-show", "--network-caching=1200",
                                     "--vout=xcb_x11", "--aout=dummy"};
    instance_ = libvlc_new(5, arguments);
    libvlc_log_set(
        instance_, [](void*, int, const libvlc_log_t*, const char*, va_list) {}, nullptr);
    window_.setSurfaceType(QSurface::RasterSurface);
    window_.resize(size);
    window_.show();
    rest();
  }
  ~BarePlayer() {
    stop();
    libvlc_release(instance_);
  }

  /// Milliseconds from the request to the picture on the display; what plays is stopped for it.
  double firstPicture(const QUrl& address) {
    window_.raise();
    rest();
    QElapsedTimer timer;
    timer.start();
    stop();
    const qint64 stopping = timer.nsecsElapsed();
    const QRgb before = pixel();
    timer.start();
    libvlc_media_t* media = libvlc_media_new_location(instance_, address.toEncoded().constData());
    player_ = libvlc_media_player_new_from_media(media);
    libvlc_media_release(media);
    libvlc_media_player_set_xwindow(player_, static_cast<std::uint32_t>(window_.winId()));
    libvlc_media_player_play(player_);
    QRgb now = before;
    while ((now == before || now == qRgb(0, 0, 0)) && timer.elapsed() < 10'000) {
      QThread::usleep(500);
      now = pixel();
    }
    return static_cast<double>(stopping + timer.nsecsElapsed()) / 1e6;
  }

  void stop() {
    if (!player_) return;
    libvlc_media_player_stop(player_);
    libvlc_media_player_release(player_);
    player_ = nullptr;
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
  libvlc_media_player_t* player_ = nullptr;
  QWindow window_;
};

/// Our controller, engine and surface in a window.
class OurPlayer {
 public:
  explicit OurPlayer(const QSize& window = {1320, 820}, const QRect& picture = {0, 0, 640, 360})
      : frames_(std::make_shared<VideoFrameQueue>()),
        engine_(frames_, Output::shown),
        playback_(engine_, clock_, worker_, Folders::ofUser(), Output::shown),
        surface_(new VideoSurface) {
    surface_->setFrames(frames_.get());
    surface_->setPosition(picture.topLeft());
    surface_->setSize(picture.size());
    window_.resize(window);
    surface_->setParentItem(window_.contentItem());
    window_.show();
    QEventLoop shown;
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &shown, &QEventLoop::quit,
                     Qt::QueuedConnection);
    QTimer::singleShot(10'000, &shown, &QEventLoop::quit);
    shown.exec();
  }

  /// Milliseconds from the request to the picture on the display, from one source to the next.
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
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
  }

  void stop() { playback_.stop(); }

 private:
  SystemClock clock_;
  Worker worker_;
  std::shared_ptr<VideoFrameQueue> frames_;
  LibVLCEngine engine_;
  Playback playback_;
  QQuickWindow window_;
  VideoSurface* surface_;  // owned by the window's scene
};

}  // namespace vantor::bench
