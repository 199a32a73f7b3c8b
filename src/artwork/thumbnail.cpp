#include "artwork/thumbnail.h"

#include <QBuffer>
#include <QImageReader>

namespace vantor {
namespace {

// A few megabytes can decode to any number of pixels.
constexpr qint64 maximumPixels = 25'000'000;
// Each scan of a progressive JPEG goes over the whole picture, and a scan of nothing takes a few
// bytes; real files have about ten.
constexpr int maximumScans = 64;

/// The format that the first bytes tell, as Qt names it; null for all that is not accepted. Asking
/// for one format by its name keeps every other decoder away from the bytes.
const char* formatOf(const QByteArray& bytes) {
  if (bytes.startsWith("\x89PNG\r\n\x1A\n")) return "png";
  if (bytes.startsWith("\xFF\xD8\xFF")) return "jpeg";
  if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a")) return "gif";
  if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP") return "webp";
  if (bytes.startsWith("BM")) return "bmp";
  return nullptr;
}

}  // namespace

QImage decodeThumbnail(const QByteArray& bytes) {
  const char* const format = formatOf(bytes);
  if (!format) return {};
  if (bytes.startsWith("\xFF\xD8") && bytes.count("\xFF\xDA") > maximumScans) return {};
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isEmpty() || qint64{size.width()} * size.height() > maximumPixels) return {};
  const QSize thumbnail(thumbnailSide, thumbnailSide);
  if (size.width() > thumbnailSide || size.height() > thumbnailSide)
    reader.setScaledSize(size.scaled(thumbnail, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  QImage image = reader.read();
  if (image.isNull()) return {};
  // A header may have told another size than its picture has.
  if (image.width() > thumbnailSide || image.height() > thumbnailSide)
    image = image.scaled(thumbnail, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                          : QImage::Format_RGB32);
  return image;
}

}  // namespace vantor
