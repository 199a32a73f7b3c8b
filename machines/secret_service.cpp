// The Secret Service in every manner that users meet it, at launch, at sign-in and at sign-out: the
// real model and libsecret over a bus of its own, with the service made up. VANTOR_SLOW says by how
// many seconds the slow one is late.
#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include "platform/secret_service_store.h"
#include "provider/error_wording.h"
#include "support/awaited.h"
#include "support/environment_number.h"
#include "support/model_fixture.h"

namespace vantor::machine {

/// As the interface has it on the bus.
struct BusSecret {
  QDBusObjectPath session;
  QByteArray parameters;
  QByteArray value;
  QString type;
};
using BusSecrets = QMap<QDBusObjectPath, BusSecret>;
using BusTexts = QMap<QString, QString>;
using BusPaths = QList<QDBusObjectPath>;

QDBusArgument& operator<<(QDBusArgument& to, const BusSecret& secret) {
  to.beginStructure();
  to << secret.session << secret.parameters << secret.value << secret.type;
  to.endStructure();
  return to;
}
const QDBusArgument& operator>>(const QDBusArgument& from, BusSecret& secret) {
  from.beginStructure();
  from >> secret.session >> secret.parameters >> secret.value >> secret.type;
  from.endStructure();
  return from;
}

}  // namespace vantor::machine

Q_DECLARE_METATYPE(vantor::machine::BusSecret)
Q_DECLARE_METATYPE(vantor::machine::BusSecrets)
Q_DECLARE_METATYPE(vantor::machine::BusTexts)

namespace vantor::machine {
namespace {

using namespace test;

const QString serviceName = u"org.freedesktop.secrets"_s;
const QString root = u"/org/freedesktop/secrets"_s;

const QString collection = root + u"/collection/login"_s;

enum class Manner {
  works,
  absent,
  locked,
  hidden,  // locked, and tells of no item before it is unlocked
  dismissed,
  hiddenAndDismissed,
  unanswered,
  otherType,
  slow,
  dies
};

/// What a desktop offers as its Secret Service.
class Service final : public QDBusVirtualObject {
 public:
  explicit Service(const QDBusConnection& bus) : bus_(bus) {
    bus_.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath);
  }

  struct Item {
    BusTexts attributes;
    QByteArray value;
  };
  std::map<QString, Item> items;  // by path

  void behave(Manner wanted) {
    manner_ = wanted;
    if (wanted == Manner::absent)
      bus_.unregisterService(serviceName);
    else
      bus_.registerService(serviceName);
  }
  QDBusObjectPath put(const QString& account, const QByteArray& value) {
    const QString path = collection + u'/' + QString::number(++made_);
    items[path] = {{{u"service"_s, u"tv.vantor.player"_s}, {u"account"_s, account}}, value};
    return QDBusObjectPath(path);
  }

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
    if (manner_ == Manner::dies) {
      // In the middle of a call, as the bus tells the caller.
      behave(Manner::absent);
      return bus_.send(call.createErrorReply(QDBusError::NoReply, u"it has gone"_s));
    }
    const bool isSlow = manner_ == Manner::slow && call.member() == u"SearchItems"_s;
    const int late = isSlow ? environmentNumber("VANTOR_SLOW", 1) : 0;
    QTimer::singleShot(late * 1000, this, [this, reply = replyTo(call)] { bus_.send(reply); });
    const bool answersPrompt = call.member() == u"Prompt"_s && manner_ != Manner::unanswered;
    if (answersPrompt || call.member() == u"Dismiss"_s)
      QTimer::singleShot(10, this, [this, prompt = call.path()] { complete(prompt); });
    return true;
  }

 private:
  bool locked() const {
    return manner_ == Manner::locked || manner_ == Manner::dismissed ||
           manner_ == Manner::unanswered || hides();
  }
  bool hides() const { return manner_ == Manner::hidden || manner_ == Manner::hiddenAndDismissed; }
  void complete(const QString& prompt) {
    const bool dismissed = manner_ != Manner::locked && manner_ != Manner::hidden;
    if (!dismissed) manner_ = Manner::works;
    auto completed =
        QDBusMessage::createSignal(prompt, u"org.freedesktop.Secret.Prompt"_s, u"Completed"_s);
    completed << dismissed
              << QVariant::fromValue(
                     QDBusVariant(QVariant::fromValue(dismissed ? BusPaths() : toUnlock_)));
    bus_.send(completed);
  }
  BusPaths matching(const BusTexts& wanted) const {
    BusPaths found;
    for (const auto& [path, item] : items)
      if (!wanted.contains(u"account"_s) || item.attributes[u"account"_s] == wanted[u"account"_s])
        found.append(QDBusObjectPath(path));
    return found;
  }
  QDBusMessage replyTo(const QDBusMessage& call);
  BusSecrets secrets(const BusPaths& paths, const QDBusObjectPath& session) const {
    BusSecrets found;
    for (const QDBusObjectPath& path : paths)
      if (const auto item = items.find(path.path()); item != items.end() && !locked())
        found[path] = {
            session,
            {},
            item->second.value,
            manner_ == Manner::otherType ? u"text/plain"_s : u"application/octet-stream"_s};
    return found;
  }

