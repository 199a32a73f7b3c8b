#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <functional>
#include <limits>

#include "platform/job.h"

namespace vantor {

class Worker;

/// For calls whose answer has to be dealt with however late it comes.
constexpr int withoutLimit = std::numeric_limits<int>::max();

/// Joins the bus, which `worker` waits for, as Qt's shared connection, then calls `joined` on the
/// main thread; not without a bus, and not once the job was dropped.
Job joinBus(Worker& worker, QDBusConnection::BusType type,
            std::function<void(QDBusConnection)> joined);

/// Asks for a name that nobody has; `QDBusConnection::registerService` waits for the answer.
QDBusPendingCall askForName(const QDBusConnection& bus, const QString& name);
/// Whether the answer to that says that the name is ours.
bool hasName(const QDBusMessage& answer);
/// Has `slot` called when somebody at that place sends the signal, whoever it is.
void hear(QDBusConnection bus, const QString& path, const QString& interface, const QString& signal,
          QObject* receiver, const char* slot);
/// Has `slot`, of (QString service, QString before, QString now), called when the owner of that
/// name changes.
void followOwner(QDBusConnection bus, const QString& service, QObject* receiver, const char* slot);
/// Gives it back.
void releaseName(const QDBusConnection& bus, const QString& name);

}  // namespace vantor
