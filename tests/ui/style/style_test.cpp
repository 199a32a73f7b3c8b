#include "ui/style/style.h"

#include <gtest/gtest.h>

#include <QRawFont>

#include "ui/style/symbols.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

TEST(Symbols, EveryOneThatAScreenNamesHasAGlyphInTheIconFont) {
  const Style style;
  const QRawFont font = QRawFont::fromFont(style.iconFont(20));
  for (const char* name : {"arrow.clockwise",
                           "arrow.down.right.and.arrow.up.left",
                           "arrow.up.left.and.arrow.down.right",
                           "bookmark",
                           "bookmark.fill",
                           "captions.bubble",
                           "chevron.right",
                           "film",
                           "folder",
                           "gearshape",
                           "magnifyingglass",
                           "menu",
                           "pause.fill",
                           "play.circle",
                           "play.fill",
                           "play.rectangle",
                           "play.tv",
                           "rectangle.stack",
                           "speaker.wave.2",
                           "speedometer",
                           "stop.fill",
                           "tv",
                           "waveform",
                           "window.close",
                           "window.maximize",
                           "window.minimize",
                           "window.restore",
                           "xmark",
                           "xmark.circle.fill"}) {
    const QString text = glyph(QString::fromLatin1(name));
    ASSERT_EQ(text.size(), 1) << name;
    EXPECT_TRUE(font.supportsCharacter(text.front())) << name;
  }
  EXPECT_EQ(glyph(u"no such symbol"), QString());
}

}  // namespace
}  // namespace vantor
