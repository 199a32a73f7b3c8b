#include "ui/style/symbols.h"

#include <algorithm>
#include <array>

namespace vantor {
namespace {

struct Symbol {
  QLatin1String name;
  char16_t glyph;
};

constexpr std::array symbols = {
    Symbol{QLatin1String("arrow.clockwise"), 0xF450},
    Symbol{QLatin1String("arrow.down.right.and.arrow.up.left"), 0xF615},
    Symbol{QLatin1String("arrow.up.left.and.arrow.down.right"), 0xF616},
    Symbol{QLatin1String("bookmark"), 0xF0C3},
    Symbol{QLatin1String("bookmark.fill"), 0xF0C0},
    Symbol{QLatin1String("captions.bubble"), 0xF36A},
    Symbol{QLatin1String("checkmark"), 0xF12C},
    Symbol{QLatin1String("chevron.down"), 0xF140},
    Symbol{QLatin1String("chevron.left"), 0xF141},
    Symbol{QLatin1String("chevron.right"), 0xF142},
    Symbol{QLatin1String("film"), 0xF230},
    Symbol{QLatin1String("folder"), 0xF256},
    Symbol{QLatin1String("fullscreen"), 0xF293},
    Symbol{QLatin1String("fullscreen.exit"), 0xF294},
    Symbol{QLatin1String("gearshape"), 0xF493},
    Symbol{QLatin1String("hifispeaker"), 0xF4C3},
    Symbol{QLatin1String("list"), 0xF279},
    Symbol{QLatin1String("magnifyingglass"), 0xF349},
    Symbol{QLatin1String("menu"), 0xF35C},
    Symbol{QLatin1String("pause.fill"), 0xF3E4},
    Symbol{QLatin1String("picture.in.picture"), 0xF03E},
    Symbol{QLatin1String("play.circle"), 0xF40D},
    Symbol{QLatin1String("play.fill"), 0xF40A},
    Symbol{QLatin1String("play.rectangle"), 0xF40B},
    Symbol{QLatin1String("play.tv"), 0xF503},
    Symbol{QLatin1String("rectangle.stack"), 0xF137},
    Symbol{QLatin1String("speaker.wave.2"), 0xF580},
    Symbol{QLatin1String("speedometer"), 0xF4C5},
    Symbol{QLatin1String("stop.fill"), 0xF4DB},
    Symbol{QLatin1String("timer"), 0xF51B},
    Symbol{QLatin1String("tv"), 0xF502},
    Symbol{QLatin1String("waveform"), 0xF430},
    Symbol{QLatin1String("window.close"), 0xF5AD},
    Symbol{QLatin1String("window.maximize"), 0xF5AF},
    Symbol{QLatin1String("window.minimize"), 0xF5B0},
    Symbol{QLatin1String("window.restore"), 0xF5B2},
    Symbol{QLatin1String("xmark"), 0xF156},
    Symbol{QLatin1String("xmark.circle.fill"), 0xF159},
};

}  // namespace

QString glyph(QStringView symbol) {
  const auto found = std::find_if(symbols.begin(), symbols.end(),
                                  [&](const Symbol& known) { return known.name == symbol; });
  return found == symbols.end() ? QString() : QString(QChar(found->glyph));
}

}  // namespace vantor
