#include "support/test_media.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace vantor::test {

using namespace Qt::StringLiterals;

bool makeMedia(const QString& ffmpegArguments, const QString& file) {
  QStringList arguments{u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s};
  arguments += ffmpegArguments.split(u' ', Qt::SkipEmptyParts);
  arguments += file;
  return QProcess::execute(u"ffmpeg"_s, arguments) == 0;
}

QString solidColor(const QString& color, const QString& size, double seconds) {
  return u" -f lavfi -i color=c=%1:s=%2:r=25:d=%3"_s.arg(color, size).arg(seconds);
}

QString tone(double seconds) {
  return u" -f lavfi -i sine=frequency=440:duration=%1"_s.arg(seconds);
}

Probed probe(const QString& file) {
  QProcess process;
  process.start(u"ffprobe"_s, {u"-v"_s, u"quiet"_s, u"-of"_s, u"json"_s, u"-show_streams"_s,
                               u"-show_format"_s, file});
  process.waitForFinished(60'000);
  const QJsonObject found = QJsonDocument::fromJson(process.readAll()).object();
  Probed probed;
  for (const QJsonValue stream : found[u"streams"_s].toArray()) {
    const QString codec = stream[u"codec_name"_s].toString();
    if (stream[u"codec_type"_s] == u"audio"_s) probed.sounds.append(codec);
    if (stream[u"codec_type"_s] != u"video"_s) continue;
    probed.pictures.append(
        u"%1 %2x%3"_s.arg(codec).arg(stream[u"width"_s].toInt()).arg(stream[u"height"_s].toInt()));
  }
  probed.seconds = found[u"format"_s][u"duration"_s].toString().toDouble();
  return probed;
}

}  // namespace vantor::test
