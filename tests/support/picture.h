#pragma once

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <cstdlib>

namespace vantor::test {

/// A PNG file of one colour.
inline QByteArray pictureOf(QColor color, QSize size = {40, 20}) {
  QBuffer buffer;
  QImage image(size, QImage::Format_RGB32);
  image.fill(color);
  image.save(&buffer, "PNG");
  return buffer.data();
}

/// Whether red, green and blue each differ by so much at most.
inline testing::AssertionResult isNear(const QColor& seen, const QColor& meant, int most = 6) {
  if (std::abs(seen.red() - meant.red()) <= most &&
      std::abs(seen.green() - meant.green()) <= most &&
      std::abs(seen.blue() - meant.blue()) <= most)
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << seen.name().toStdString();
}

}  // namespace vantor::test
