#include "desktop/media_files.h"

namespace vantor {

using namespace Qt::StringLiterals;

QStringList mediaTypes() {
  return {u"application/mxf"_s, u"application/ogg"_s,  u"application/vnd.ms-asf"_s,
          u"audio/aac"_s,       u"audio/ac3"_s,        u"audio/flac"_s,
          u"audio/mp4"_s,       u"audio/mpeg"_s,       u"audio/ogg"_s,
          u"audio/vnd.wave"_s,  u"audio/x-matroska"_s, u"audio/x-ms-wma"_s,
          u"audio/x-wav"_s,     u"video/3gpp"_s,       u"video/mp2t"_s,
          u"video/mp4"_s,       u"video/mpeg"_s,       u"video/ogg"_s,
          u"video/quicktime"_s, u"video/vnd.avi"_s,    u"video/webm"_s,
          u"video/x-flv"_s,     u"video/x-matroska"_s, u"video/x-ms-wmv"_s,
          u"video/x-msvideo"_s};
}

std::optional<QUrl> localFile(const QString& uri) {
  const QUrl file(uri, QUrl::StrictMode);
  // What the system's calls would take for a shorter name.
  if (!file.isLocalFile() || file.toLocalFile().contains(QChar::Null)) return {};
  return file;
}

}  // namespace vantor
