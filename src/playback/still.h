#pragma once

#include <QImage>
#include <QString>

#include "playback/video_frame.h"

namespace vantor {

/// The picture in RGB, `width` pixels wide, as high as its shown aspect ratio asks.
QImage stillOf(const VideoFrame& frame, int width);

/// Writes `image` as PNG so that `file` is there whole or not at all; false when it is not.
bool savePNG(const QImage& image, const QString& file);

}  // namespace vantor
