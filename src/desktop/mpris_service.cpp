#include "desktop/mpris_service.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMetaProperty>
#include <chrono>

#include "core/app_model.h"
#include "core/now_playing.h"
#include "desktop/bus.h"
#include "playback/playback.h"
#include "playback/stream_keeper.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString playerPath = u"/org/mpris/MediaPlayer2"_s;
const QString playerName = u"org.mpris.MediaPlayer2.vantor"_s;

QString interfaceOf(const QObject& adaptor) {
  const QMetaObject* type = adaptor.metaObject();
  return QString::fromLatin1(type->classInfo(type->indexOfClassInfo("D-Bus Interface")).value());
}

/// All but the position, whose changes are never told.
QVariantMap propertiesOf(const QObject& adaptor) {
  QVariantMap values;
  const QMetaObject* type = adaptor.metaObject();
  for (int i = type->propertyOffset(); i < type->propertyCount(); ++i)
    values.insert(QString::fromLatin1(type->property(i).name()), type->property(i).read(&adaptor));
  values.remove(u"Position"_s);
  return values;
}

}  // namespace

MprisService::MprisService(const Parts& parts, MprisRoot::Actions actions)
    : parts_(parts),
      actions_(std::move(actions)),
      picture_(parts.artwork, parts.worker, parts.temporary) {}

void MprisService::offer(Worker& worker) {
  offering_ = joinBus(worker, QDBusConnection::SessionBus,
                      [this](const QDBusConnection& bus) { appear(bus); });
}

void MprisService::appear(const QDBusConnection& bus) {
  bus_ = bus;
  Playback& playback = parts_.model.playback();
  const auto refuse = [this](QDBusError::ErrorType error, const QString& reason) {
    if (calledFromDBus()) sendErrorReply(error, reason);
  };
  const MprisPlayer::Parts player{parts_.model, parts_.nowPlaying, parts_.keeper,
                                  picture_,     parts_.clock,      refuse};
  interfaces_.push_back(
      {std::make_unique<MprisRoot>(*this, playback, actions_, parts_.application), {}});
  interfaces_.push_back({std::make_unique<MprisPlayer>(*this, player), {}});
  for (const auto signal :
       {&Playback::sourceChanged, &Playback::stateChanged, &Playback::fullScreenChanged})
    connect(&playback, signal, this, &MprisService::tellSoon);
  for (const auto signal : {&TransportState::durationChanged, &TransportState::seekableChanged,
                            &TransportState::rateChanged, &TransportState::volumeChanged})
    connect(playback.transport(), signal, this, &MprisService::tellSoon);
  connect(&parts_.keeper, &StreamKeeper::bringingBackChanged, this, &MprisService::tellSoon);
  connect(&picture_, &PictureFile::changed, this, &MprisService::tellSoon);
  connect(&parts_.nowPlaying, &NowPlaying::changed, this, &MprisService::tellSoon);
  for (Interface& interface : interfaces_) interface.told = propertiesOf(*interface.adaptor);
  keepUp();
  tellSoon();
  bus_->registerObject(playerPath, this, QDBusConnection::ExportAdaptors);
  askForNames();
}

void MprisService::askForNames() {
  auto* answer = new QDBusPendingCallWatcher(askForName(*bus_, playerName), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    // The name of a second player of the same kind.
    if (!hasName(QDBusPendingReply<>(*answer).reply()))
      askForName(*bus_, playerName + u".instance%1"_s.arg(QCoreApplication::applicationPid()));
  });
}

void MprisService::keepUp() {
  parts_.nowPlaying.keepUp();
  // Another programme may have begun.
  tellSoon();
  minute_ = parts_.clock.callAfter(1min, [this] { keepUp(); });
}

void MprisService::tellSoon() {
  if (std::exchange(telling_, true)) return;
  QMetaObject::invokeMethod(this, &MprisService::tell, Qt::QueuedConnection);
}

void MprisService::tell() {
  telling_ = false;
  const std::optional<NowPlaying::Facts> facts = parts_.nowPlaying.facts();
  picture_.follow(facts ? facts->artwork : QUrl());
  for (Interface& interface : interfaces_) {
    const QVariantMap now = propertiesOf(*interface.adaptor);
    QVariantMap changed;
    for (const auto& [name, value] : now.asKeyValueRange())
      if (interface.told.value(name) != value) changed.insert(name, value);
    interface.told = now;
    if (changed.isEmpty()) continue;
    QDBusMessage change = QDBusMessage::createSignal(
        playerPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    change << interfaceOf(*interface.adaptor) << changed << QStringList();
    bus_->send(change);
  }
}

}  // namespace vantor
