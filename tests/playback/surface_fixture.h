#pragma once

#include <gtest/gtest.h>

#include <QQuickWindow>

#include "playback/video_surface.h"
#include "support/picture.h"
#include "support/waiting.h"

namespace vantor::test {

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
      return bool{isNear(seen, color)};
    });
    if (right) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "shows " << seen.name().toStdString();
  }
};

}  // namespace vantor::test
