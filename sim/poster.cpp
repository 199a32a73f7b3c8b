#include "sim/poster.h"

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "sim/names.h"

namespace sim {
namespace {

struct Colour {
  double red, green, blue;
};

Colour blend(const Colour& from, const Colour& to, double share) {
  return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
          from.blue + (to.blue - from.blue) * share};
}

// `hue` in turns, the others from 0 to 1.
Colour fromHue(double hue, double saturation, double value) {
  const auto channel = [&](double shift) {
    const double distance = std::abs(std::fmod(hue + shift, 1.0) * 6 - 3) - 1;
    return value * (1 - saturation * (1 - std::min(1.0, std::max(0.0, distance))));
  };
  return {channel(0), channel(2.0 / 3), channel(1.0 / 3)};
}

void appendBigEndian(std::string& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
}

void appendChunk(std::string& png, const std::string& type, const std::string& data) {
  appendBigEndian(png, static_cast<std::uint32_t>(data.size()));
  const std::string checked = type + data;
  png += checked;
  appendBigEndian(
      png, static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(checked.data()),
                                            static_cast<uInt>(checked.size()))));
}

std::string compressed(const std::string& raw) {
  auto size = compressBound(raw.size());
  std::string bytes(size, '\0');
  if (compress2(reinterpret_cast<Bytef*>(bytes.data()), &size,
                reinterpret_cast<const Bytef*>(raw.data()), raw.size(), 6) != Z_OK) {
    throw std::runtime_error("cannot compress an image");
  }
  bytes.resize(size);
  return bytes;
}

// `rows` holds a filter byte in front of each row.
std::string png(std::uint32_t width, std::uint32_t height, char depth, char colourType,
                const std::string& rows) {
  std::string bytes = "\x89PNG\r\n\x1a\n";
  std::string header;
  appendBigEndian(header, width);
  appendBigEndian(header, height);
  header += {depth, colourType, 0, 0, 0};
  appendChunk(bytes, "IHDR", header);
  appendChunk(bytes, "IDAT", compressed(rows));
  appendChunk(bytes, "IEND", "");
  return bytes;
}

// Coordinates go from -1 to 1 across the width.
bool insideShape(std::uint64_t number, double x, double y) {
  const double size = 0.4 + static_cast<double>(number / 8 % 32) / 100;
  switch (number % 5) {
    case 0:
      return std::hypot(x, y) < size;
    case 1:
      return std::abs(x) + std::abs(y) < size * 1.2;
    case 2:
      return y > -size && y < size && std::abs(x) < (y + size) / 2;
    case 3:
      return std::abs(std::hypot(x, y) - size) < 0.12;
    default:
      return std::abs(x) < size && std::abs(y) < size;
  }
}

}  // namespace

std::string posterPng(Kind kind, std::uint64_t id) {
  const auto number = scatter(id, 50 + static_cast<std::uint64_t>(kind));
  const std::uint32_t width = kind == Kind::live ? 160 : 240;
  const std::uint32_t height = kind == Kind::live ? 160 : 360;
  const double hue = static_cast<double>(number % 360) / 360;
  const auto top = fromHue(hue, 0.65, 0.75);
  const auto bottom = fromHue(hue + 0.12, 0.8, 0.25);
  const auto shape = fromHue(hue + 0.5, 0.5, 0.95);
  const double stripes = 2 + static_cast<double>(number / 1024 % 6);

  std::string rows;
  rows.reserve((width * 3 + 1) * height);
  for (std::uint32_t row = 0; row < height; ++row) {
    rows += '\0';
    for (std::uint32_t column = 0; column < width; ++column) {
      const double x = 2.0 * column / width - 1;
      const double y = (2.0 * row - height) / width;
      auto colour = blend(top, bottom, static_cast<double>(row) / height);
      if (std::sin((x + y) * stripes * 3) > 0.8) colour = blend(colour, shape, 0.25);
      if (insideShape(number / 4096, x, y)) colour = blend(colour, shape, 0.85);
      for (const double part : {colour.red, colour.green, colour.blue}) {
        rows += static_cast<char>(static_cast<unsigned char>(part * 255));
      }
    }
  }
  return png(width, height, 8, 2, rows);
}

std::string hugePng() {
  constexpr std::uint32_t kSide = 30'000;
  return png(kSide, kSide, 1, 0, std::string((kSide / 8 + 1) * std::size_t{kSide}, '\0'));
}

}  // namespace sim
