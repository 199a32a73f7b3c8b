#pragma once

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <cstdlib>

#include "playback/video_surface.h"
#include "support/waiting.h"

namespace vantor::test {

inline bool near(const QColor& color, const QColor& expected, int tolerance = 6) {
  return std::abs(color.red() - expected.red()) <= tolerance &&
         std::abs(color.green() - expected.green()) <= tolerance &&
         std::abs(color.blue() - expected.blue()) <= tolerance;
}

/// A surface in the corner of a window.
class SurfaceFixture : public ::testing::Test {
 protected:
  std::shared_ptr<VideoFrameQueue> frames = std::make_shared<VideoFrameQueue>();
  QQuickWindow window;
  VideoSurface surface{window.contentItem()};
  int firstPictures = 0;

  void SetUp() override {
    window.setColor(Qt::green);
    window.resize(400, 300);
    surface.setSize(QSizeF(400, 300));
    surface.setFrames(frames.get());
    QObject::connect(&surface, &VideoSurface::firstPictureShown, [this] { ++firstPictures; });
    window.show();
    ASSERT_TRUE(eventually([this] { return window.isExposed(); }));
  }

  /// Grabs until the window shows `color` at a place, for pictures arrive a frame later.
  testing::AssertionResult shows(QPoint place, const QColor& color) {
    QColor seen;
    const bool right = eventually([&] {
      const QImage image = window.grabWindow();
      if (!image.valid(place)) return false;
      seen = image.pixelColor(place);
      return near(seen, color);
    });
    if (right) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "shows " << seen.name().toStdString();
  }
};

}  // namespace vantor::test
