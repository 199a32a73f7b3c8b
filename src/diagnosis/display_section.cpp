#include <QGuiApplication>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QScreen>

#include "diagnosis/report.h"
#include "diagnosis/sections.h"
#include "playback/rhi.h"
#include "playback/video_material.h"

namespace vantor::sections {
namespace {

using namespace Qt::StringLiterals;

/// What decides where and how Qt draws.
void tellEnvironment(Report& report) {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY"})
    report.say(QLatin1String(variable),
               qEnvironmentVariableIsEmpty(variable) ? u"not set"_s : u"set"_s);
  for (const char* variable :
       {"QT_QPA_PLATFORM", "QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QSG_RENDER_LOOP",
        "QT_SCALE_FACTOR", "QT_ENABLE_HIGHDPI_SCALING", "LIBGL_ALWAYS_SOFTWARE"})
    if (qEnvironmentVariableIsSet(variable))
      report.say(QLatin1String(variable), qEnvironmentVariable(variable));
}

/// Qt and the drivers keep caches, and tell assistive programs and the desktop of each new program.
void leaveNoTrace() {
  qputenv("XDG_CACHE_HOME", "/dev/null/none");
  qputenv("MESA_SHADER_CACHE_DISABLE", "true");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null/none");
  QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
}

QString nameOf(QRhiDriverInfo::DeviceType type) {
  switch (type) {
    case QRhiDriverInfo::IntegratedDevice:
      return u"integrated"_s;
    case QRhiDriverInfo::DiscreteDevice:
      return u"discrete"_s;
    case QRhiDriverInfo::ExternalDevice:
      return u"external"_s;
    case QRhiDriverInfo::VirtualDevice:
      return u"virtual"_s;
    case QRhiDriverInfo::CpuDevice:
      return u"processor"_s;
    default:
      return u"unknown kind"_s;
  }
}

void tellGraphics(Report& report) {
  QQuickRenderControl control;
  QQuickWindow window(&control);
  if (QQuickWindow::graphicsApi() == QSGRendererInterface::Software ||
      QQuickWindow::sceneGraphBackend() == "software"_L1) {
    report.say(u"graphics"_s, u"software of Qt Quick, which shows no video"_s);
    return;
  }
  if (!control.initialize()) {
    report.say(u"graphics"_s, u"no driver works"_s);
    return;
  }
  auto* const rhi = static_cast<QRhi*>(
      window.rendererInterface()->getResource(&window, QSGRendererInterface::RhiResource));
  if (!rhi) return;
  const QRhiDriverInfo driver = rhi->driverInfo();
  report.say(u"graphics"_s,
             u"%1, %2, %3"_s.arg(QLatin1String(rhi->backendName()),
                                 QString::fromUtf8(driver.deviceName), nameOf(driver.deviceType)));
  report.say(u"pictures of 10 bits"_s, showsDeepSamples(rhi) ? u"yes"_s : u"no"_s);
}

}  // namespace

void tellDisplay(Report& report, int& argc, char** argv) {
  tellEnvironment(report);
  leaveNoTrace();
  const QGuiApplication application(argc, argv);
  report.say(u"platform"_s, QGuiApplication::platformName());
  for (const QScreen* screen : QGuiApplication::screens())
    report.say(u"screen"_s, u"%1 × %2, scale %3, %4 Hz"_s.arg(screen->geometry().width())
                                .arg(screen->geometry().height())
                                .arg(screen->devicePixelRatio())
                                .arg(screen->refreshRate()));
  tellGraphics(report);
}

}  // namespace vantor::sections
