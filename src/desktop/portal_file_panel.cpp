#include "desktop/portal_file_panel.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include "desktop/bus.h"
#include "desktop/media_files.h"
#include "desktop/portal.h"

namespace vantor {

// What org.freedesktop.portal.FileChooser calls (us) and (sa(us)).
struct PortalPattern {
  uint kind = 0;  // a glob
  QString glob;
};

struct PortalFilter {
  QString name;
  QList<PortalPattern> patterns;
};

}  // namespace vantor

Q_DECLARE_METATYPE(vantor::PortalPattern)
Q_DECLARE_METATYPE(vantor::PortalFilter)

namespace vantor {

QDBusArgument& operator<<(QDBusArgument& out, const PortalPattern& pattern) {
  out.beginStructure();
  out << pattern.kind << pattern.glob;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, PortalPattern& pattern) {
  in.beginStructure();
  in >> pattern.kind >> pattern.glob;
  in.endStructure();
  return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const PortalFilter& filter) {
  out.beginStructure();
  out << filter.name << filter.patterns;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, PortalFilter& filter) {
  in.beginStructure();
  in >> filter.name >> filter.patterns;
  in.endStructure();
  return in;
}

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// For the panel to open; how long it stays open is the user's.
constexpr auto patience = 5s;

QVariantMap optionsOf(const PortalFilePanel::Wording& wording, const QString& token) {
  qDBusRegisterMetaType<PortalPattern>();
  qDBusRegisterMetaType<QList<PortalPattern>>();
  qDBusRegisterMetaType<PortalFilter>();
  qDBusRegisterMetaType<QList<PortalFilter>>();
  PortalFilter filter{.name = wording.kinds};
  for (const QString& glob : wording.patterns) filter.patterns.append({.glob = glob});
  return {{u"handle_token"_s, token},
          {u"modal"_s, true},
          {u"filters"_s, QVariant::fromValue(QList<PortalFilter>{filter})}};
}

}  // namespace

PortalFilePanel::~PortalFilePanel() {
  close();
  settle(std::nullopt);
}

void PortalFilePanel::join(Worker& worker) {
  joining_ = joinBus(worker, QDBusConnection::SessionBus,
                     [this](const QDBusConnection& bus) { useBus(bus); });
}

void PortalFilePanel::useBus(const QDBusConnection& bus) {
  bus_ = bus;
  followOwner(*bus_, portal::service, this, SLOT(onOwnerChanged(QString, QString, QString)));
}

PortalFilePanel::Choice PortalFilePanel::chooseMediaFile() {
  close();
  settle(std::nullopt);
  Choice choice;
  choice_ = choice;
  if (bus_)
    askPortal();
  else
    askOther();
  return choice;
}

void PortalFilePanel::askPortal() {
  const Wording wording = wording_();
  const QString token = u"vantor%1"_s.arg(++requests_);
  // Where it will be: it may answer before its name for the panel has come.
  follow(portal::path + u"/request/"_s + bus_->baseService().mid(1).replace(u'.', u'_') + u'/' +
         token);
  QDBusMessage message = QDBusMessage::createMethodCall(
      portal::service, portal::path, u"org.freedesktop.portal.FileChooser"_s, u"OpenFile"_s);
  message << parentWindow_ << wording.title << optionsOf(wording, token);
  auto* const answer = new QDBusPendingCallWatcher(bus_->asyncCall(message, withoutLimit), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, asked = requests_] {
    answer->deleteLater();
    if (asked == requests_ && !request_.isEmpty()) return answered(*answer);
    // It may have been told to close before it opened.
    const QDBusPendingReply<QDBusObjectPath> late = *answer;
    if (!late.isError()) bus_->send(portal::closing(late.value().path()));
  });
  patience_ = clock_.callAfter(patience, [this] {
    close();
    askOther();
  });
}

void PortalFilePanel::answered(const QDBusPendingCallWatcher& answer) {
  patience_.reset();
  const QDBusPendingReply<QDBusObjectPath> reply = answer;
  if (reply.isError()) {
    close();
    askOther();
  } else {
    // Portals of old choose the place themselves.
    follow(reply.value().path());
  }
}

void PortalFilePanel::askOther() {
  asking_ = Job::start([this, choice = *choice_](std::stop_token) {
    return takeChoice(otherwise_.chooseMediaFile(), choice);
  });
}

QCoro::Task<> PortalFilePanel::takeChoice(Choice of, Choice to) {
  const std::optional<QUrl> file = co_await of;
  to.resolve(file);
}

void PortalFilePanel::follow(const QString& request) {
  if (request == request_) return;
  if (!request_.isEmpty())
    bus_->disconnect(QString(), request_, portal::request, u"Response"_s, this,
                     SLOT(onResponse(QDBusMessage)));
  request_ = request;
  if (!request_.isEmpty())
    bus_->connect(QString(), request_, portal::request, u"Response"_s, this,
                  SLOT(onResponse(QDBusMessage)));
}

void PortalFilePanel::letGo() {
  patience_.reset();
  follow(QString());
}

void PortalFilePanel::close() {
  if (!request_.isEmpty()) bus_->send(portal::closing(request_));
  letGo();
}

void PortalFilePanel::settle(const std::optional<QUrl>& file) {
  if (choice_) choice_->resolve(file);
  choice_.reset();
}

void PortalFilePanel::onResponse(const QDBusMessage& response) {
  if (response.path() != request_) return;
  letGo();
  constexpr uint chosen = 0;
  const QVariantList arguments = response.arguments();
  std::optional<QUrl> file;
  if (response.signature() == "ua{sv}"_L1 && arguments[0].toUInt() == chosen) {
    const QStringList uris = qdbus_cast<QVariantMap>(arguments[1]).value(u"uris"_s).toStringList();
    if (!uris.isEmpty()) file = localFile(uris.first());
  }
  settle(file);
}

void PortalFilePanel::onOwnerChanged(const QString&, const QString& before, const QString&) {
  // The panel has gone with who showed it.
  if (before.isEmpty() || request_.isEmpty()) return;
  letGo();
  settle(std::nullopt);
}

}  // namespace vantor
