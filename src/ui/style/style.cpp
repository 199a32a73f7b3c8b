#include "ui/style/style.h"

#include <algorithm>
#include <cmath>

#include "ui/style/symbols.h"

namespace vantor {

using namespace Qt::StringLiterals;

Style::Style(QObject* parent) : QObject(parent) {}

void Style::setWishes(double textScale, bool reducedMotion, bool highContrast) {
  textScale_ = textScale;
  reducedMotion_ = reducedMotion;
  highContrast_ = highContrast;
  Q_EMIT wishesChanged();
}

QFont Style::font(int size, int weight, double letterSpacing) {
  // Names of channels come in every writing system; Qt tries hundreds of fonts one after the other
  // for a character that none of these has.
  static const QStringList families = {u"Inter"_s,
                                       u"Noto Sans"_s,
                                       u"DejaVu Sans"_s,
                                       u"Noto Sans Arabic"_s,
                                       u"Noto Sans CJK SC"_s,
                                       u"Droid Sans Fallback"_s,
                                       u"Noto Color Emoji"_s,
                                       u"sans-serif"_s};
  QFont font(families);
  font.setPixelSize(size);
  font.setWeight(static_cast<QFont::Weight>(weight));
  if (letterSpacing != 0) font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing);
  return font;
}

int Style::distantSize(double height) {
  return static_cast<int>(std::max(20.0, height / 24));
}

QFont Style::serifFont(int size) {
  static const QStringList families = {u"Noto Serif"_s, u"DejaVu Serif"_s, u"serif"_s};
  QFont font(families);
  font.setPixelSize(size);
  return font;
}

QFont Style::iconFont() {
  // As the system has it: a font that the program loads itself makes Qt look at all fonts again.
  QFont font(u"Material Design Icons"_s);
  font.setStyleStrategy(QFont::NoFontMerging);
  font.setPixelSize(20);
  return font;
}

QImage Style::brand(double pixelRatio) {
  const int zoom = std::clamp(static_cast<int>(std::ceil(pixelRatio)), 1, 3);
  return QImage(u":/vantor/style/brand%1.png"_s.arg(zoom));
}

QString Style::glyph(const QString& symbol) {
  return vantor::glyph(symbol);
}

QColor Style::faded(const QColor& color, double opacity) {
  QColor result = color;
  result.setAlphaF(static_cast<float>(opacity));
  return result;
}

}  // namespace vantor
