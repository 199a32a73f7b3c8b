#include "desktop/bus.h"

#include <QDBusMessage>

#include "platform/worker.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

QDBusConnection busOf(QDBusConnection::BusType type) {
  return type == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                            : QDBusConnection::sessionBus();
}

QCoro::Task<> join(Worker* worker, QDBusConnection::BusType type,
                   std::function<void(QDBusConnection)> joined, std::stop_token token) {
  const Pending<Done> joining = worker->run([type] { busOf(type); });
  co_await joining;
  if (token.stop_requested()) co_return;
  const QDBusConnection bus = busOf(type);
  if (bus.isConnected()) joined(bus);
}

/// A call of the bus itself.
QDBusMessage callOfBus(const QString& method) {
  return QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                        u"org.freedesktop.DBus"_s, method);
}

}  // namespace

Job joinBus(Worker& worker, QDBusConnection::BusType type,
            std::function<void(QDBusConnection)> joined) {
  return Job::start([worker = &worker, type, joined = std::move(joined)](std::stop_token token) {
    return join(worker, type, joined, token);
  });
}

QDBusPendingCall askForName(const QDBusConnection& bus, const QString& name) {
  constexpr uint doNotQueue = 4;
  return bus.asyncCall(callOfBus(u"RequestName"_s) << name << doNotQueue);
}

// With a sender's name the connection would wait to hear who that is.
void hear(QDBusConnection bus, const QString& path, const QString& interface, const QString& signal,
          QObject* receiver, const char* slot) {
  bus.connect(QString(), path, interface, signal, receiver, slot);
}

void followOwner(QDBusConnection bus, const QString& service, QObject* receiver, const char* slot) {
  bus.connect(QString(), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
              u"NameOwnerChanged"_s, {service}, u"sss"_s, receiver, slot);
}

void releaseName(const QDBusConnection& bus, const QString& name) {
  bus.send(callOfBus(u"ReleaseName"_s) << name);
}

bool hasName(const QDBusMessage& answer) {
  constexpr uint owner = 1;
  constexpr uint ownedAlready = 4;
  const QVariant result = answer.arguments().value(0);
  return answer.type() == QDBusMessage::ReplyMessage && (result == owner || result == ownedAlready);
}

}  // namespace vantor
