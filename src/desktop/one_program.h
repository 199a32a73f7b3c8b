#pragma once

#include <QDBusConnection>
#include <QString>
#include <future>
#include <memory>
#include <optional>

namespace vantor {

class ApplicationObject;
struct LaunchArguments;

/// One program a session: it has a name on the session bus, and a later start hands to it what it
/// was asked to do. Main thread only.
class OneProgram {
 public:
  /// Begins to ask for `name`; with it, `object` answers others from then on. A thread waits for
  /// the bus, longer than this lives if it must.
  OneProgram(const QString& name, const std::shared_ptr<ApplicationObject>& object);
  ~OneProgram();
  OneProgram(const OneProgram&) = delete;
  OneProgram& operator=(const OneProgram&) = delete;

  /// Whether the program that has the name does what `launch` asks of this one, which then has
  /// nothing left to do. Waits a second for a bus that says nothing, and five for each answer of a
  /// program. `token` is the desktop's leave to come to the front.
  bool handOver(const LaunchArguments& launch, const QByteArray& token);

  /// Whoever is started from now on is the one.
  void leave();

 private:
  enum class Rank : unsigned char { first, later, unknown };
  struct Place {
    Rank rank = Rank::unknown;
    std::optional<QDBusConnection> bus;
  };
  static Place ask(const QString& name, ApplicationObject& object);
  Place place();

  const QString name_;
  std::shared_future<Place> answer_;
};

}  // namespace vantor
