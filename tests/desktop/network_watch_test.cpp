// Its system bus is the session bus that the tests run in.
#include "desktop/network_watch.h"

#include <QDBusObjectPath>

#include "desktop/own_bus.h"
#include "platform/worker.h"

namespace vantor::test {
namespace {

const QString login = u"/org/freedesktop/login1"_s;
const QString loginInterface = u"org.freedesktop.login1.Manager"_s;
const QString networkPath = u"/org/freedesktop/NetworkManager"_s;
const QString networkInterface = u"org.freedesktop.NetworkManager"_s;

// Before anything joins a bus: libdbus looks only once.
const bool oneBus = qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));

QDBusMessage change(const QString& interface, const QVariantMap& values) {
  return QDBusMessage::createSignal(networkPath, propertyInterface, u"PropertiesChanged"_s)
         << interface << values << QStringList();
}

TEST(NetworkWatch, HearsOfAWayIntoTheNetworkOnly) {
  ASSERT_TRUE(oneBus);
  const Settled settled;
  OwnBus bus;
  Worker worker;
  std::make_unique<NetworkWatch>()->listen(worker);  // and may go while it joins
  NetworkWatch watch;
  int changes = 0;
  QObject::connect(&watch, &NetworkWatch::changed, &watch, [&] { ++changes; });
  const auto sleep = [](bool begins) {
    return QDBusMessage::createSignal(login, loginInterface, u"PrepareForSleep"_s) << begins;
  };
  const auto state = [](const QVariant& value) {
    return QDBusMessage::createSignal(networkPath, networkInterface, u"StateChanged"_s) << value;
  };
  const auto primary = [](const QString& path) {
    return change(networkInterface,
                  {{u"PrimaryConnection"_s, QVariant::fromValue(QDBusObjectPath(path))}});
  };
  watch.listen(worker);
  ASSERT_TRUE(eventually([&] {
    bus.connection.send(sleep(false));
    return changes > 0;
  }));
  bus.arrive(QDBusConnection::systemBus());
  const std::pair<QDBusMessage, bool> rows[] = {
      {sleep(true), false},
      {sleep(false), true},
      {state(20u), false},  // disconnected
      {state(40u), false},  // connecting
      {state(70u), true},
      {primary(u"/"_s), false},
      {primary(u"/org/freedesktop/NetworkManager/ActiveConnection/2"_s), true},
      {change(networkInterface, {{u"Connectivity"_s, 1u}}), false},
      {change(networkInterface, {{u"Connectivity"_s, 4u}}), true},
      {change(networkInterface, {{u"WirelessEnabled"_s, true}}), false},
      {change(networkInterface, {{u"Connectivity"_s, u"full"_s}}), false},
      {change(u"org.example.Other"_s, {{u"Connectivity"_s, 4u}}), false},
      {state(u"70"_s), false},
  };
  for (const auto& [message, isNews] : rows) {
    const int before = changes;
    bus.connection.send(message);
    bus.arrive(QDBusConnection::systemBus());
    EXPECT_EQ(changes - before, isNews ? 1 : 0) << message.member().toStdString();
  }
}

}  // namespace
}  // namespace vantor::test
