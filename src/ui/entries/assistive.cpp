#include "ui/entries/assistive.h"

#include <QAccessible>
#include <QLocale>

namespace vantor {

void Assistive::highlight(QQuickItem* row) {
  if (!row) return;
  for (const QAccessible::Event kind : {QAccessible::Focus, QAccessible::Selection}) {
    QAccessibleEvent event(row, kind);
    QAccessible::updateAccessibility(&event);
  }
}

QString Assistive::place(int index, int count) {
  const QLocale locale;
  return tr("%1 of %2").arg(locale.toString(index + 1), locale.toString(count));
}

}  // namespace vantor
