#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>

#include "support/waiting.h"

namespace vantor::test {

/// A connection of the test's own to the session bus that the tests run in.
class OwnBus {
 public:
  OwnBus() {
    EXPECT_TRUE(connection.isConnected())
        << "needs a session bus: run with scripts/private-desktop";
  }
  ~OwnBus() { QDBusConnection::disconnectFromBus(connection.name()); }
  OwnBus(const OwnBus&) = delete;
  OwnBus& operator=(const OwnBus&) = delete;

  /// Waits for the answer to a call.
  QDBusMessage answer(const QDBusMessage& message) {
    const QDBusPendingCall call = connection.asyncCall(message);
    EXPECT_TRUE(eventually([&] { return call.isFinished(); }));
    settle();
    return QDBusPendingReply<>(call).reply();
  }
  /// Waits until what was sent to the program's connection has arrived there.
  void arrive(const QDBusConnection& program) {
    answer(QDBusMessage::createMethodCall(program.baseService(), u"/"_s,
                                          u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
  }
  /// The connection that has the name.
  QString owner(const QString& name) { return connection.interface()->serviceOwner(name); }

  QDBusConnection connection =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"the test's own"_s);
};

}  // namespace vantor::test
