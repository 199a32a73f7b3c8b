#include "shown_texts.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

bool isCut(const QQuickItem* text) {
  constexpr double rounding = 1.0;
  return text->property("truncated").toBool() ||
         text->property("contentWidth").toDouble() > text->width() + rounding;
}

QString outsideBrackets(QString text) {
  static const QRegularExpression innermost(u"[⟦\u2060][^⟦⟧\u200B\u2060]*[⟧\u200B]"_s);
  while (text.contains(innermost)) text.remove(innermost);
  // Names of products stay what they are.
  return text.remove(u"Vantor Player"_s).remove(u"Vantor TV"_s);
}

}  // namespace

void forEachShown(QQuickItem* item, const std::function<void(QQuickItem*)>& look) {
  if (!item->isVisible() || item->opacity() == 0) return;
  look(item);
  for (QQuickItem* child : item->childItems()) forEachShown(child, look);
}

QStringList cutTexts(const QQuickWindow& window) {
  QStringList cut;
  forEachShown(window.contentItem(), [&](QQuickItem* item) {
    const QString text = item->property("text").toString();
    if (item->inherits("QQuickText") && text.startsWith(u'⟦') && isCut(item)) cut.append(text);
  });
  return cut;
}

QStringList untranslatedTexts(const QQuickWindow& window) {
  static const QRegularExpression word(u"\\p{L}{2}"_s);
  QStringList found;
  const auto check = [&](const QString& text) {
    if (outsideBrackets(text).contains(word) && !found.contains(text)) found.append(text);
  };
  forEachShown(window.contentItem(), [&](QQuickItem* item) {
    if (item->inherits("QQuickText")) check(item->property("text").toString());
    check(item->property("placeholderText").toString());
    auto* shown = QAccessible::queryAccessibleInterface(item);
    if (!shown) return;
    check(shown->text(QAccessible::Name));
    check(shown->text(QAccessible::Description));
  });
  return found;
}

}  // namespace vantor::screens
