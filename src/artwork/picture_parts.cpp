#include "artwork/picture_parts.h"

#include <QtEndian>
#include <algorithm>

namespace vantor {
namespace {

// Each scan of a progressive JPEG goes over the whole picture, and a scan of nothing takes a few
// bytes; real files have about ten.
constexpr int maximumScans = 32;

/// Goes through a file from its beginning. What would be taken from behind its end is empty.
class Cursor {
 public:
  explicit Cursor(QByteArrayView bytes) : left_(bytes) {}

  bool atEnd() const { return left_.isEmpty(); }
  QByteArrayView left() const { return left_; }
  QByteArrayView at(qsizetype index, qsizetype count) const {
    const QByteArrayView behind = left_.sliced(std::min(index, left_.size()));
    return behind.first(std::min(count, behind.size()));
  }
  int byteAt(qsizetype index) const {
    return index < left_.size() ? static_cast<unsigned char>(left_[index]) : 0;
  }
  quint32 bigEndianAt(qsizetype index) const {
    return left_.size() < index + 4 ? 0 : qFromBigEndian<quint32>(left_.data() + index);
  }
  quint32 littleEndianAt(qsizetype index) const {
    return left_.size() < index + 4 ? 0 : qFromLittleEndian<quint32>(left_.data() + index);
  }
  QByteArrayView take(qsizetype count) {
    const QByteArrayView taken = left_.first(std::min(count, left_.size()));
    left_ = left_.sliced(taken.size());
    return taken;
  }

 private:
  QByteArrayView left_;
};

bool isOneOf(QByteArrayView name, std::initializer_list<const char*> names) {
  return std::any_of(names.begin(), names.end(), [&](const char* one) { return name == one; });
}

QByteArray partsOfPNG(QByteArrayView file) {
  Cursor cursor(file);
  QByteArray parts = cursor.take(8).toByteArray();
  while (!cursor.atEnd()) {
    const QByteArrayView name = cursor.at(4, 4);
    const QByteArrayView chunk = cursor.take(qsizetype{12} + cursor.bigEndianAt(0));
    if (isOneOf(name, {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"})) parts += chunk;
    if (name == "IEND") break;
  }
  return parts;
}

std::optional<QByteArray> partsOfJPEG(QByteArrayView file) {
  constexpr int scan = 0xDA;
  constexpr int exif = 0xE1;  // says which way up
  Cursor cursor(file);
  QByteArray parts = cursor.take(2).toByteArray();
  int scans = 0;
  bool exifSeen = false;
  while (!cursor.atEnd()) {
    // Up to a marker it is the picture itself.
    qsizetype plain = 0;
    const auto isMarker = [&] {
      const int code = cursor.byteAt(plain + 1);
      return cursor.byteAt(plain) == 0xFF && code > 0x01 && code != 0xFF &&
             (code < 0xD0 || code > 0xD8);
    };
    while (plain < cursor.left().size() && !isMarker()) ++plain;
    parts += cursor.take(plain);
    const int code = cursor.byteAt(1);
    constexpr int end = 0xD9;
    const QByteArrayView segment =
        cursor.take(code == end ? 2 : 2 + cursor.byteAt(2) * 256 + cursor.byteAt(3));
    if (code == scan && ++scans > maximumScans) return std::nullopt;
    const bool isExif = code == exif && Cursor(segment).at(4, 4) == "Exif";
    const bool isNote = (code >= 0xE1 && code <= 0xED) || code == 0xEF || code == 0xFE;
    if (!isNote || (isExif && !exifSeen)) parts += segment;
    exifSeen |= isExif;
    if (code == end) break;
  }
  return parts;
}

QByteArray partsOfGIF(QByteArrayView file) {
  Cursor cursor(file);
  QByteArray parts;
  const auto colours = [](int flags) { return flags & 0x80 ? 3 << ((flags & 7) + 1) : 0; };
  const auto takeBlocks = [&cursor] {
    const QByteArrayView whole = cursor.left();
    while (cursor.byteAt(0) > 0) cursor.take(1 + cursor.byteAt(0));
    cursor.take(1);
    return whole.first(whole.size() - cursor.left().size());
  };
  parts += cursor.take(13 + colours(cursor.byteAt(10)));
  while (!cursor.atEnd()) {
    const int kind = cursor.byteAt(0);
    if (kind == '!') {
      constexpr int control = 0xF9;  // says which colour is transparent
      const bool isControl = cursor.byteAt(1) == control;
      const QByteArrayView head = cursor.take(2);
      const QByteArrayView blocks = takeBlocks();
      if (isControl) (parts += head) += blocks;
      continue;
    }
    if (kind == ',') {
      parts += cursor.take(10 + colours(cursor.byteAt(9)) + 1);
      parts += takeBlocks();
    }
    break;
  }
  return parts + ';';
}

QByteArray partsOfWebP(QByteArrayView file) {
  Cursor cursor(file);
  QByteArray parts = cursor.take(12).toByteArray();
  bool frameSeen = false;
  while (!cursor.atEnd()) {
    const QByteArrayView name = cursor.at(0, 4);
    const qsizetype size = cursor.littleEndianAt(4);
    const QByteArrayView chunk = cursor.take(8 + size + size % 2);
    const bool isFrame = name == "ANMF";
    if (isOneOf(name, {"VP8X", "VP8 ", "VP8L", "ALPH", "ANIM"}) || (isFrame && !frameSeen))
      parts += chunk;
    frameSeen |= isFrame;
  }
  qToLittleEndian(static_cast<quint32>(parts.size() - 8), parts.data() + 4);
  // Its flags tell what else there is.
  constexpr char alphaAndAnimation = 0x12;
  if (parts.size() > 20 && parts.mid(12, 4) == "VP8X")
    parts[20] = static_cast<char>(parts[20] & alphaAndAnimation);
  return parts;
}

}  // namespace

std::optional<PictureParts> pictureParts(const QByteArray& file) {
  if (file.startsWith("\x89PNG\r\n\x1A\n")) return PictureParts{"png", partsOfPNG(file)};
  if (file.startsWith("GIF87a") || file.startsWith("GIF89a"))
    return PictureParts{"gif", partsOfGIF(file)};
  if (file.startsWith("RIFF") && file.mid(8, 4) == "WEBP")
    return PictureParts{"webp", partsOfWebP(file)};
  if (file.startsWith("BM")) return PictureParts{"bmp", file};
  if (!file.startsWith("\xFF\xD8\xFF")) return std::nullopt;
  const std::optional<QByteArray> parts = partsOfJPEG(file);
  if (!parts) return std::nullopt;
  return PictureParts{"jpeg", *parts};
}

}  // namespace vantor
