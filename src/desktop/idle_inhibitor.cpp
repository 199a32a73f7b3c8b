#include "desktop/idle_inhibitor.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <array>
#include <chrono>

#include "desktop/bus.h"
#include "desktop/portal.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr uint idle = 8;  // flag of the portal and of the session manager
constexpr auto patience = 5s;

const QString program = u"Vantor Player"_s;

QString inhibitReason() {
  return IdleInhibitor::tr("A picture is playing");
}

/// Who can be asked, in this order.
struct Inhibiting {
  QString name;
  QString path;
  QString interface;
  QString releasing;  // the method; its object is the answer where there is none
  QVariantList (*arguments)(const QString& application);
};

const std::array<Inhibiting, 3>& inhibiting() {
  static const std::array<Inhibiting, 3> services = {{
      {portal::service, portal::path, u"org.freedesktop.portal.Inhibit"_s, QString(),
       [](const QString&) {
         return QVariantList{QString(), idle, QVariantMap{{u"reason"_s, inhibitReason()}}};
       }},
      {u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s,
       u"org.freedesktop.ScreenSaver"_s, u"UnInhibit"_s,
       [](const QString&) {
         return QVariantList{program, inhibitReason()};
       }},
      {u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s, u"org.gnome.SessionManager"_s,
       u"Uninhibit"_s,
       [](const QString& application) {
         constexpr uint noWindow = 0;
         return QVariantList{application, noWindow, inhibitReason(), idle};
       }},
  }};
  return services;
}

/// What the answer calls the inhibition: an object of the portal, else a number.
QVariant inhibitionIn(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage) return {};
  const QVariant value = answer.arguments().value(0);
  const int type = value.userType();
  return type == QMetaType::UInt || type == qMetaTypeId<QDBusObjectPath>() ? value : QVariant();
}

}  // namespace

void IdleInhibitor::join(Worker& worker, const QString& application) {
  joining_ = joinBus(worker, QDBusConnection::SessionBus,
                     [this, application](const QDBusConnection& bus) { useBus(bus, application); });
}

void IdleInhibitor::useBus(const QDBusConnection& bus, const QString& application) {
  bus_ = bus;
  application_ = application;
  for (const Inhibiting& service : inhibiting())
    followOwner(*bus_, service.name, this, SLOT(onOwnerChanged(QString, QString, QString)));
  pursue();
}

void IdleInhibitor::setWanted(bool wanted) {
  wanted_ = wanted;
  pursue();
}

void IdleInhibitor::pursue() {
  if (!bus_) return;
  if (wanted_ && stage_ == Stage::released) {
    ask(0);
  } else if (!wanted_ && stage_ == Stage::held) {
    stage_ = Stage::released;
    release(service_, inhibition_);
  } else if (!wanted_ && stage_ == Stage::refused) {
    stage_ = Stage::released;
  }
}

void IdleInhibitor::ask(std::size_t service) {
  service_ = service;
  stage_ = Stage::asking;
  const Inhibiting& asked = inhibiting().at(service);
  QDBusMessage message =
      QDBusMessage::createMethodCall(asked.name, asked.path, asked.interface, u"Inhibit"_s);
  message.setArguments(asked.arguments(application_));
  // A late answer has to be released.
  auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(message, withoutLimit), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this,
          [this, answer, question = ++question_, service] {
            answer->deleteLater();
            answered(question, service, QDBusPendingReply<>(*answer).reply());
          });
  patience_ = clock_.callAfter(patience, [this] { askNext(); });
}

void IdleInhibitor::askNext() {
  ++question_;  // an answer comes too late from now on
  if (!wanted_)
    stage_ = Stage::released;
  else if (service_ + 1 < inhibiting().size())
    ask(service_ + 1);
  else
    stage_ = Stage::refused;
}

void IdleInhibitor::answered(std::uint64_t question, std::size_t service,
                             const QDBusMessage& answer) {
  const QVariant inhibition = inhibitionIn(answer);
  if (question != question_) {
    if (inhibition.isValid()) release(service, inhibition);
    return;
  }
  patience_.reset();
  if (!inhibition.isValid()) {
    askNext();
    return;
  }
  stage_ = Stage::held;
  inhibition_ = inhibition;
  pursue();
}

void IdleInhibitor::release(std::size_t service, const QVariant& inhibition) {
  const Inhibiting& asked = inhibiting().at(service);
  QDBusMessage message;
  if (inhibition.userType() == QMetaType::UInt) {
    message =
        QDBusMessage::createMethodCall(asked.name, asked.path, asked.interface, asked.releasing);
    message << inhibition;
  } else {
    message = portal::closing(inhibition.value<QDBusObjectPath>().path());
  }
  bus_->send(message);
}

void IdleInhibitor::onOwnerChanged(const QString& service, const QString& before,
                                   const QString& now) {
  if (stage_ == Stage::held && service == inhibiting().at(service_).name && !before.isEmpty())
    stage_ = Stage::released;
  if (stage_ == Stage::refused && !now.isEmpty()) stage_ = Stage::released;
  pursue();
}

}  // namespace vantor
