#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <optional>

namespace vantor {

class Worker;

/// The bus once it is joined, absent when there is none. Only its first use waits, which `worker`
/// does.
QCoro::Task<std::optional<QDBusConnection>> joinBus(Worker* worker, QDBusConnection::BusType type);

}  // namespace vantor
