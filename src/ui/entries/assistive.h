#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

namespace vantor {

/// Tells assistive programs of a highlight that is no focus of the scene's own. Main thread only.
class Assistive : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// `row` of a list that has the keys is the one that they act on now; nothing when it is null. It
  /// is told of after this turn of the event loop, when its own states are settled, and once.
  Q_INVOKABLE void highlight(QQuickItem* row);
  /// Where an entry stands: "3 of 57,000" for index 2.
  Q_INVOKABLE static QString place(int index, int count);
  /// The same of one that may be played and kept: "3 of 57,000, playing, on My list".
  Q_INVOKABLE static QString placeOfEntry(int index, int count, bool isPlaying, bool isFavorite);
  /// Where one of several choices stands: "3 of 11, chosen". Orca does not read out that state of
  /// rows and buttons.
  Q_INVOKABLE static QString placeOfChoice(int index, int count, bool chosen);

 private:
  void tell();

  QPointer<QQuickItem> row_;
};

}  // namespace vantor
