#include <QBuffer>
#include <QImageReader>
#include <array>

#include "artwork/picture_parts.h"
#include "artwork/thumbnail.h"
#include "cost.h"
#include "input.h"

using namespace vantor;

namespace {

constexpr qsizetype bytesOfPixel = 4;

/// Decoders never see what has no known beginning; such inputs get one.
QByteArray withKnownBeginning(QByteArray bytes) {
  static const std::array<QByteArray, 5> beginnings = {
      "\x89PNG\r\n\x1A\n", "\xFF\xD8\xFF", "GIF89a", QByteArray("RIFF\xFF\0\0\0WEBPVP8", 15), "BM"};
  for (const QByteArray& beginning : beginnings)
    if (bytes.startsWith(beginning.left(4))) return bytes;
  if (bytes.isEmpty()) return bytes;
  const QByteArray& beginning =
      beginnings[static_cast<unsigned char>(bytes[0]) % beginnings.size()];
  return bytes.replace(0, beginning.size(), beginning);
}

/// What the picture says that it becomes, as far as pictures of that size are decoded.
qsizetype decodedBytes(const QByteArray& bytes) {
  const std::optional<PictureParts> parts = pictureParts(bytes);
  if (!parts) return 0;
  QBuffer buffer;
  buffer.setData(parts->bytes);
  QImageReader reader(&buffer, parts->format);
  const QSize size = decodedSize(reader, parts->bytes);
  return size.isEmpty() ? 0 : bytesOfPixel * size.width() * size.height();
}

QByteArray plainPicture(qsizetype size) {
  const qsizetype pixels = std::clamp<qsizetype>(size / bytesOfPixel, 256, mostPixels);
  QImage image(256, static_cast<int>(pixels / 256), QImage::Format_RGB32);
  image.fill(Qt::red);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "bmp");
  return buffer.data();
}

}  // namespace

// The leak check crashes now and then on the decoders that are loaded while the target runs.
extern "C" int __lsan_is_turned_off() {
  return 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(plainPicture, [](const QByteArray& bytes) {
    const QImage image = decodeThumbnail(bytes);
    mustHold(image.width() <= thumbnailSide && image.height() <= thumbnailSide);
  });
  const QByteArray bytes = withKnownBeginning(inputBytes(data, size));
  const qsizetype decoded = decodedBytes(bytes);
  const qsizetype memory = yardstick.measure(bytes, decoded);
  mustHold(memory <= 4'194'304 + 16 * bytes.size() + 4 * decoded);
  return 0;
}
