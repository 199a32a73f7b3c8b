#include "playback/libvlc_picture_format.h"

#include <vlc_common.h>
#include <vlc_es.h>

#include <cstddef>
#include <cstring>

namespace vantor {

namespace {

constexpr unsigned kMostPadding = 256;    // pixels that decoders add to a side, and some more
constexpr unsigned kStandardLines = 576;  // more lines are coded by BT.709 when nothing is said

bool pads(unsigned padded, unsigned offset, unsigned visible) {
  return visible > 0 && offset <= padded && visible <= padded - offset &&
         padded - visible < kMostPadding;
}

ColorMatrix matrixOf(const video_format_t& format) {
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
  return format.i_visible_height > kStandardLines ? ColorMatrix::bt709 : ColorMatrix::bt601;
}

}  // namespace

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
  const bool full = format.b_color_range_full || format.i_chroma == VLC_CODEC_J420 ||
                    format.i_chroma == VLC_CODEC_J422 || format.i_chroma == VLC_CODEC_J444;
  result.range = full ? ColorRange::full : ColorRange::limited;
  return result;
}

}  // namespace vantor
