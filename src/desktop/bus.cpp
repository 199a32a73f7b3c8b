#include "desktop/bus.h"

#include "platform/worker.h"

namespace vantor {
namespace {

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

}  // namespace vantor
