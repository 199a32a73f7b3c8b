#include "playback/video_frame.h"

#include <utility>

namespace vantor {

namespace {

/// Shares of red and blue in the brightness.
std::pair<double, double> shares(ColorMatrix matrix) {
  switch (matrix) {
    case ColorMatrix::bt601:
      return {0.299, 0.114};
    case ColorMatrix::bt2020:
      return {0.2627, 0.0593};
    case ColorMatrix::bt709:
      break;
  }
  return {0.2126, 0.0722};
}

/// The largest number in a plane's bytes, in units of the smallest step of luma.
double largest(PictureLayout layout) {
  switch (layout) {
    case PictureLayout::planar:
    case PictureLayout::interleaved:
      return 255;
    case PictureLayout::deepPlanar:
      return 65535;
    case PictureLayout::deepInterleaved:
      break;
  }
  return 65535.0 / 64;
}

}  // namespace

void layOut(VideoFrame& frame, const std::uint8_t* memory, QSize size, int stride, int lines) {
  const bool interleaved = isInterleaved(frame.layout);
  const int bytes = isDeep(frame.layout) ? 2 : 1;
  const QSize chroma((size.width() + 1) / 2, (size.height() + 1) / 2);
  const int chromaStride = interleaved ? stride : stride / 2;
  const std::uint8_t* u = memory + std::ptrdiff_t{stride} * lines;
  const std::uint8_t* v = u + std::ptrdiff_t{chromaStride} * (lines / 2);
  frame.planes[0] = {memory, stride, size, 1, bytes};
  frame.planes[1] = {u, chromaStride, chroma, interleaved ? 2 : 1, bytes};
  frame.planes[2] = interleaved ? VideoPlane() : VideoPlane{v, chromaStride, chroma, 1, bytes};
}

std::array<std::array<float, 4>, 3> rgbFactors(ColorMatrix matrix, ColorRange range,
                                               PictureLayout layout) {
  const auto [red, blue] = shares(matrix);
  const double green = 1 - red - blue;
  const bool limited = range == ColorRange::limited;
  const double unit = isDeep(layout) ? 4 : 1;  // of 8 bits, in steps
  const double full = isDeep(layout) ? 1023 : 255;
  const double lumaScale = 1 / (limited ? 219 * unit : full);
  const double chromaScale = 1 / (limited ? 224 * unit : full);
  const double black = limited ? 16 * unit : 0;
  const double neutral = 128 * unit;

  const double redFromV = 2 * (1 - red) * chromaScale;
  const double blueFromU = 2 * (1 - blue) * chromaScale;
  const double greenFromU = -blueFromU * blue / green;
  const double greenFromV = -redFromV * red / green;

  const double most = largest(layout);
  const auto row = [&](double u, double v) {
    return std::array<float, 4>{static_cast<float>(lumaScale * most), static_cast<float>(u * most),
                                static_cast<float>(v * most),
                                static_cast<float>(-lumaScale * black - (u + v) * neutral)};
  };
  return {row(0, redFromV), row(greenFromU, greenFromV), row(blueFromU, 0)};
}

}  // namespace vantor
