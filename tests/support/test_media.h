#pragma once

#include <QString>
#include <QStringList>

namespace vantor::test {

/// Makes a media file with the ffmpeg program, whose arguments are set apart by spaces; false when
/// that failed.
[[nodiscard]] bool makeMedia(const QString& ffmpegArguments, const QString& file);

/// Arguments for pictures of one colour, as ffmpeg names it.
QString solidColor(const QString& color, const QString& size, double seconds);
/// Arguments for a tone.
QString tone(double seconds);

/// What the ffprobe program finds in a media file.
struct Probed {
  QStringList pictures;  // codec and size of each video stream, such as "h264 1280x720"
  QStringList sounds;    // codec of each audio stream
  double seconds = 0;
};
/// Empty when it cannot read the file.
Probed probe(const QString& file);

}  // namespace vantor::test
