// The least that shows a film.  picture_window ours|bare FILE WINDOW [PICTURE]  (640x360,
// 0,0,640x360) ours: our engine and surface in a Qt Quick window that holds nothing else; bare:
// libVLC alone, in a window of its own.
#include <vlc/vlc.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QUrl>

#include "playback/libvlc_engine.h"
#include "playback/video_surface.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

/// "640x360" or "10,20,640x360".
QRect rectangle(const QString& text) {
  static const QRegularExpression form(u"^(?:(\\d+),(\\d+),)?(\\d+)x(\\d+)$"_s);
  const QRegularExpressionMatch match = form.match(text);
  return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
          match.captured(4).toInt()};
}

int showBare(const QString& file, const QSize& size) {
  QWindow window;
  window.setFlags(Qt::FramelessWindowHint);
  window.setSurfaceType(QSurface::RasterSurface);
  window.resize(size);
  window.show();
  const char* const arguments[] = {"--quiet", "--no-video-title-show", "--vout=xcb_x11",
                                   "--aout=dummy"};
  libvlc_instance_t* instance = libvlc_new(4, arguments);
  libvlc_media_t* media = libvlc_media_new_path(instance, file.toUtf8().constData());
  libvlc_media_player_t* player = libvlc_media_player_new_from_media(media);
  libvlc_media_release(media);
  libvlc_media_player_set_xwindow(player, static_cast<std::uint32_t>(window.winId()));
  libvlc_media_player_play(player);
  return QGuiApplication::exec();
}

int showOurs(const QString& file, const QSize& size, const QRect& picture) {
  const auto frames = std::make_shared<VideoFrameQueue>();
  LibVLCEngine engine(frames, Output::shown);
  QQuickWindow window;
  window.setFlags(Qt::FramelessWindowHint);
  window.setColor(QColor(0x1F, 0x29, 0x2E));
  window.resize(size);
  auto* surface = new VideoSurface(window.contentItem());
  surface->setFrames(frames.get());
  surface->setPosition(picture.topLeft());
  surface->setSize(picture.size());
  window.show();
  engine.load({.address = QUrl::fromLocalFile(file)});
  engine.play();
  return QGuiApplication::exec();
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 4) return 2;
  using namespace vantor::bench;
  const QRect window = rectangle(arguments.at(3));
  if (arguments.at(1) == u"bare"_s) return showBare(arguments.at(2), window.size());
  const QRect picture = arguments.size() > 4 ? rectangle(arguments.at(4)) : window;
  return showOurs(arguments.at(2), window.size(), picture);
}
