#pragma once

#include <QDBusConnection>
#include <QObject>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "platform/job.h"

class QDBusMessage;

namespace vantor {

class Worker;

/// Keeps the desktop from blanking or locking the screen for want of input: through the first of
/// the portal, the screen saver and the session manager that takes it. The bus releases what a
/// program held that is gone. Main thread only.
class IdleInhibitor final : public QObject {
  Q_OBJECT

 public:
  explicit IdleInhibitor(Clock& clock) : clock_(clock) {}
  ~IdleInhibitor() override { setWanted(false); }

  /// Speaks over the session bus, from some time later on, in the name of the desktop entry
  /// `application`. Without a bus nothing happens. `worker` waits for the bus.
  void join(Worker& worker, const QString& application);

  void setWanted(bool wanted);

 private Q_SLOTS:
  void onOwnerChanged(const QString& service, const QString& before, const QString& now);

 private:
  enum class Stage : unsigned char {
    released,
    asking,
    held,
    refused,  // by all there are
  };

  void useBus(const QDBusConnection& bus, const QString& application);
  void pursue();
  void ask(std::size_t service);
  void askNext();
  void answered(std::uint64_t question, std::size_t service, const QDBusMessage& answer);
  void release(std::size_t service, const QVariant& inhibition);

  Clock& clock_;
  std::optional<QDBusConnection> bus_;
  QString application_;
  bool wanted_ = false;
  Stage stage_ = Stage::released;
  std::size_t service_ = 0;     // asked last
  QVariant inhibition_;         // as that service names it, while held
  std::uint64_t question_ = 0;  // number of the last one
  std::unique_ptr<Clock::Timer> patience_;
  Job joining_;
};

}  // namespace vantor
