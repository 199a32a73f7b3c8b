#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariantList>

#include "core/section.h"

namespace vantor {

class AppModel;

/// The commands of the menu, with the keys that run them from anywhere. Main thread only.
class Commands final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantList list READ list CONSTANT)

 public:
  explicit Commands(AppModel& model, QObject* parent = nullptr);

  /// Maps of "heading" (the menu's title before its first command, else empty), "title", "keys",
  /// "keyNames" (as the user's keyboard has them) and "anywhere" (whether the keys work over an
  /// open sheet).
  QVariantList list() const;
  Q_INVOKABLE void run(int command);

 Q_SIGNALS:
  /// A section was chosen, be it the one that is shown.
  void sectionChosen();
  void quitRequested();

 private:
  void enter(Section section);

  AppModel& model_;
};

}  // namespace vantor
