#pragma once

#include <QSize>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "playback/tone_table.h"

namespace vantor {

enum class ColorMatrix { bt601, bt709, bt2020 };
enum class ColorRange { limited, full };

/// Tells the pictures of one loaded media from those of every other; never used twice.
using SourceNumber = std::uint64_t;

/// How the samples of a picture lie in memory. Chroma has half of luma's samples in each direction.
enum class PictureLayout : unsigned char {
  planar,           // I420: Y, U and V with 8 bits
  interleaved,      // NV12: Y, and U beside V, with 8 bits
  deepPlanar,       // the first with 10 bits at the low end of 16
  deepInterleaved,  // P010: the second with 10 bits at the high end of 16
};

constexpr bool isInterleaved(PictureLayout layout) {
  return layout == PictureLayout::interleaved || layout == PictureLayout::deepInterleaved;
}
constexpr bool isDeep(PictureLayout layout) {
  return layout == PictureLayout::deepPlanar || layout == PictureLayout::deepInterleaved;
}
constexpr std::size_t planesOf(PictureLayout layout) {
  return isInterleaved(layout) ? 2 : 3;
}

struct VideoPlane {
  const std::uint8_t* data = nullptr;
  int stride = 0;   // bytes from row to row; a multiple of 4, or Qt 6.4 misreads them on OpenGL
  QSize size;       // places that are shown; the rest of a row is padding
  int samples = 1;  // at a place
  int bytes = 1;    // of a sample, the lowest first
};

/// One decoded picture.
struct VideoFrame {
  SourceNumber source = 0;
  PictureLayout layout = PictureLayout::planar;
  std::array<VideoPlane, 3> planes;  // of which the layout uses two or three
  double pixelAspect = 1;            // width of a pixel by its height
  ColorMatrix matrix = ColorMatrix::bt709;
  ColorRange range = ColorRange::limited;
  std::shared_ptr<const ToneTable> tones;  // null when a standard display shows it right as it is
  std::shared_ptr<const void> memory;      // what the planes point into

  QSize size() const { return planes[0].size; }
  /// Width by height of the picture as it is shown.
  double aspect() const { return size().width() * pixelAspect / size().height(); }
};

using SharedFrame = std::shared_ptr<const VideoFrame>;

/// Sets `samples` and `bytes` of the planes, and their places and pointers for a picture of `size`
/// whose planes follow each other in `memory`, rows of luma `stride` bytes and `lines` rows of it.
void layOut(VideoFrame& frame, const std::uint8_t* memory, QSize size, int stride, int lines);

/// Red, green and blue, each 0 to 1, as rows of factors of Y, U, V and 1; samples count as a part
/// of the largest number that their bytes can hold, as on a graphics card.
std::array<std::array<float, 4>, 3> rgbFactors(ColorMatrix matrix, ColorRange range,
                                               PictureLayout layout);

}  // namespace vantor
