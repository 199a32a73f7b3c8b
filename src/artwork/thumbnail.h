#pragma once

#include <QByteArray>
#include <QImage>

class QImageReader;

namespace vantor {

/// Longest side of a thumbnail, in pixels.
inline constexpr int thumbnailSide = 360;

/// Pictures of more pixels are not decoded: a few megabytes can decode to any number of them.
inline constexpr qint64 mostPixels = 25'000'000;

/// The size that the reader decodes `file` to, which it reads; empty when it cannot, or to more
/// than `mostPixels`.
QSize decodedSize(const QImageReader& reader, const QByteArray& file);

/// An upright picture, at most `thumbnailSide` long, of the first image in `bytes`: a PNG, JPEG,
/// WebP, GIF or BMP file of at most `mostPixels`. Null for anything else. Takes processor time:
/// worker threads only.
QImage decodeThumbnail(const QByteArray& bytes);

}  // namespace vantor
