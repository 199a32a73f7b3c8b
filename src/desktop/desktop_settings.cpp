#include "desktop/desktop_settings.h"

#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <algorithm>
#include <cmath>

#include "desktop/bus.h"
#include "desktop/portal.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString gnome = u"org.gnome.desktop.interface"_s;
const QString gnomeAccess = u"org.gnome.desktop.a11y.interface"_s;

using Settings = QMap<QString, QVariantMap>;

double textScale(double factor) {
  return std::isfinite(factor) ? std::clamp(factor, 1.0, 2.0) : 1;
}

}  // namespace

void DesktopSettings::follow(Worker& worker) {
  joining_ = joinBus(worker, QDBusConnection::SessionBus,
                     [this](const QDBusConnection& bus) { useBus(bus); });
}

void DesktopSettings::useBus(const QDBusConnection& bus) {
  // A slot with a QDBusVariant is refused as long as nobody has used one.
  hear(bus, portal::path, interface, u"SettingChanged"_s, this,
       SLOT(onSettingChanged(QDBusMessage)));
  qDBusRegisterMetaType<Settings>();
  QDBusMessage question =
      QDBusMessage::createMethodCall(portal::service, portal::path, interface, u"ReadAll"_s);
  question << QStringList{appearance, gnome, gnomeAccess};
  auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question, withoutLimit), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    const QDBusPendingReply<Settings> reply = *answer;
    if (reply.isError()) return;
    const Settings settings = reply.value();
    for (auto space = settings.begin(); space != settings.end(); ++space)
      for (auto value = space->begin(); value != space->end(); ++value)
        take(space.key(), value.key(), *value);
    tell();
  });
}

void DesktopSettings::onSettingChanged(const QDBusMessage& change) {
  const QVariantList arguments = change.arguments();
  if (change.signature() != "ssv"_L1) return;
  take(arguments[0].toString(), arguments[1].toString(),
       arguments[2].value<QDBusVariant>().variant());
  tell();
}

void DesktopSettings::take(const QString& space, const QString& key, const QVariant& value) {
  if (space == appearance && key == "contrast"_L1)
    contrasting_[space] = value.toUInt() == 1;
  else if (space == appearance && key == "reduced-motion"_L1)
    still_[space] = value.toUInt() == 1;
  else if (space == gnomeAccess && key == "high-contrast"_L1)
    contrasting_[space] = value.toBool();
  else if (space == gnome && key == "enable-animations"_L1)
    still_[space] = !value.toBool();
  else if (space == gnome && key == "text-scaling-factor"_L1)
    textScale_ = textScale(value.toDouble());
}

void DesktopSettings::tell() {
  const Wishes said{textScale_, still_.values().contains(true),
                    contrasting_.values().contains(true)};
  if (std::exchange(wishes_, said) != said) Q_EMIT changed();
}

}  // namespace vantor
