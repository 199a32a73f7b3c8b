#include "ui/style/style.h"

#include <gtest/gtest.h>

#include <QRawFont>

#include "ui/style/symbols.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

TEST(Symbols, EveryOneThatAScreenNamesHasAGlyphInTheIconFont) {
  const QRawFont font = QRawFont::fromFont(Style::iconFont(20));
  const QString named =
      u"arrow.clockwise arrow.down.right.and.arrow.up.left arrow.up.left.and.arrow.down.right "
      "bookmark bookmark.fill captions.bubble checkmark chevron.down chevron.right film folder "
      "gearshape magnifyingglass menu pause.fill play.circle play.fill play.rectangle play.tv "
      "rectangle.stack speaker.wave.2 speedometer stop.fill tv waveform window.close "
      "window.maximize window.minimize window.restore xmark xmark.circle.fill"_s;
  for (const QString& name : named.split(u' ')) {
    const QString text = glyph(name);
    ASSERT_EQ(text.size(), 1) << name.toStdString();
    EXPECT_TRUE(font.supportsCharacter(text.front())) << name.toStdString();
  }
  EXPECT_EQ(glyph(u"no such symbol"), QString());
}

}  // namespace
}  // namespace vantor::test
