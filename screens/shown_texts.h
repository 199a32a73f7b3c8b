#pragma once

#include <QStringList>
#include <functional>

class QQuickItem;
class QQuickWindow;

namespace vantor::screens {

/// Calls `look` for the item and what it holds, as far as they are shown.
void forEachShown(QQuickItem* item, const std::function<void(QQuickItem*)>& look);
/// The texts of the program, as `PseudoTranslator` has them, that the window shows only in part.
QStringList cutTexts(const QQuickWindow& window);
/// The words outside of the brackets of `PseudoTranslator` in what the window shows, and in what it
/// says to assistive programs: names and texts that are not the program's own, or were forgotten.
QStringList untranslatedTexts(const QQuickWindow& window);

}  // namespace vantor::screens
