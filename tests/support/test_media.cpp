#include "support/test_media.h"

#include <QProcess>

namespace vantor::test {

using namespace Qt::StringLiterals;

bool makeMedia(const QStringList& ffmpegArguments, const QString& file) {
  QStringList arguments{u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s};
  arguments += ffmpegArguments;
  arguments += file;
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(u"ffmpeg"_s, arguments);
  return process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit &&
         process.exitCode() == 0;
}

QStringList solidColor(const QString& color, const QString& size, double seconds) {
  return {u"-f"_s, u"lavfi"_s, u"-i"_s,
          u"color=c=%1:s=%2:r=25:d=%3"_s.arg(color, size).arg(seconds)};
}

QStringList tone(double seconds) {
  return {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=frequency=440:duration=%1"_s.arg(seconds)};
}

}  // namespace vantor::test
