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

}  // namespace

QCoro::Task<std::optional<QDBusConnection>> joinBus(Worker* worker, QDBusConnection::BusType type) {
  const Pending<Done> joining = worker->run([type] { busOf(type); });
  co_await joining;
  const QDBusConnection bus = busOf(type);
  std::optional<QDBusConnection> joined;
  if (bus.isConnected()) joined = bus;
  co_return joined;
}

QDBusPendingCall askForName(const QDBusConnection& bus, const QString& name) {
  QDBusMessage request =
      QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                     u"org.freedesktop.DBus"_s, u"RequestName"_s);
  constexpr uint doNotQueue = 4;
  request << name << doNotQueue;
  return bus.asyncCall(request);
}

bool hasName(const QDBusMessage& answer) {
  constexpr uint owner = 1;
  constexpr uint ownedAlready = 4;
  const QVariant result = answer.arguments().value(0);
  return answer.type() == QDBusMessage::ReplyMessage && (result == owner || result == ownedAlready);
}

}  // namespace vantor
