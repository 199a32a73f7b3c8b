#include "playback/still.h"

#include <QFile>
#include <algorithm>
#include <cmath>

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

constexpr int kQuickCompression = 80;  // QImage's scale, where 100 is none
constexpr int kTallest = 4096;

/// Mean of the samples in [left, right) × [top, bottom).
float mean(const VideoPlane& plane, int left, int right, int top, int bottom) {
  int sum = 0;
  for (int y = top; y < bottom; ++y) {
    const std::uint8_t* row = plane.data + static_cast<std::ptrdiff_t>(y) * plane.stride;
    for (int x = left; x < right; ++x) sum += row[x];
  }
  return static_cast<float>(sum) / static_cast<float>((right - left) * (bottom - top));
}

/// The samples of a plane that one row or column of the still covers, at least one.
struct Span {
  int begin;
  int end;
  Span(int index, int count, int samples)
      : begin(static_cast<int>(static_cast<std::int64_t>(index) * samples / count)),
        end(std::max(begin + 1,
                     static_cast<int>(static_cast<std::int64_t>(index + 1) * samples / count))) {}
};

int channel(const std::array<float, 4>& factors, float y, float u, float v) {
  const float value = factors[0] * y + factors[1] * u + factors[2] * v + factors[3] * 255;
  return static_cast<int>(std::clamp(value + 0.5f, 0.0f, 255.0f));
}

}  // namespace

QImage stillOf(const VideoFrame& frame, int width) {
  if (frame.size().isEmpty() || width <= 0) return {};
  const int height =
      static_cast<int>(std::clamp(std::round(width / frame.aspect()), 1.0, double{kTallest}));
  const auto factors = rgbFactors(frame.matrix, frame.range);
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return {};
  for (int row = 0; row < height; ++row) {
    auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(row));
    for (int column = 0; column < width; ++column) {
      std::array<float, 3> yuv;
      for (std::size_t i = 0; i < yuv.size(); ++i) {
        const VideoPlane& plane = frame.planes[i];
        const Span x(column, width, plane.size.width());
        const Span y(row, height, plane.size.height());
        yuv[i] = mean(plane, x.begin, x.end, y.begin, y.end);
      }
      const auto& [y, u, v] = yuv;
      pixels[column] = qRgb(channel(factors[0], y, u, v), channel(factors[1], y, u, v),
                            channel(factors[2], y, u, v));
    }
  }
  return image;
}

bool savePNG(const QImage& image, const QString& file) {
  const QString unfinished = file + u".part"_s;
  if (image.save(unfinished, "PNG", kQuickCompression) && QFile::rename(unfinished, file))
    return true;
  QFile::remove(unfinished);
  return false;
}

}  // namespace vantor
