#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include "platform/job.h"

namespace vantor {

class Worker;

/// Hears that the machine has woken up or has another way into the network. Main thread only.
class NetworkWatch final : public QObject {
  Q_OBJECT

 public:
  /// Listens on the system bus, from some time later on; without one nothing is ever heard.
  /// `worker` waits for the bus.
  void listen(Worker& worker);

 Q_SIGNALS:
  /// What could not be reached may be reached now. Often comes several times for one change.
  void changed();

 private Q_SLOTS:
  void onPrepareForSleep(bool asleep);
  void onStateChanged(uint state);
  void onPropertiesChanged(const QString& interface, const QVariantMap& values,
                           const QStringList& invalidated);

 private:
  void useBus(const QDBusConnection& bus);

  Job joining_;
};

}  // namespace vantor
