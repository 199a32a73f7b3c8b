#pragma once

#include <QDBusMessage>
#include <QString>

/// What the desktop's portals are called on the session bus (XDG Desktop Portal).
namespace vantor::portal {

using namespace Qt::StringLiterals;

inline const QString service = u"org.freedesktop.portal.Desktop"_s;
inline const QString path = u"/org/freedesktop/portal/desktop"_s;
inline const QString request = u"org.freedesktop.portal.Request"_s;

/// Takes back what was asked for; `object` is what the portal calls it.
inline QDBusMessage closing(const QString& object) {
  return QDBusMessage::createMethodCall(service, object, request, u"Close"_s);
}

}  // namespace vantor::portal
