#include "playback/libvlc_picture_format.h"

#include <vlc_common.h>
#include <vlc_es.h>
#include <vlc_fourcc.h>

#include <cstddef>
#include <cstring>

namespace vantor {

namespace {

constexpr unsigned mostPadding = 256;     // pixels that decoders add to a side, and some more
constexpr double masteringUnit = 0.0001;  // cd/m²
constexpr unsigned standardLines = 576;   // more lines are coded by BT.709 when nothing is said

bool pads(unsigned padded, unsigned offset, unsigned visible) {
  return visible > 0 && offset <= padded && visible <= padded - offset &&
         padded - visible < mostPadding;
}

ColorMatrix usualMatrix(unsigned lines) {
  return lines > standardLines ? ColorMatrix::bt709 : ColorMatrix::bt601;
}

/// Or gray, which is neutral by any matrix.
bool isRGB(const video_format_t& format) {
  return !vlc_fourcc_IsYUV(format.i_chroma);
}

/// Of the pictures that libVLC makes of the decoder's: it keeps the range of those that it need not
/// or cannot know to be full, and makes the others limited, those of RGB by BT.601.
ColorRange rangeOf(const video_format_t& format) {
  switch (format.i_chroma) {
    case VLC_CODEC_J420:
      return ColorRange::full;
    case VLC_CODEC_J422:
    case VLC_CODEC_J440:
    case VLC_CODEC_J444:
      return ColorRange::limited;
    default:
      return format.b_color_range_full && !isRGB(format) ? ColorRange::full : ColorRange::limited;
  }
}

ColorMatrix matrixOf(const video_format_t& format) {
  if (isRGB(format)) return ColorMatrix::bt601;
  switch (format.space) {
    case COLOR_SPACE_BT601:
      return ColorMatrix::bt601;
    case COLOR_SPACE_BT709:
      return ColorMatrix::bt709;
    case COLOR_SPACE_BT2020:
      return ColorMatrix::bt2020;
    case COLOR_SPACE_UNDEF:
      break;
  }
  return usualMatrix(format.i_visible_height);
}

PictureLight lightOf(const video_format_t& format) {
  PictureLight light;
  if (format.transfer == TRANSFER_FUNC_SMPTE_ST2084) light.transfer = Transfer::pq;
  if (format.transfer == TRANSFER_FUNC_HLG) light.transfer = Transfer::hlg;
  // Both come with these primaries, named or not.
  const bool unnamed = format.primaries == COLOR_PRIMARIES_UNDEF &&
                       (light.transfer != Transfer::standard || format.space == COLOR_SPACE_BT2020);
  if (format.primaries == COLOR_PRIMARIES_BT2020 || unnamed) light.primaries = Primaries::bt2020;
  if (format.mastering.max_luminance > 0)
    light.peak = format.mastering.max_luminance * masteringUnit;
  return light;
}

}  // namespace

PictureFormat usualFormat(const char* chroma, unsigned width, unsigned height) {
  const bool full = std::memcmp(chroma, "J420", 4) == 0;
  return {.size = QSize(static_cast<int>(width), static_cast<int>(height)),
          .matrix = usualMatrix(height),
          .range = full ? ColorRange::full : ColorRange::limited};
}

std::optional<PictureFormat> pictureFormat(const char* chroma, const unsigned* width,
                                           const unsigned* height) {
  constexpr std::size_t between =
      offsetof(video_format_t, i_height) - offsetof(video_format_t, i_width);
  const auto* bytes = reinterpret_cast<const char*>(width);
  if (reinterpret_cast<const char*>(height) - bytes != static_cast<std::ptrdiff_t>(between))
    return {};
  const auto& format = *reinterpret_cast<const video_format_t*>(
      bytes - static_cast<std::ptrdiff_t>(offsetof(video_format_t, i_width)));
  if (std::memcmp(&format.i_chroma, chroma, sizeof format.i_chroma) != 0 ||
      !pads(format.i_width, format.i_x_offset, format.i_visible_width) ||
      !pads(format.i_height, format.i_y_offset, format.i_visible_height))
    return {};

  PictureFormat result;
  result.size =
      QSize(static_cast<int>(format.i_visible_width), static_cast<int>(format.i_visible_height));
  result.matrix = matrixOf(format);
  result.range = rangeOf(format);
  result.light = lightOf(format);
  if (format.i_sar_den > 0)
    result.pixelAspect = static_cast<double>(format.i_sar_num) / format.i_sar_den;
  return result;
}

}  // namespace vantor
