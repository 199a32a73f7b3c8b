#include "ui/entries/assistive.h"

#include <QAccessible>

namespace vantor {

void Assistive::highlight(QQuickItem* row) {
  if (!row) return;
  for (const QAccessible::Event kind : {QAccessible::Focus, QAccessible::Selection}) {
    QAccessibleEvent event(row, kind);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace vantor
