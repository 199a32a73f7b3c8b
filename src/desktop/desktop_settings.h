#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "platform/job.h"

namespace vantor {

class Worker;

/// How the user wants every program to look, as the desktop's portal says (org.freedesktop.portal
/// .Settings). Main thread only.
class DesktopSettings final : public QObject {
  Q_OBJECT

 public:
  struct Wishes {
    double textScale = 1;  // 1 to 2 times the usual size
    bool reducedMotion = false;
    bool highContrast = false;
    bool operator==(const Wishes&) const = default;
  };

  /// Asks on the session bus, which `worker` waits for, and hears of changes; without one, or
  /// without a portal, the wishes stay the usual ones.
  void follow(Worker& worker);
  const Wishes& wishes() const { return wishes_; }

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  void onSettingChanged(const QDBusMessage& change);

 private:
  void useBus(const QDBusConnection& bus);
  void take(const QString& space, const QString& key, const QVariant& value);
  /// All settings come by, also those that are no wishes.
  void tell();

  Job joining_;
  Wishes wishes_;
  double textScale_ = 1;
  // Each desktop says it in its own way; one of them is enough.
  QHash<QString, bool> still_;
  QHash<QString, bool> contrasting_;
};

}  // namespace vantor