  QDBusConnection bus_;
  Manner manner_ = Manner::works;
  BusPaths toUnlock_;
  int made_ = 0;
};

QDBusMessage Service::replyTo(const QDBusMessage& call) {
  const QVariantList given = call.arguments();
  const QString what = call.member();
  const auto path = [](const QString& text) { return QVariant::fromValue(QDBusObjectPath(text)); };
  const auto answer = [&](const QVariantList& values) { return call.createReply(values); };
  const auto paths = [&](bool there, const BusPaths& list) {
    return QVariant::fromValue(there ? list : BusPaths());
  };
  const QString prompt = locked() ? root + u"/prompt/1"_s : u"/"_s;
  if (what == u"ReadAlias"_s) return answer({path(collection)});
  if (what == u"GetAll"_s && (call.path() == collection || items.contains(call.path())))
    return answer({QVariantMap{{u"Locked"_s, locked()}, {u"Label"_s, u"label"_s}}});
  if (what == u"GetAll"_s) return answer({QVariantMap()});
  if (what == u"OpenSession"_s && given.value(0) != u"plain"_s)
    return call.createErrorReply(QDBusError::NotSupported, u"plain only"_s);
  if (what == u"OpenSession"_s)
    return answer({QVariant::fromValue(QDBusVariant(QString())), path(root + u"/session/1"_s)});
  if (what == u"SearchItems"_s) {
    const BusPaths found = hides() ? BusPaths() : matching(qdbus_cast<BusTexts>(given.value(0)));
    return answer({paths(!locked(), found), paths(locked(), found)});
  }
  if (what == u"Unlock"_s) {
    toUnlock_ = qdbus_cast<BusPaths>(given.value(0));
    return answer({paths(!locked(), toUnlock_), path(toUnlock_.isEmpty() ? u"/"_s : prompt)});
  }
  if (what == u"GetSecrets"_s)
    return answer({QVariant::fromValue(
        secrets(qdbus_cast<BusPaths>(given.value(0)), given.value(1).value<QDBusObjectPath>()))});
  if (what == u"CreateItem"_s) {
    const auto wanted = qdbus_cast<QVariantMap>(given.value(0));
    const auto texts = qdbus_cast<BusTexts>(wanted[u"org.freedesktop.Secret.Item.Attributes"_s]);
    if (locked()) return answer({path(u"/"_s), path(prompt)});
    const auto made = put(texts[u"account"_s], qdbus_cast<BusSecret>(given.value(1)).value);
    return answer({QVariant::fromValue(made), path(prompt)});
  }
  if (what == u"SetSecret"_s)
    items[call.path()].value = qdbus_cast<BusSecret>(given.value(0)).value;
  if (what == u"Delete"_s) items.erase(call.path());
  return answer(what == u"Delete"_s ? QVariantList{path(u"/"_s)} : QVariantList());
}

