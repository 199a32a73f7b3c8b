#include "desktop/one_program.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QUrl>
#include <QVariantMap>
#include <algorithm>
#include <chrono>
#include <thread>

#include "desktop/application_object.h"
#include "desktop/bus.h"
#include "platform/launch_arguments.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto busPatience = 1s;
constexpr int programPatience = 5'000;  // milliseconds

/// "/tv/vantor/player" for "tv.vantor.player", as the interface has it.
QString objectPath(const QString& name) {
  return u'/' + QString(name).replace(u'.', u'/').replace(u'-', u'_');
}

/// What the command line asks for, in the order in which a first start does it.
QList<QDBusMessage> wishes(const QString& name, const LaunchArguments& launch,
                           const QByteArray& token) {
  QVariantMap platformData;
  if (!token.isEmpty()) {
    const QString text = QString::fromUtf8(token);
    platformData = {{u"activation-token"_s, text}, {u"desktop-startup-id"_s, text}};
  }
  const auto call = [&name](const QString& method) {
    return QDBusMessage::createMethodCall(name, objectPath(name), u"org.freedesktop.Application"_s,
                                          method);
  };
  QList<QDBusMessage> calls;
  if (!launch.show.isEmpty())
    calls << (call(u"ActivateAction"_s) << launch.show << QVariantList() << platformData);
  if (!launch.file.isEmpty())
    calls << (call(u"Open"_s) << QStringList{launch.file.toString(QUrl::FullyEncoded)}
                              << platformData);
  if (calls.isEmpty()) calls << (call(u"Activate"_s) << platformData);
  return calls;
}

}  // namespace

OneProgram::OneProgram(const QString& name, const std::shared_ptr<ApplicationObject>& object)
    : name_(name) {
  std::promise<Place> promise;
  answer_ = promise.get_future().share();
  std::thread([promise = std::move(promise), name, object]() mutable {
    promise.set_value(ask(name, *object));
  }).detach();
}

OneProgram::~OneProgram() {
  place();
}

OneProgram::Place OneProgram::ask(const QString& name, ApplicationObject& object) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return {};
  // Before it has the name, since calls may come right after that.
  bus.registerObject(objectPath(name), &object, QDBusConnection::ExportScriptableSlots);
  QDBusPendingReply<uint> answer = askForName(bus, name);
  answer.waitForFinished();
  if (answer.isError()) return {};
  return {hasName(answer.reply()) ? Rank::first : Rank::later, bus};
}

OneProgram::Place OneProgram::place() {
  return answer_.wait_for(busPatience) == std::future_status::ready ? answer_.get() : Place();
}

bool OneProgram::handOver(const LaunchArguments& launch, const QByteArray& token) {
  const Place found = place();
  if (found.rank != Rank::later) return false;
  return std::ranges::all_of(wishes(name_, launch, token), [&found](const QDBusMessage& wish) {
    return found.bus->call(wish, QDBus::Block, programPatience).type() ==
           QDBusMessage::ReplyMessage;
  });
}

void OneProgram::leave() {
  if (answer_.wait_for(0s) != std::future_status::ready) return;
  const Place found = answer_.get();
  if (found.rank == Rank::first) releaseName(*found.bus, name_);
}

}  // namespace vantor
