#pragma once

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVirtualObject>
#include <functional>
#include <map>

#include "support/waiting.h"

namespace vantor::test {

inline const QString propertyInterface = u"org.freedesktop.DBus.Properties"_s;
inline const QString portalName = u"org.freedesktop.portal.Desktop"_s;
inline const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// An object of the desktop's, with all below it. Each call is the test's to answer.
class DesktopObject final : public QDBusVirtualObject {
 public:
  std::function<void(const QDBusMessage& call)> onCall;

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
    onCall(call);
    return true;
  }
};

/// A connection of the test's own to the session bus that the tests run in. The program has
/// another.
class OwnBus final : public QObject {
  Q_OBJECT

 public:
  OwnBus() {
    EXPECT_TRUE(connection.isConnected())
        << "needs a session bus: run with scripts/private-desktop";
  }
  ~OwnBus() override { QDBusConnection::disconnectFromBus(connection.name()); }

  /// Waits for the answer to a call.
  QDBusMessage answer(const QDBusMessage& message) {
    const QDBusPendingCall call = connection.asyncCall(message);
    EXPECT_TRUE(eventually([&] { return call.isFinished(); }));
    settle();
    return QDBusPendingReply<>(call).reply();
  }
  /// Waits until what was sent to the program's connection has arrived there, and the reverse.
  void arrive(const QDBusConnection& program = QDBusConnection::sessionBus()) {
    answer(QDBusMessage::createMethodCall(program.baseService(), u"/"_s,
                                          u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
  }
  /// The connection that has the name.
  QString owner(const QString& name) { return connection.interface()->serviceOwner(name); }
  bool offer(const QString& name, const QString& path, DesktopObject& object) {
    return connection.registerVirtualObject(path, &object, QDBusConnection::SubPath) &&
           connection.registerService(name);
  }

  /// Calls an object of the program.
  QDBusMessage ask(const QString& path, const QString& interface, const QString& method,
                   const QVariantList& arguments = {}) {
    QDBusMessage call = QDBusMessage::createMethodCall(QDBusConnection::sessionBus().baseService(),
                                                       path, interface, method);
    call.setArguments(arguments);
    return answer(call);
  }
  QVariantMap properties(const QString& path, const QString& interface) {
    return qdbus_cast<QVariantMap>(
        ask(path, propertyInterface, u"GetAll"_s, {interface}).arguments().value(0));
  }
  /// Listens to a signal of the program's.
  void follow(const QString& path, const QString& interface, const QString& signal) {
    connection.connect(QDBusConnection::sessionBus().baseService(), path, interface, signal, this,
                       SLOT(note(QDBusMessage)));
  }
  /// What was heard since the last time: a name and its new value, or a signal and what it says.
  QStringList told() {
    settle();
    arrive();
    return std::exchange(told_, {});
  }

  QDBusConnection connection =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"the test's own"_s);
  std::map<QString, QVariantMap> values;  // of the properties that were told of, by interface

 private Q_SLOTS:
  void note(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (message.interface() != propertyInterface)
      told_.append(message.member() + u": "_s + arguments.value(0).toString());
    else
      for (const auto& [name, value] : qdbus_cast<QVariantMap>(arguments[1]).asKeyValueRange()) {
        told_.append(name + u": "_s + value.toString());
        values[arguments[0].toString()].insert(name, value);
      }
  }

 private:
  QStringList told_;
};

}  // namespace vantor::test
