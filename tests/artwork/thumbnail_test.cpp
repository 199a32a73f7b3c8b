#include "artwork/thumbnail.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>
#include <ctime>

#include <sys/resource.h>
#include <zlib.h>

namespace vantor::test {
namespace {

/// The left half red, the right half blue.
QImage twoHalves(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::blue);
  QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
  return image;
}

QByteArray encoded(const QImage& image, const char* format,
                   QImageIOHandler::Transformations turn = {}, bool inScans = false) {
  QBuffer buffer;
  QImageWriter writer(&buffer, format);
  writer.setTransformation(turn);
  writer.setProgressiveScanWrite(inScans);
  EXPECT_TRUE(writer.write(image)) << format;
  return buffer.data();
}

QByteArray bigEndian(std::uint32_t number) {
  number = qToBigEndian(number);
  return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
}

QByteArray chunk(const QByteArray& typeAndData) {
  const auto size = static_cast<std::uint32_t>(typeAndData.size());
  const auto sum = crc32(0, reinterpret_cast<const Bytef*>(typeAndData.constData()), size);
  return bigEndian(size - 4) + typeAndData + bigEndian(static_cast<std::uint32_t>(sum));
}

// The first and the second colour of the files below.
const QByteArray redPixel("\x2C\0\0\0\0\1\0\1\0\0\2\2\x44\1\0", 15);
const QByteArray bluePixel("\x2C\0\0\0\0\1\0\1\0\0\2\2\x4C\1\0", 15);

/// A GIF with a screen of that size and these blocks.
QByteArray gif(quint16 width, quint16 height, const QByteArray& blocks) {
  const quint16 size[] = {qToLittleEndian(width), qToLittleEndian(height)};
  return "GIF89a" + QByteArray(reinterpret_cast<const char*>(size), 4) +
         QByteArray("\x80\0\0\xFF\0\0\0\0\xFF", 9) + blocks + ';';
}

/// A PNG that declares a size and then holds `pixels`, compressed.
QByteArray declaredPNG(std::uint32_t width, std::uint32_t height, const QByteArray& pixels) {
  return QByteArray("\x89PNG\r\n\x1A\n") +
         chunk("IHDR" + bigEndian(width) + bigEndian(height) +
               QByteArray("\x08\x02\x00\x00\x00", 5)) +
         chunk("IDAT" + qCompress(pixels, 9).mid(4)) + chunk("IEND");
}

TEST(Thumbnail, FitsTheBoundAndKeepsTheShape) {
  const std::pair<QSize, QSize> cases[] = {{{400, 200}, {360, 180}}, {{200, 800}, {90, 360}},
                                           {{360, 360}, {360, 360}}, {{64, 48}, {64, 48}},
                                           {{3000, 1}, {360, 1}},    {{1000, 1500}, {240, 360}}};
  for (const char* format : {"png", "jpeg", "bmp", "webp"}) {
    for (const auto& [original, fitted] : cases) {
      const QImage thumbnail = decodeThumbnail(encoded(twoHalves(original), format));
      ASSERT_EQ(thumbnail.size(), fitted) << format << original.width();
      const int middle = thumbnail.height() / 2;
      EXPECT_GT(thumbnail.pixelColor(thumbnail.width() / 10, middle).red(), 200) << format;
      EXPECT_GT(thumbnail.pixelColor(thumbnail.width() * 9 / 10, middle).blue(), 200) << format;
    }
  }
}

TEST(Thumbnail, IsUprightTransparentAndTheFirstFrameOfAnAnimation) {
  const QImage turned = decodeThumbnail(
      encoded(twoHalves({800, 400}), "jpeg", QImageIOHandler::TransformationRotate90));
  ASSERT_EQ(turned.size(), QSize(180, 360));
  EXPECT_GT(turned.pixelColor(90, 20).red(), 200);
  EXPECT_GT(turned.pixelColor(90, 340).blue(), 200);

  QImage image(500, 500, QImage::Format_ARGB32);
  image.fill(QColor(255, 0, 0, 128));
  for (const char* format : {"png", "webp"}) {
    const QImage thumbnail = decodeThumbnail(encoded(image, format));
    ASSERT_TRUE(thumbnail.hasAlphaChannel()) << format;
    EXPECT_NEAR(thumbnail.pixelColor(100, 100).alpha(), 128, 2);
  }

  const QImage first = decodeThumbnail(gif(1, 1, redPixel + bluePixel));
  ASSERT_EQ(first.size(), QSize(1, 1));
  EXPECT_EQ(first.pixelColor(0, 0), QColor(Qt::red));
}

TEST(Thumbnail, RefusesPicturesOfTooManyPixels) {
  const QByteArray oneRow = QByteArray(3 * 5'000 + 1, '\0');
  EXPECT_EQ(decodeThumbnail(declaredPNG(5'000, 5'000, oneRow.repeated(5'000))).size(),
            QSize(360, 360));
  QByteArray bitmap = encoded(twoHalves({8, 8}), "bmp");
  bitmap.replace(18, 8, QByteArray("\x30\x75\0\0\x30\x75\0\0", 8));  // 30,000 by 30,000
  for (const QByteArray& tooLarge :
       {declaredPNG(5'000, 5'001, oneRow.repeated(5'001)), declaredPNG(30'000, 30'000, oneRow),
        declaredPNG(0x7FFFFFFF, 0x7FFFFFFF, oneRow), bitmap,
        gif(0xFFFF, 0xFFFF, QByteArray(redPixel).replace(5, 4, "\xFF\xFF\xFF\xFF")),
        gif(6'000, 5'000, redPixel)})
    EXPECT_TRUE(decodeThumbnail(tooLarge).isNull()) << tooLarge.left(30).toHex().toStdString();
}

TEST(Thumbnail, RefusesAJPEGOfEndlessScans) {
  const QByteArray picture = encoded(twoHalves({80, 40}), "jpeg", {}, true);
  const QByteArray end = picture.right(2);
  const QByteArray scan = picture.mid(picture.lastIndexOf("\xFF\xDA")).chopped(2);
  EXPECT_FALSE(decodeThumbnail(picture.chopped(2) + scan.repeated(10) + end).isNull());
  EXPECT_TRUE(decodeThumbnail(picture.chopped(2) + scan.repeated(64) + end).isNull());
}

/// One chunk of a RIFF file.
QByteArray riffChunk(const QByteArray& name, const QByteArray& data) {
  const auto size = qToLittleEndian(static_cast<quint32>(data.size()));
  return name + QByteArray(reinterpret_cast<const char*>(&size), 4) + data +
         QByteArray(data.size() % 2, '\0');
}

TEST(Thumbnail, HandsTheDecoderOnlyWhatThePictureNeeds) {
  const QImage image = twoHalves({64, 48});
  const QByteArray png = encoded(image, "png");
  const QByteArray jpeg = encoded(image, "jpeg");
  const QByteArray turned = encoded(image, "jpeg", QImageIOHandler::TransformationRotate90);
  const QByteArray webp = encoded(image, "webp").mid(12);
  // Each becomes almost eight megabytes.
  const QByteArray text = qCompress(QByteArray(7'900'000, 'a'), 9).mid(4);
  const QByteArray texts =
      (chunk("zTXt" + QByteArray("k\0\0", 3) + text) +
       chunk("iTXt" + QByteArray("k\0\1\0\0\0", 6) + text) +
       chunk("iCCP" + QByteArray("k\0\0", 3) + text) + chunk("tEXt" + QByteArray("k\0v", 3)))
          .repeated(16);
  // The decoder looks for its place from the beginning, each time.
  const QByteArray comments = QByteArray("\xFF\xFE\0\2", 4).repeated(60'000);
  const QByteArray profiles = QByteArray("\xFF\xE2\0\2", 4).repeated(60'000);
  const auto webpFile = [](const QByteArray& chunks) { return riffChunk("RIFF", "WEBP" + chunks); };
  const QByteArray size("\x3F\0\0\x2F\0\0", 6);
  const QByteArray frame =
      riffChunk("ANMF", QByteArray(6, '\0') + size + QByteArray(4, '\0') + webp);
  const std::tuple<const char*, QByteArray, QByteArray> cases[] = {
      {"texts before a PNG's pixels", png, png.left(33) + texts + png.mid(33)},
      {"texts behind them", png, png.chopped(12) + texts + png.right(12)},
      {"a JPEG's comments", jpeg, jpeg.left(2) + comments + jpeg.mid(2)},
      {"its other notes", turned, turned.left(2) + profiles + turned.mid(2) + comments},
      {"a GIF's comments", gif(1, 1, redPixel),
       gif(1, 1, QByteArray("!\xFE\1a\0", 5).repeated(100'000) + redPixel)},
      {"a WebP's notes", webpFile(webp),
       webpFile(riffChunk("VP8X", QByteArray("\x2C\0\0\0", 4) + size) +
                riffChunk("ICCP", QByteArray(100'000, '\0')) + webp +
                riffChunk("EXIF", "a").repeated(100'000))},
      {"its animation", webpFile(webp),
       webpFile(riffChunk("VP8X", QByteArray("\2\0\0\0", 4) + size) +
                riffChunk("ANIM", QByteArray(6, '\0')) + frame.repeated(1000))},
  };
  const QByteArray ordinary = encoded(twoHalves({3000, 2000}), "jpeg");
  const auto processorTime = [](const QByteArray& bytes) {
    const std::clock_t before = std::clock();
    decodeThumbnail(bytes);
    return std::clock() - before;
  };
  for (const auto& [what, harmless, hostile] : cases) {
    SCOPED_TRACE(what);
    const QImage expected = decodeThumbnail(harmless);
    ASSERT_FALSE(expected.isNull());
    const QImage thumbnail = decodeThumbnail(hostile);
    EXPECT_EQ(thumbnail.convertToFormat(expected.format()), expected);
    EXPECT_TRUE(thumbnail.textKeys().isEmpty());
    EXPECT_FALSE(thumbnail.colorSpace().isValid() && !expected.colorSpace().isValid());
    EXPECT_LT(processorTime(hostile), 10 * processorTime(ordinary));
  }
  rusage used;
  getrusage(RUSAGE_SELF, &used);
  EXPECT_LT(used.ru_maxrss, 500'000) << "kilobytes, the decoders themselves included";
}

TEST(Thumbnail, IsNullForWhatIsNoPicture) {
  const QByteArray picture = encoded(twoHalves({400, 400}), "png");
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("<html><body>404</body></html>"),
        QByteArray(R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)"),
        QByteArray("/* XPM */ static char*x[]={\"1 1 1 1\",\"a c red\",\"a\"};"),
        QByteArray("P6 1 1 255 abc"), QByteArray("BM"), QByteArray("GIF89a"),
        QByteArray("\xFF\xD8\xFF"), picture.left(8), picture.left(30), picture.mid(1),
        QByteArray("\x89PNG\r\n\x1A\n") + QByteArray(1000, '\0')})
    EXPECT_TRUE(decodeThumbnail(bytes).isNull()) << bytes.left(20).toStdString();
}

}  // namespace
}  // namespace vantor::test
