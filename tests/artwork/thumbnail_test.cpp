#include "artwork/thumbnail.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>

namespace vantor {
namespace {

/// The left half red, the right half blue.
QImage twoHalves(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::blue);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width / 2; ++x) image.setPixelColor(x, y, Qt::red);
  return image;
}

QByteArray encoded(const QImage& image, const char* format,
                   QImageIOHandler::Transformations turn = {}) {
  QBuffer buffer;
  QImageWriter writer(&buffer, format);
  writer.setTransformation(turn);
  EXPECT_TRUE(writer.write(image)) << format;
  return buffer.data();
}

template <class Number>
QByteArray bigEndian(Number number) {
  number = qToBigEndian(number);
  return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
}

QByteArray chunk(const QByteArray& typeAndData) {
  std::uint32_t sum = 0xFFFFFFFF;  // CRC-32
  for (const char byte : typeAndData) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
  }
  return bigEndian(static_cast<std::uint32_t>(typeAndData.size() - 4)) + typeAndData +
         bigEndian(~sum);
}

/// A PNG that declares a size and then holds `pixels`, compressed.
QByteArray declaredPNG(std::uint32_t width, std::uint32_t height, const QByteArray& pixels) {
  return QByteArray("\x89PNG\r\n\x1A\n") +
         chunk("IHDR" + bigEndian(width) + bigEndian(height) +
               QByteArray("\x08\x02\x00\x00\x00", 5)) +
         chunk("IDAT" + qCompress(pixels, 9).mid(4)) + chunk("IEND");
}

TEST(Thumbnail, FitsTheBoundAndKeepsTheShape) {
  struct Case {
    QSize original;
    QSize thumbnail;
  };
  const Case cases[] = {{{400, 200}, {360, 180}}, {{200, 800}, {90, 360}},
                        {{360, 360}, {360, 360}}, {{64, 48}, {64, 48}},
                        {{3000, 1}, {360, 1}},    {{1000, 1500}, {240, 360}}};
  for (const char* format : {"png", "jpeg", "bmp", "webp"}) {
    for (const Case& example : cases) {
      const QImage thumbnail = decodeThumbnail(
          encoded(twoHalves(example.original.width(), example.original.height()), format));
      ASSERT_EQ(thumbnail.size(), example.thumbnail) << format << example.original.width();
      const int middle = thumbnail.height() / 2;
      EXPECT_GT(thumbnail.pixelColor(thumbnail.width() / 10, middle).red(), 200) << format;
      EXPECT_GT(thumbnail.pixelColor(thumbnail.width() * 9 / 10, middle).blue(), 200) << format;
    }
  }
}

TEST(Thumbnail, IsUpright) {
  const QImage turned = decodeThumbnail(
      encoded(twoHalves(800, 400), "jpeg", QImageIOHandler::TransformationRotate90));
  ASSERT_EQ(turned.size(), QSize(180, 360));
  EXPECT_GT(turned.pixelColor(90, 20).red(), 200);
  EXPECT_GT(turned.pixelColor(90, 340).blue(), 200);
}

TEST(Thumbnail, KeepsTransparency) {
  QImage image(500, 500, QImage::Format_ARGB32);
  image.fill(QColor(255, 0, 0, 128));
  for (const char* format : {"png", "webp"}) {
    const QImage thumbnail = decodeThumbnail(encoded(image, format));
    ASSERT_TRUE(thumbnail.hasAlphaChannel()) << format;
    EXPECT_NEAR(thumbnail.pixelColor(100, 100).alpha(), 128, 2);
  }
}

TEST(Thumbnail, IsTheFirstFrameOfAnAnimation) {
  const QByteArray red("\x2C\0\0\0\0\1\0\1\0\0\2\2\x44\1\0", 15);  // one pixel of the first colour
  const QByteArray blue("\x2C\0\0\0\0\1\0\1\0\0\2\2\x4C\1\0", 15);
  const QByteArray animation =
      QByteArray("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\xFF", 19) + red + blue + ";";
  const QImage thumbnail = decodeThumbnail(animation);
  ASSERT_EQ(thumbnail.size(), QSize(1, 1));
  EXPECT_EQ(thumbnail.pixelColor(0, 0), QColor(Qt::red));
}

TEST(Thumbnail, RefusesPicturesOfTooManyPixels) {
  const QByteArray oneRow = QByteArray(3 * 5'000 + 1, '\0');
  EXPECT_EQ(decodeThumbnail(declaredPNG(5'000, 5'000, oneRow.repeated(5'000))).size(),
            QSize(360, 360));
  EXPECT_TRUE(decodeThumbnail(declaredPNG(5'000, 5'001, oneRow.repeated(5'001))).isNull());
  EXPECT_TRUE(decodeThumbnail(declaredPNG(30'000, 30'000, oneRow)).isNull());
  EXPECT_TRUE(decodeThumbnail(declaredPNG(0x7FFFFFFF, 0x7FFFFFFF, oneRow)).isNull());
  EXPECT_TRUE(decodeThumbnail(QByteArray("GIF89a\xFF\xFF\xFF\xFF\x80\0\0\xFF\0\0\0\0\xFF"
                                         "\x2C\0\0\0\0\xFF\xFF\xFF\xFF\0\2\2\x44\1\0;",
                                         35))
                  .isNull());
  QByteArray bitmap = encoded(twoHalves(8, 8), "bmp");
  bitmap.replace(18, 8, QByteArray("\x30\x75\0\0\x30\x75\0\0", 8));  // 30,000 by 30,000
  EXPECT_TRUE(decodeThumbnail(bitmap).isNull());
}

TEST(Thumbnail, RefusesAJPEGOfEndlessScans) {
  const QByteArray picture = encoded(twoHalves(80, 40), "jpeg");
  const QByteArray scan("\xFF\xDA");
  EXPECT_FALSE(decodeThumbnail(picture + scan.repeated(10)).isNull());
  EXPECT_TRUE(decodeThumbnail(picture + scan.repeated(64)).isNull());
}

TEST(Thumbnail, IsNullForWhatIsNoPicture) {
  const QByteArray picture = encoded(twoHalves(400, 400), "png");
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
}  // namespace vantor
