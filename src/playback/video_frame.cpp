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

}  // namespace

std::array<std::array<float, 4>, 3> rgbFactors(ColorMatrix matrix, ColorRange range) {
  const auto [red, blue] = shares(matrix);
  const double green = 1 - red - blue;
  const bool limited = range == ColorRange::limited;
  const double lumaScale = limited ? 255.0 / 219 : 1;
  const double chromaScale = limited ? 255.0 / 224 : 1;
  const double black = limited ? 16.0 / 255 : 0;
  const double neutral = 128.0 / 255;

  const double redFromV = 2 * (1 - red) * chromaScale;
  const double blueFromU = 2 * (1 - blue) * chromaScale;
  const double greenFromU = -blueFromU * blue / green;
  const double greenFromV = -redFromV * red / green;

  const auto row = [&](double u, double v) {
    return std::array<float, 4>{static_cast<float>(lumaScale), static_cast<float>(u),
                                static_cast<float>(v),
                                static_cast<float>(-lumaScale * black - (u + v) * neutral)};
  };
  return {row(0, redFromV), row(greenFromU, greenFromV), row(blueFromU, 0)};
}

}  // namespace vantor
