#pragma once

#include <QByteArray>
#include <QImage>

namespace vantor {

/// Longest side of a thumbnail, in pixels.
inline constexpr int thumbnailSide = 360;

/// An upright picture, at most `thumbnailSide` long, of the first image in `bytes`: a PNG, JPEG,
/// WebP, GIF or BMP file of at most 25 million pixels. Null for anything else. Takes processor
/// time: worker threads only.
QImage decodeThumbnail(const QByteArray& bytes);

}  // namespace vantor
