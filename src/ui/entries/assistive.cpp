#include "ui/entries/assistive.h"

#include <QAccessible>
#include <QLocale>
#include <QTimer>

namespace vantor {

void Assistive::highlight(QQuickItem* row) {
  if (!row) return;
  if (!row_) QTimer::singleShot(0, this, &Assistive::tell);
  row_ = row;
}

void Assistive::tell() {
  if (!row_) return;
  for (const QAccessible::Event kind : {QAccessible::Focus, QAccessible::Selection}) {
    QAccessibleEvent event(row_, kind);
    QAccessible::updateAccessibility(&event);
  }
  row_.clear();
}

QString Assistive::place(int index, int count) {
  const QLocale locale;
  return tr("%1 of %2").arg(locale.toString(index + 1), locale.toString(count));
}

QString Assistive::placeOfEntry(int index, int count, bool isPlaying, bool isFavorite) {
  QString text = place(index, count);
  if (isPlaying) text = tr("%1, playing").arg(text);
  return isFavorite ? tr("%1, on My list").arg(text) : text;
}

QString Assistive::placeOfChoice(int index, int count, bool chosen) {
  return chosen ? tr("%1, chosen").arg(place(index, count)) : place(index, count);
}

}  // namespace vantor
