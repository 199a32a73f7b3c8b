#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace vantor {

/// SIGTERM, SIGINT and SIGHUP as a signal of the main thread's event loop. One per process, which
/// ends five seconds after the first of them unless it has another limit by then.
class TerminationSignals final : public QObject {
  Q_OBJECT

 public:
  TerminationSignals();
  ~TerminationSignals() override;

 Q_SIGNALS:
  void received();

 private:
  void read();

  int ends_[2] = {-1, -1};
  QSocketNotifier notifier_{QSocketNotifier::Read};
};

}  // namespace vantor
