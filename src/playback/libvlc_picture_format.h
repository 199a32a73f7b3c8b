#pragma once

#include <QSize>
#include <optional>

#include "playback/video_frame.h"

namespace vantor {

/// How a decoder's pictures are meant to be shown.
struct PictureFormat {
  QSize size;  // without the decoder's padding
  ColorMatrix matrix = ColorMatrix::bt709;
  ColorRange range = ColorRange::limited;
  PictureLight light;
  double pixelAspect = 0;  // width by height, 0 while unknown
};

/// What most pictures are whose decoder does not say more than this.
PictureFormat usualFormat(const char* chroma, unsigned width, unsigned height);

/// The format behind the arguments of a libvlc_video_format_cb. Those have the padded size only,
/// and libVLC would stretch the picture to fill it (1280×720 to 1280×738). Its 3.0 releases pass
/// pointers into their own description, which has the rest; libVLC 4 passes the shown size beside
/// the padded. Absent when the arguments do not look like that.
std::optional<PictureFormat> pictureFormat(const char* chroma, const unsigned* width,
                                           const unsigned* height);

}  // namespace vantor
