#pragma once

#include <QString>
#include <QStringList>

namespace vantor::test {

/// Makes a media file with the ffmpeg program; false when that failed.
[[nodiscard]] bool makeMedia(const QStringList& ffmpegArguments, const QString& file);

/// Arguments for pictures of one colour, as ffmpeg names it.
QStringList solidColor(const QString& color, const QString& size, double seconds);
/// Arguments for a tone.
QStringList tone(double seconds);

}  // namespace vantor::test
