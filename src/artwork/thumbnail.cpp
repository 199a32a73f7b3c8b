#include "artwork/thumbnail.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include "artwork/picture_parts.h"

namespace vantor {

QSize decodedSize(const QImageReader& reader, const QByteArray& file) {
  QSize size = reader.size();
  if (size.isEmpty()) return {};
  // Of a GIF file Qt tells the size of its first frame, and decodes the whole screen.
  if (reader.format() == "gif" && file.size() >= 10)
    size = size.expandedTo({qFromLittleEndian<quint16>(file.constData() + 6),
                            qFromLittleEndian<quint16>(file.constData() + 8)});
  return qint64{size.width()} * size.height() > mostPixels ? QSize() : size;
}

QImage decodeThumbnail(const QByteArray& bytes) {
  const std::optional<PictureParts> parts = pictureParts(bytes);
  if (!parts) return {};
  QBuffer buffer;
  buffer.setData(parts->bytes);
  // One format by its name keeps every other decoder away from the bytes.
  QImageReader reader(&buffer, parts->format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const QSize size = decodedSize(reader, parts->bytes);
  if (size.isEmpty()) return {};
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
