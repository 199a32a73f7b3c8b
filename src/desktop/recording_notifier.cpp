#include "desktop/recording_notifier.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

#include "desktop/bus.h"
#include "playback/playback.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

const QString notifications = u"org.freedesktop.Notifications"_s;
const QString notificationsPath = u"/org/freedesktop/Notifications"_s;
const QString finishAction = u"finish"_s;

}  // namespace

RecordingNotifier::RecordingNotifier(Playback& playback) : playback_(playback) {
  connect(&playback_.recording(), &Recording::noticeGiven, this, &RecordingNotifier::notify);
}

void RecordingNotifier::useBus(const QDBusConnection& bus, const QString& application) {
  bus_ = bus;
  application_ = application;
  hear(bus, notificationsPath, notifications, u"ActionInvoked"_s, this,
       SLOT(onAction(uint, QString)));
}

void RecordingNotifier::notify() {
  if (!bus_) return;
  again_ = asking_;
  if (std::exchange(asking_, true)) return;
  QStringList actions;
  if (playback_.recording().stage() == Recording::Stage::running)
    actions = {finishAction, tr("Stop Recording")};
  constexpr int asLongAsUsual = -1;
  QDBusMessage message =
      QDBusMessage::createMethodCall(notifications, notificationsPath, notifications, u"Notify"_s);
  message << u"Vantor Player"_s << shown_ << application_ << tr("Recording")
          << playback_.recording().notice().value_or(QString()) << actions
          << QVariantMap{{u"desktop-entry"_s, application_}} << asLongAsUsual;
  auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    const QDBusPendingReply<uint> reply = *answer;
    if (!reply.isError()) shown_ = reply.value();
    asking_ = false;
    if (std::exchange(again_, false)) notify();
  });
}

void RecordingNotifier::onAction(uint id, const QString& action) {
  if (id == shown_ && action == finishAction) playback_.finishRecording();
}

}  // namespace vantor
