#pragma once

#include <QDBusMessage>
#include <QString>

/// What the desktop's portals are called on the session bus (XDG Desktop Portal).
namespace vantor::portal {

inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
inline const QString request = QStringLiteral("org.freedesktop.portal.Request");

/// Takes back what was asked for; `object` is what the portal calls it.
inline QDBusMessage closing(const QString& object) {
  return QDBusMessage::createMethodCall(service, object, request, QStringLiteral("Close"));
}

}  // namespace vantor::portal
