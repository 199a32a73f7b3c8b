#include "playback/still.h"

#include <QFile>
#include <algorithm>
#include <cmath>
#include <limits>

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

constexpr int quickCompression = 80;  // QImage's scale, where 100 is none
constexpr int tallest = 4096;

/// The places of a plane that one row or column of the still covers, at least one.
struct Span {
  int begin;
  int end;
  Span(int index, int count, int samples)
      : begin(static_cast<int>(static_cast<std::int64_t>(index) * samples / count)),
        end(std::max(begin + 1,
                     static_cast<int>(static_cast<std::int64_t>(index + 1) * samples / count))) {}
};

/// Mean of one of the samples at the places in columns × rows, from 0 to the largest of all.
template <class Sample>
float mean(const VideoPlane& plane, int sample, const Span& columns, const Span& rows) {
  std::int64_t sum = 0;
  for (int y = rows.begin; y < rows.end; ++y) {
    const auto* row =
        reinterpret_cast<const Sample*>(plane.data + std::ptrdiff_t{y} * plane.stride) + sample;
    for (int x = columns.begin; x < columns.end; ++x) sum += row[std::ptrdiff_t{x} * plane.samples];
  }
  const auto count = static_cast<float>((columns.end - columns.begin) * (rows.end - rows.begin));
  return static_cast<float>(sum) / (count * std::numeric_limits<Sample>::max());
}

float meanOf(const VideoPlane& plane, int sample, const Span& columns, const Span& rows) {
  return plane.bytes == 1 ? mean<std::uint8_t>(plane, sample, columns, rows)
                          : mean<std::uint16_t>(plane, sample, columns, rows);
}

/// Red, green or blue.
float channel(const std::array<float, 4>& factors, float y, float u, float v) {
  return std::clamp(factors[0] * y + factors[1] * u + factors[2] * v + factors[3], 0.0f, 1.0f);
}

int byteOf(float value) {
  return static_cast<int>(std::lround(value * 255));
}

}  // namespace

QImage stillOf(const VideoFrame& frame, int width) {
  if (frame.size().isEmpty() || width <= 0) return {};
  const int height =
      static_cast<int>(std::clamp(std::round(width / frame.aspect()), 1.0, double{tallest}));
  const auto factors = rgbFactors(frame.matrix, frame.range, frame.layout);
  const VideoPlane& luma = frame.planes[0];
  const VideoPlane& chroma = frame.planes[1];
  const bool interleaved = isInterleaved(frame.layout);
  const VideoPlane& last = interleaved ? chroma : frame.planes[2];
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return {};
  for (int row = 0; row < height; ++row) {
    auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(row));
    for (int column = 0; column < width; ++column) {
      const float y = meanOf(luma, 0, Span(column, width, luma.size.width()),
                             Span(row, height, luma.size.height()));
      const Span columns(column, width, chroma.size.width());
      const Span rows(row, height, chroma.size.height());
      const float u = meanOf(chroma, 0, columns, rows);
      const float v = meanOf(last, interleaved ? 1 : 0, columns, rows);
      RGB color{channel(factors[0], y, u, v), channel(factors[1], y, u, v),
                channel(factors[2], y, u, v)};
      if (frame.tones) color = frame.tones->at(color);
      pixels[column] = qRgb(byteOf(color[0]), byteOf(color[1]), byteOf(color[2]));
    }
  }
  return image;
}

bool savePNG(const QImage& image, const QString& file) {
  const QString unfinished = file + u".part"_s;
  if (image.save(unfinished, "PNG", quickCompression) && QFile::rename(unfinished, file))
    return true;
  QFile::remove(unfinished);
  return false;
}

}  // namespace vantor