/// The session's bus, with no services that it could start.
class PrivateBus {
 public:
  PrivateBus() {
    QFile file(folder_.filePath(u"bus.conf"_s));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(R"(<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
      <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/>
      <allow own="*"/></policy></busconfig>)");
    file.close();
    daemon_.start(u"dbus-daemon"_s,
                  {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + file.fileName()});
    EXPECT_TRUE(daemon_.waitForReadyRead(20'000));
    const QByteArray address = daemon_.readAllStandardOutput().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qDBusRegisterMetaType<BusSecret>();
    qDBusRegisterMetaType<BusSecrets>();
    qDBusRegisterMetaType<BusTexts>();
    connection = QDBusConnection::connectToBus(QString::fromLatin1(address), u"service"_s);
    EXPECT_TRUE(connection.isConnected());
  }
  ~PrivateBus() {
    QDBusConnection::disconnectFromBus(u"service"_s);
    daemon_.kill();
    daemon_.waitForFinished();
  }
  QDBusConnection connection{QString()};

 private:
  QTemporaryDir folder_;
  QProcess daemon_;
};

const QString notRead =
    u"Vantor could not read its saved account from Keychain. Allow access and try again."_s;
const QString notRemoved = u"The saved account could not be removed from Keychain."_s;
const QString waits = u"waits"_s;

struct SecretServiceMoments : public ::testing::Test {
  PrivateBus bus;
  Service service{bus.connection};
  SecretServiceStore store;
  std::unique_ptr<ModelFixture> program;

  /// What it waits for is called back.
  void quit() {
    if (!program) return;
    program->quit();
    awaited<Done>(program->secretsWorker.run([] {}));
    program.reset();
  }
  ~SecretServiceMoments() override { quit(); }
  void start(bool saved) {
    quit();
    service.items.clear();
    program = std::make_unique<ModelFixture>(ModelFixture::Parts{.credentials = &store});
    program->transport.always(QString(), ModelFixture::acceptedSignIn());
    service.put(catalogKeyItem, QByteArray(32, 'k'));
    if (saved) service.put(providerItem, program->account.toJSON());
  }
  /// Who is signed in and what was said; "waits" when it does not end as long as the user does
  /// nothing.
  QString outcome(Manner manner, const std::function<bool()>& ended,
                  const std::function<QString()>& sentence) {
    QElapsedTimer timer;
    timer.start();
    // The slow one is asked several times.
    bool over = false;
    for (int times = 0; times < 10 && !over; ++times)
      over = eventually(
          [&] { return ended() || (manner == Manner::unanswered && timer.hasExpired(300)); });
    if (!over || !ended()) return waits;
    return (program->model->session().account() ? u"in. "_s : u"out. "_s) + sentence();
  }
  QString notice() const { return program->model->notice().value_or(QString()); }

  QString launch(Manner manner, bool deleted) {
    start(!deleted);
    service.behave(manner);
    const Session& session = program->begin().session();
    return outcome(
        manner, [&] { return !session.startingUp(); }, [&] { return notice(); });
  }
  QString signIn(Manner manner, bool deleted) {
    start(false);
    program->launch();
    if (deleted) service.items.clear();
    service.behave(manner);
    const auto attempt = [&] {
      program->connectAccount(program->account);
      return outcome(
          manner, [&] { return program->signInOver; },
          [&] {
            return program->signInFailure ? readableError(program->signInFailure) : QString();
          });
    };
    QString result = attempt();
    if (result != waits) return result;
    // It can be given up, and tried again.
    program->signInJob.cancel();
    EXPECT_TRUE(eventually([&] { return program->signInOver; }));
    service.behave(Manner::works);
    EXPECT_EQ(attempt(), u"in. "_s);
    return result;
  }
  QString signOut(Manner manner, bool deleted) {
    start(true);
    const Session& session = program->launch().session();
    EXPECT_TRUE(session.account().has_value());
    if (deleted) service.items.clear();
    service.behave(manner);
    program->disconnectAccount();
    return outcome(
        manner, [&] { return !session.signingInOrOut(); }, [&] { return notice(); });
  }
};

TEST_F(SecretServiceMoments, EachEndsInASentenceOrWaitsForTheUser) {
  const QString in = u"in. "_s, out = u"out. "_s;
  const struct {
    const char* name;
    QString launch, signIn, signOut;
    Manner manner;
    bool deleted = false;
  } rows[] = {
      {"works", in, in, out, Manner::works},
      {"absent", out + notRead, out + notRead, in + notRemoved, Manner::absent},
      {"locked", in, in, out, Manner::locked},
      {"hidden", in, in, out, Manner::hidden},
      {"dismissed", out + notRead, out + notRead, in + notRemoved, Manner::dismissed},
      {"hidden and dismissed", out + notRead, out + notRead, in + notRemoved,
       Manner::hiddenAndDismissed},
      {"unanswered", waits, waits, waits, Manner::unanswered},
      {"dies", out + notRead, out + notRead, in + notRemoved, Manner::dies},
      {"deleted", out, in, out, Manner::works, true},
      {"other type", in, in, out, Manner::otherType},
      {"slow", in, in, out, Manner::slow},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    // Each is another program, which finds the service back.
    EXPECT_EQ(launch(row.manner, row.deleted).toStdString(), row.launch.toStdString());
    service.behave(Manner::works);
    EXPECT_EQ(signIn(row.manner, row.deleted).toStdString(), row.signIn.toStdString());
    service.behave(Manner::works);
    EXPECT_EQ(signOut(row.manner, row.deleted).toStdString(), row.signOut.toStdString());
    service.behave(Manner::works);
  }
}

}  // namespace
}  // namespace vantor::machine
