#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vantor {

/// Who gets the keys of the window. Main thread only.
class Keyboard : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// Gives them to the item, which nobody pointed at. While a sheet or a menu lies over the window
  /// it keeps the keys, and the item has them after it.
  Q_INVOKABLE static void give(QQuickItem* item);
  /// The same, after whatever is giving them away now.
  Q_INVOKABLE static void giveLater(QQuickItem* item);
};

}  // namespace vantor
