#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusPendingCall>
#include <optional>

namespace vantor {

class Worker;

/// The bus once it is joined, absent when there is none. Only its first use waits, which `worker`
/// does.
QCoro::Task<std::optional<QDBusConnection>> joinBus(Worker* worker, QDBusConnection::BusType type);

/// Asks for a name that nobody has; `QDBusConnection::registerService` waits for the answer.
QDBusPendingCall askForName(const QDBusConnection& bus, const QString& name);
/// Whether the answer to that says that the name is ours.
bool hasName(const QDBusMessage& answer);

}  // namespace vantor
