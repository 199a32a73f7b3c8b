#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include "core/section.h"

namespace vantor {

/// What the desktop, and later starts of the program, ask of the one that runs: the interface
/// org.freedesktop.Application. Main thread only.
class ApplicationObject final : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public Q_SLOTS:
  // As D-Bus writes methods, and the interface its arguments.
  Q_SCRIPTABLE void Activate(const QVariantMap& platform_data);
  Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platform_data);
  Q_SCRIPTABLE void ActivateAction(const QString& action_name, const QVariantList& parameter,
                                   const QVariantMap& platform_data);

 Q_SIGNALS:
  void fileOpened(const QUrl& file);
  void sectionChosen(Section section);
  /// The window is wanted, after each of these. The desktop lets it come to the front for `token`,
  /// which may be empty.
  void activated(const QByteArray& token);
};

}  // namespace vantor
