#pragma once

#include <QByteArray>
#include <optional>

namespace vantor {

/// The parts of a picture's file that its first image is drawn from. Texts, colour profiles,
/// previews, further frames and whatever else there is are left out: decoders keep them all, and a
/// few kilobytes of them can become gigabytes.
struct PictureParts {
  const char* format = nullptr;  // as Qt names it
  QByteArray bytes;
};

/// Absent when `file` does not begin as a PNG, JPEG, GIF, WebP or BMP file, and for a JPEG file of
/// too many scans. What is damaged stays so, for the decoder to refuse.
std::optional<PictureParts> pictureParts(const QByteArray& file);

}  // namespace vantor
