#include "ui/style/style.h"

#include <algorithm>

#include "ui/style/symbols.h"

namespace vantor {

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
  static const QStringList families = {QStringLiteral("Inter"),
                                       QStringLiteral("Noto Sans"),
                                       QStringLiteral("DejaVu Sans"),
                                       QStringLiteral("Noto Sans Arabic"),
                                       QStringLiteral("Noto Sans CJK SC"),
                                       QStringLiteral("Droid Sans Fallback"),
                                       QStringLiteral("Noto Color Emoji"),
                                       QStringLiteral("sans-serif")};
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
  static const QStringList families = {QStringLiteral("Noto Serif"), QStringLiteral("DejaVu Serif"),
                                       QStringLiteral("serif")};
  QFont font(families);
  font.setPixelSize(size);
  return font;
}

QFont Style::iconFont(int size) {
  // As the system has it: a font that the program loads itself makes Qt look at all fonts again.
  QFont font(QStringLiteral("Material Design Icons"));
  font.setStyleStrategy(QFont::NoFontMerging);
  font.setPixelSize(size);
  return font;
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
