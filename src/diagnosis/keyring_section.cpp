// By the bus itself: libsecret would start a keyring, and ask the user to unlock it.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include "diagnosis/report.h"
#include "diagnosis/sections.h"
#include "provider/service_values.h"
#include "storage/secure_store.h"

namespace vantor::sections {
namespace {

using namespace Qt::StringLiterals;

const QString secrets = u"org.freedesktop.secrets"_s;

class Bus {
 public:
  /// The answer's arguments; empty when there was none.
  QVariantList call(QDBusMessage message, const QVariantList& arguments) const {
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return bus_.call(message, QDBus::Block, longestCall).arguments();
  }
  QVariant ask(const QString& method, const QVariantList& arguments = {}) const {
    return call(
               QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                              u"org.freedesktop.DBus"_s, method),
               arguments)
        .value(0);
  }
  QVariantList service(const QString& method, const QVariantList& arguments) const {
    return call(QDBusMessage::createMethodCall(secrets, u"/org/freedesktop/secrets"_s,
                                               u"org.freedesktop.Secret.Service"_s, method),
                arguments);
  }
  bool connected() const { return bus_.isConnected(); }

 private:
  static constexpr int longestCall = 3000;  // milliseconds
  QDBusConnection bus_ = QDBusConnection::sessionBus();
};

/// Without an address or a socket the library would start a bus.
bool hasBus() {
  return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
         QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

QString nameOf(uint process) {
  QFile file(u"/proc/%1/comm"_s.arg(process));
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll().trimmed()) : u"unknown"_s;
}

QString stateOfCollection(const Bus& bus) {
  const auto path =
      bus.service(u"ReadAlias"_s, {u"default"_s}).value(0).value<QDBusObjectPath>().path();
  if (path.isEmpty()) return u"no answer"_s;
  if (path == "/"_L1) return u"none"_s;
  const QVariantList locked = bus.call(
      QDBusMessage::createMethodCall(secrets, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s),
      {u"org.freedesktop.Secret.Collection"_s, u"Locked"_s});
  if (locked.isEmpty()) return u"no answer"_s;
  return locked[0].value<QDBusVariant>().variant().toBool() ? u"locked"_s : u"unlocked"_s;
}

QString stateOfItem(const Bus& bus, const QString& name) {
  const QMap<QString, QString> attributes{{u"service"_s, ServiceValues::ofBuild().bundleIdentifier},
                                          {u"account"_s, name}};
  const QVariantList found = bus.service(u"SearchItems"_s, {QVariant::fromValue(attributes)});
  if (found.size() != 2) return u"no answer"_s;
  const auto count = [&](int i) { return qdbus_cast<QList<QDBusObjectPath>>(found[i]).size(); };
  if (count(0) > 0) return u"there"_s;
  return count(1) > 0 ? u"there, locked"_s : u"not there"_s;
}

}  // namespace

void tellKeyring(Report& report, int& argc, char** argv) {
  if (!hasBus()) {
    report.say(u"session bus"_s, u"none"_s);
    return;
  }
  const QCoreApplication application(argc, argv);
  qDBusRegisterMetaType<QMap<QString, QString>>();
  QElapsedTimer timer;
  timer.start();
  const Bus bus;
  report.say(u"session bus"_s, bus.connected() ? u"there"_s : u"does not answer"_s);
  if (!bus.connected()) return;
  if (!bus.ask(u"NameHasOwner"_s, {secrets}).toBool()) {
    const bool startable = bus.ask(u"ListActivatableNames"_s).toStringList().contains(secrets);
    report.say(u"Secret Service"_s,
               startable ? u"not running, the bus starts it when it is wanted"_s : u"none"_s);
    return;
  }
  report.say(u"Secret Service"_s,
             nameOf(bus.ask(u"GetConnectionUnixProcessID"_s, {secrets}).toUInt()));
  timer.restart();
  report.say(u"keyring"_s, stateOfCollection(bus));
  report.say(u"answered after"_s, u"%1 ms"_s.arg(timer.elapsed()));
  report.say(u"saved account"_s, stateOfItem(bus, providerItem));
  report.say(u"key of the libraries"_s, stateOfItem(bus, catalogKeyItem));
}

}  // namespace vantor::sections
