#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QStringList>
#include <QUrl>

#include "platform/file_panel.h"

namespace vantor {

/// The file panel as a dialog of the window. Main thread only.
class DialogFilePanel : public QObject, public FilePanel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QStringList nameFilters READ nameFilters CONSTANT)

 public:
  using QObject::QObject;
  ~DialogFilePanel() override { cancel(); }

  Pending<std::optional<QUrl>> chooseMediaFile() override;

  /// What the dialog lists: movies and audio, in every spelling of their extensions.
  static QStringList nameFilters();
  /// The two parts of it.
  static QString kinds();
  static QStringList patterns();

  Q_INVOKABLE void choose(const QUrl& file);
  Q_INVOKABLE void cancel();
  /// The toolkit's own dialog, in the window or in one of its own, paints the ground of its path
  /// white whatever the palette is, with the palette's light text on it.
  Q_INVOKABLE void darkenPath(const QColor& ground);

 Q_SIGNALS:
  /// The dialog is wanted; `choose` or `cancel` answers.
  void requested();

 private:
  std::optional<Pending<std::optional<QUrl>>> choice_;
};

}  // namespace vantor
