#include "desktop/network_watch.h"

#include <QDBusObjectPath>

#include "desktop/bus.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

const QString networkManager = u"org.freedesktop.NetworkManager"_s;
const QString networkManagerPath = u"/org/freedesktop/NetworkManager"_s;

// As NetworkManager numbers them.
constexpr uint connectedLocally = 50;
constexpr uint fullConnectivity = 4;

}  // namespace

void NetworkWatch::listen(Worker& worker) {
  joining_ = joinBus(worker, QDBusConnection::SystemBus,
                     [this](const QDBusConnection& bus) { useBus(bus); });
}

void NetworkWatch::useBus(const QDBusConnection& bus) {
  hear(bus, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s,
       this, SLOT(onPrepareForSleep(bool)));
  hear(bus, networkManagerPath, networkManager, u"StateChanged"_s, this,
       SLOT(onStateChanged(uint)));
  hear(bus, networkManagerPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, this,
       SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
}

void NetworkWatch::onPrepareForSleep(bool asleep) {
  if (!asleep) Q_EMIT changed();
}

void NetworkWatch::onStateChanged(uint state) {
  if (state >= connectedLocally) Q_EMIT changed();
}

void NetworkWatch::onPropertiesChanged(const QString& interface, const QVariantMap& values,
                                       const QStringList&) {
  if (interface != networkManager) return;
  const QString primary = values.value(u"PrimaryConnection"_s).value<QDBusObjectPath>().path();
  const bool another = !primary.isEmpty() && primary != u"/"_s;
  if (another || values.value(u"Connectivity"_s).toUInt() == fullConnectivity) Q_EMIT changed();
}

}  // namespace vantor
