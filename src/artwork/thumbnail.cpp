#include "artwork/thumbnail.h"

#include <QBuffer>
#include <QImageReader>

#include "artwork/picture_parts.h"

namespace vantor {
namespace {

// A few megabytes can decode to any number of pixels.
constexpr qint64 maximumPixels = 25'000'000;

}  // namespace

QImage decodeThumbnail(const QByteArray& bytes) {
  const std::optional<PictureParts> parts = pictureParts(bytes);
  if (!parts) return {};
  QBuffer buffer;
  buffer.setData(parts->bytes);
  // One format by its name keeps every other decoder away from the bytes.
  QImageReader reader(&buffer, parts->format);
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
