// Its system bus is the session bus that the tests run in.
#include "desktop/network_watch.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

#include "platform/worker.h"
#include "support/waiting.h"

namespace vantor::test {
namespace {

const QString login = u"/org/freedesktop/login1"_s;
const QString loginInterface = u"org.freedesktop.login1.Manager"_s;
const QString networkPath = u"/org/freedesktop/NetworkManager"_s;
const QString networkInterface = u"org.freedesktop.NetworkManager"_s;
const QString propertyInterface = u"org.freedesktop.DBus.Properties"_s;

// Before anything joins a bus: libdbus looks only once.
const bool oneBus = qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));

class NetworkWatchTest : public ::testing::Test {
 protected:
  const Settled settled;
  const QString name = u"network watch test"_s;
  Worker worker;
  NetworkWatch watch;
  int changes = 0;

  void SetUp() override {
    ASSERT_TRUE(oneBus);
    QObject::connect(&watch, &NetworkWatch::changed, &watch, [this] { ++changes; });
  }
  ~NetworkWatchTest() override { QDBusConnection::disconnectFromBus(name); }

  static QDBusMessage change(const QString& interface, const QVariantMap& values) {
    return QDBusMessage::createSignal(networkPath, propertyInterface, u"PropertiesChanged"_s)
           << interface << values << QStringList();
  }
};

TEST_F(NetworkWatchTest, HearsOfAWayIntoTheNetworkOnly) {
  QDBusConnection system = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
  ASSERT_TRUE(system.isConnected()) << "needs a session bus: run with scripts/private-desktop";
  const auto sleep = [](bool begins) {
    return QDBusMessage::createSignal(login, loginInterface, u"PrepareForSleep"_s) << begins;
  };
  const auto state = [](uint value) {
    return QDBusMessage::createSignal(networkPath, networkInterface, u"StateChanged"_s) << value;
  };
  const auto primary = [](const QString& path) {
    return change(networkInterface,
                  {{u"PrimaryConnection"_s, QVariant::fromValue(QDBusObjectPath(path))}});
  };
  watch.listen(worker);
  ASSERT_TRUE(eventually([&] {
    system.send(sleep(false));
    return changes > 0;
  }));

  const auto arrive = [&] {
    const QDBusPendingCall ping = system.asyncCall(
        QDBusMessage::createMethodCall(QDBusConnection::systemBus().baseService(), u"/"_s,
                                       u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
    EXPECT_TRUE(eventually([&] { return ping.isFinished(); }));
    settle();
  };
  arrive();
  const std::pair<QDBusMessage, bool> rows[] = {
      {sleep(true), false},
      {sleep(false), true},
      {state(20), false},  // disconnected
      {state(40), false},  // connecting
      {state(70), true},
      {primary(u"/"_s), false},
      {primary(u"/org/freedesktop/NetworkManager/ActiveConnection/2"_s), true},
      {change(networkInterface, {{u"Connectivity"_s, 1u}}), false},
      {change(networkInterface, {{u"Connectivity"_s, 4u}}), true},
      {change(networkInterface, {{u"WirelessEnabled"_s, true}}), false},
      {change(networkInterface, {{u"Connectivity"_s, u"full"_s}}), false},
      {change(u"org.example.Other"_s, {{u"Connectivity"_s, 4u}}), false},
      {QDBusMessage::createSignal(networkPath, networkInterface, u"StateChanged"_s) << u"70"_s,
       false},
  };
  for (const auto& [message, isNews] : rows) {
    const int before = changes;
    system.send(message);
    arrive();
    EXPECT_EQ(changes - before, isNews ? 1 : 0) << message.member().toStdString();
  }
}

TEST_F(NetworkWatchTest, MayGoWhileItJoins) {
  auto other = std::make_unique<NetworkWatch>();
  other->listen(worker);
  other.reset();
  settle();
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace vantor::test
