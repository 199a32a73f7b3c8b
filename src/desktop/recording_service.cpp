#include "desktop/recording_service.h"

#include <QDBusMessage>

#include "desktop/bus.h"
#include "playback/playback.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

const QString path = u"/tv/vantor/player/Recording"_s;
const QString interfaceName = u"tv.vantor.player.Recording"_s;
const QString refused = u"tv.vantor.player.Recording.Refused"_s;

}  // namespace

RecordingService::RecordingService(Playback& playback) : playback_(playback), notifier_(playback) {
  connect(&playback_.recording(), &Recording::stageChanged, this,
          [this] { announce(u"State"_s, state()); });
  connect(&playback_.recording(), &Recording::noticeChanged, this,
          [this] { announce(u"Notice"_s, notice()); });
}

void RecordingService::offer(Worker& worker, const QString& application) {
  offering_ =
      joinBus(worker, QDBusConnection::SessionBus,
              [this, application](const QDBusConnection& bus) { appear(bus, application); });
}

void RecordingService::appear(const QDBusConnection& bus, const QString& application) {
  bus_ = bus;
  notifier_.useBus(bus, application);
  bus_->registerObject(
      path, this,
      QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableProperties);
}

void RecordingService::Start() {
  if (const auto reason = playback_.startRecording()) refuse(*reason);
}

void RecordingService::Stop() {
  if (const auto reason = playback_.finishRecording()) refuse(*reason);
}

QStringList RecordingService::ListRecordings() {
  playback_.recording().refresh();
  QStringList paths;
  for (const QUrl& file : playback_.recording().files()) paths.append(file.toLocalFile());
  return paths;
}

QString RecordingService::state() const {
  switch (playback_.recording().stage()) {
    case Recording::Stage::running:
      return u"recording"_s;
    case Recording::Stage::saving:
      return u"saving"_s;
    case Recording::Stage::idle:
      break;
  }
  return u"idle"_s;
}

QString RecordingService::notice() const {
  return playback_.recording().notice().value_or(QString());
}

void RecordingService::announce(const QString& property, const QString& value) {
  if (!bus_) return;
  QDBusMessage change = QDBusMessage::createSignal(path, u"org.freedesktop.DBus.Properties"_s,
                                                   u"PropertiesChanged"_s);
  change << interfaceName << QVariantMap{{property, value}} << QStringList();
  bus_->send(change);
}

void RecordingService::refuse(const QString& reason) {
  if (calledFromDBus()) sendErrorReply(refused, reason);
}

}  // namespace vantor
