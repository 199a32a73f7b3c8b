#pragma once

#include <QSize>
#include <array>
#include <cstdint>
#include <memory>

namespace vantor {

enum class ColorMatrix { bt601, bt709, bt2020 };
enum class ColorRange { limited, full };

/// Tells the pictures of one loaded media from those of every other; never used twice.
using SourceNumber = std::uint64_t;

/// One 8-bit plane.
struct VideoPlane {
  const std::uint8_t* data = nullptr;
  int stride = 0;  // bytes from row to row; a multiple of 4, or Qt 6.4 misreads them on OpenGL
  QSize size;      // samples that are shown; the rest of a row is padding
};

/// One decoded picture: Y, U and V with halved chroma (I420).
struct VideoFrame {
  SourceNumber source = 0;
  std::array<VideoPlane, 3> planes;
  double pixelAspect = 1;  // width of a pixel by its height
  ColorMatrix matrix = ColorMatrix::bt709;
  ColorRange range = ColorRange::limited;
  std::shared_ptr<const void> memory;  // what the planes point into

  QSize size() const { return planes[0].size; }
  /// Width by height of the picture as it is shown.
  double aspect() const { return size().width() * pixelAspect / size().height(); }
};

using SharedFrame = std::shared_ptr<const VideoFrame>;

/// Red, green and blue, each 0 to 1, as rows of factors of Y, U, V and 1, each 0 to 1.
std::array<std::array<float, 4>, 3> rgbFactors(ColorMatrix matrix, ColorRange range);

}  // namespace vantor
