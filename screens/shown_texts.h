#pragma once

#include <QStringList>

class QQuickWindow;

namespace vantor::screens {

/// The texts of the program, as `PseudoTranslator` has them, that the window shows only in part.
QStringList cutTexts(const QQuickWindow& window);
/// The words outside of the brackets of `PseudoTranslator` in what the window shows, and in what it
/// says to assistive programs: names and texts that are not the program's own, or were forgotten.
QStringList untranslatedTexts(const QQuickWindow& window);

}  // namespace vantor::screens
