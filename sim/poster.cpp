#include "sim/poster.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <functional>

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

// `row` gives the bytes of each row. All that can fail here is to get memory, and then libpng ends
// the program.
std::string png(std::uint32_t width, std::uint32_t height, int depth, int colourType,
                const std::function<std::string(std::uint32_t)>& row) {
  std::string bytes;
  auto* writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  auto* info = png_create_info_struct(writer);
  const auto append = [](png_structp to, png_bytep data, std::size_t size) {
    static_cast<std::string*>(png_get_io_ptr(to))->append(reinterpret_cast<char*>(data), size);
  };
  png_set_write_fn(writer, &bytes, append, [](png_structp) {});
  png_set_IHDR(writer, info, width, height, depth, colourType, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(writer, info);
  for (std::uint32_t i = 0; i < height; ++i) {
    png_write_row(writer, reinterpret_cast<png_const_bytep>(row(i).data()));
  }
  png_write_end(writer, info);
  png_destroy_write_struct(&writer, &info);
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

  return png(width, height, 8, PNG_COLOR_TYPE_RGB, [&](std::uint32_t row) {
    std::string bytes;
    bytes.reserve(width * 3);
    for (std::uint32_t column = 0; column < width; ++column) {
      const double x = 2.0 * column / width - 1;
      const double y = (2.0 * row - height) / width;
      auto colour = blend(top, bottom, static_cast<double>(row) / height);
      if (std::sin((x + y) * stripes * 3) > 0.8) colour = blend(colour, shape, 0.25);
      if (insideShape(number / 4096, x, y)) colour = blend(colour, shape, 0.85);
      for (const double part : {colour.red, colour.green, colour.blue}) {
        bytes += static_cast<char>(static_cast<unsigned char>(part * 255));
      }
    }
    return bytes;
  });
}

std::string hugePng() {
  constexpr std::uint32_t side = 30'000;
  return png(side, side, 1, PNG_COLOR_TYPE_GRAY,
             [](std::uint32_t) { return std::string(side / 8 + 1, '\0'); });
}

}  // namespace sim
