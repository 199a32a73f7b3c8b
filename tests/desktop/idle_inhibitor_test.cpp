// Over the session bus that the tests run in, with the desktop's side of it made up.
#include "desktop/idle_inhibitor.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

#include "desktop/screen_awake.h"
#include "playback/playback_fixture.h"
#include "playback/stream_keeper.h"
#include "playback/video_frame_queue.h"
#include "support/fake_transport.h"

namespace vantor {
namespace {

using namespace test;

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
const QString kSaver = u"org.freedesktop.ScreenSaver"_s;
const QString kManager = u"org.gnome.SessionManager"_s;

enum class Manner { absent, answers, refuses, silent, talksNonsense };

/// What a service does with a call, and what it was asked.
class Service : public QObject, protected QDBusContext {
  Q_OBJECT
 public:
  explicit Service(QStringList& log) : log_(log) {}
  Manner manner = Manner::answers;
  QList<QDBusMessage> unanswered;
  QVariant inhibition;

  void answerLate() {
    for (const QDBusMessage& call : std::exchange(unanswered, {}))
      bus_.send(call.createReply(inhibition));
  }

 protected:
  template <class Inhibition>
  Inhibition take(const QString& call, const Inhibition& number) {
    log_.append(call);
    inhibition = QVariant::fromValue(number);
    if (manner == Manner::silent) {
      setDelayedReply(true);
      unanswered.append(message());
      bus_ = connection();
    }
    if (manner == Manner::refuses) sendErrorReply(QDBusError::AccessDenied, u"no"_s);
    if (manner == Manner::talksNonsense) {
      setDelayedReply(true);
      connection().send(message().createReply(u"nonsense"_s));
      connection().send(message().createReply(inhibition));
    }
    return number;
  }
  void note(const QString& call) { log_.append(call); }

 private:
  QStringList& log_;
  QDBusConnection bus_{QString()};
};

class Portal final : public Service {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")
 public:
  using Service::Service;
 public Q_SLOTS:
  Q_SCRIPTABLE QDBusObjectPath Inhibit(const QString& window, uint flags, const QVariantMap& more) {
    return take(u"portal %1 %2 %3"_s.arg(window).arg(flags).arg(more[u"reason"_s].toString()),
                QDBusObjectPath(u"/org/freedesktop/portal/desktop/request/me/1"_s));
  }
};

class PortalRequest final : public Service {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")
 public:
  using Service::Service;
 public Q_SLOTS:
  Q_SCRIPTABLE void Close() { note(u"portal released"_s); }
};

class Saver final : public Service {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
 public:
  using Service::Service;
 public Q_SLOTS:
  Q_SCRIPTABLE uint Inhibit(const QString& application, const QString& reason) {
    return take(u"saver %1 %2"_s.arg(application, reason), 7u);
  }
  Q_SCRIPTABLE void UnInhibit(uint cookie) { note(u"saver released %1"_s.arg(cookie)); }
};

class Manager final : public Service {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")
 public:
  using Service::Service;
 public Q_SLOTS:
  Q_SCRIPTABLE uint Inhibit(const QString& application, uint window, const QString& reason,
                            uint flags) {
    return take(u"manager %1 %2 %3 %4"_s.arg(application).arg(window).arg(reason).arg(flags), 9u);
  }
  Q_SCRIPTABLE void Uninhibit(uint cookie) { note(u"manager released %1"_s.arg(cookie)); }
};

const QString kByPortal = u"portal  8 A picture is playing"_s;
const QString kBySaver = u"saver Vantor Player A picture is playing"_s;
const QString kByManager = u"manager tv.vantor.test 0 A picture is playing 8"_s;
const QString kPortalReleased = u"portal released"_s;
const QString kSaverReleased = u"saver released 7"_s;
const QString kManagerReleased = u"manager released 9"_s;

class IdleInhibitorTest : public PlaybackFixture {
 protected:
  const QString name = u"idle inhibitor test"_s;
  QDBusConnection desktop = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
  QStringList log;
  Portal portal{log};
  PortalRequest request{log};
  Saver saver{log};
  Manager manager{log};
  std::unique_ptr<IdleInhibitor> inhibitor = std::make_unique<IdleInhibitor>(clock);

  void SetUp() override {
    ASSERT_TRUE(desktop.isConnected()) << "needs a session bus: run with scripts/private-desktop";
    const auto offer = [this](const QString& path, QObject& object) {
      desktop.registerObject(path, &object, QDBusConnection::ExportScriptableSlots);
    };
    offer(u"/org/freedesktop/portal/desktop"_s, portal);
    offer(u"/org/freedesktop/portal/desktop/request/me/1"_s, request);
    offer(u"/org/freedesktop/ScreenSaver"_s, saver);
    offer(u"/org/gnome/SessionManager"_s, manager);
  }
  ~IdleInhibitorTest() override {
    inhibitor.reset();
    QDBusConnection::disconnectFromBus(name);
  }

  void offer(Manner byPortal, Manner bySaver, Manner byManager) {
    const std::tuple<Service&, QString, Manner> all[] = {
        {portal, kPortal, byPortal}, {saver, kSaver, bySaver}, {manager, kManager, byManager}};
    for (const auto& [service, known, manner] : all) {
      service.manner = manner;
      if (manner == Manner::absent)
        desktop.unregisterService(known);
      else
        ASSERT_TRUE(desktop.registerService(known)) << known.toStdString();
    }
  }
  void join() { inhibitor->join(worker, u"tv.vantor.test"_s); }

  /// What has been asked since the last time, when all that is under way has arrived.
  QStringList asked() {
    // Each failure leads to another question.
    for (int times = 0; times < 6; ++times) {
      const QDBusMessage ping = QDBusMessage::createMethodCall(
          desktop.baseService(), u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
      const QDBusPendingCall call = QDBusConnection::sessionBus().asyncCall(ping);
      EXPECT_TRUE(eventually([&] { return call.isFinished(); }));
      settle();
    }
    return std::exchange(log, {});
  }
  bool waitsFor(const QString& line) {
    return eventually([&] { return log.contains(line); });
  }
};

TEST_F(IdleInhibitorTest, AsksTheFirstThatTakesIt) {
  using enum Manner;
  const struct {
    Manner portal;
    Manner saver;
    Manner manager;
    QStringList asked;
    QStringList released;
  } rows[] = {
      {answers, answers, answers, {kByPortal}, {kPortalReleased}},
      {refuses, answers, answers, {kByPortal, kBySaver}, {kSaverReleased}},
      {talksNonsense, answers, answers, {kByPortal, kBySaver}, {kSaverReleased}},
      {refuses, refuses, answers, {kByPortal, kBySaver, kByManager}, {kManagerReleased}},
      {refuses, refuses, refuses, {kByPortal, kBySaver, kByManager}, {}},
  };
  offer(answers, answers, answers);
  join();
  inhibitor->setWanted(true);
  EXPECT_TRUE(waitsFor(kByPortal));
  inhibitor->setWanted(false);
  EXPECT_EQ(asked(), (QStringList{kByPortal, kPortalReleased}));
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    offer(row.portal, row.saver, row.manager);
    inhibitor->setWanted(true);
    EXPECT_EQ(asked(), row.asked);
    inhibitor->setWanted(true);
    EXPECT_EQ(asked(), QStringList());
    inhibitor->setWanted(false);
    inhibitor->setWanted(false);
    EXPECT_EQ(asked(), row.released);
  }
}

TEST_F(IdleInhibitorTest, AnswerThatComesLateIsReleased) {
  using enum Manner;
  offer(silent, answers, answers);
  join();
  inhibitor->setWanted(true);
  ASSERT_TRUE(waitsFor(kByPortal));
  clock.advance(4'999ms);
  EXPECT_EQ(asked(), QStringList{kByPortal});
  clock.advance(1ms);
  EXPECT_EQ(asked(), QStringList{kBySaver}) << "somebody else is asked";
  portal.answerLate();
  EXPECT_EQ(asked(), QStringList{kPortalReleased});
  inhibitor->setWanted(false);
  EXPECT_EQ(asked(), QStringList{kSaverReleased});

  // It is no longer wanted when the answer comes.
  inhibitor->setWanted(true);
  EXPECT_EQ(asked(), QStringList{kByPortal});
  inhibitor->setWanted(false);
  EXPECT_EQ(asked(), QStringList());
  portal.answerLate();
  EXPECT_EQ(asked(), QStringList{kPortalReleased});

  // It is wanted again by then.
  inhibitor->setWanted(true);
  EXPECT_EQ(asked(), QStringList{kByPortal});
  inhibitor->setWanted(false);
  inhibitor->setWanted(true);
  portal.answerLate();
  EXPECT_EQ(asked(), QStringList());
  inhibitor->setWanted(false);
  EXPECT_EQ(asked(), QStringList{kPortalReleased});

  // Nobody ever answers.
  saver.manner = manager.manner = silent;
  inhibitor->setWanted(true);
  for (const QString& service : {kByPortal, kBySaver, kByManager}) {
    EXPECT_EQ(asked(), QStringList{service});
    clock.advance(5s);
  }
  EXPECT_EQ(asked(), QStringList());
  inhibitor->setWanted(false);
  clock.advance(1h);
  EXPECT_EQ(asked(), QStringList());
}

TEST_F(IdleInhibitorTest, FollowsServicesThatComeAndGo) {
  using enum Manner;
  offer(refuses, refuses, answers);
  join();
  inhibitor->setWanted(true);
  ASSERT_TRUE(waitsFor(kByManager));
  EXPECT_EQ(asked(), (QStringList{kByPortal, kBySaver, kByManager}));
  offer(refuses, refuses, absent);
  EXPECT_TRUE(waitsFor(kBySaver)) << "what held it has gone";
  EXPECT_EQ(asked(), (QStringList{kByPortal, kBySaver}));
  offer(refuses, refuses, answers);
  EXPECT_TRUE(waitsFor(kByManager)) << "somebody has come";
  EXPECT_EQ(asked(), (QStringList{kByPortal, kBySaver, kByManager}));
  offer(refuses, absent, answers);
  offer(refuses, answers, answers);
  EXPECT_EQ(asked(), QStringList()) << "it is held";
  inhibitor->setWanted(false);
  EXPECT_EQ(asked(), QStringList{kManagerReleased});
  offer(absent, absent, absent);
  offer(answers, answers, answers);
  EXPECT_EQ(asked(), QStringList()) << "it is not wanted";
}

TEST_F(IdleInhibitorTest, IsReleasedAtTheEnd) {
  offer(Manner::answers, Manner::answers, Manner::answers);
  join();
  inhibitor->setWanted(true);
  ASSERT_TRUE(waitsFor(kByPortal));
  asked();
  inhibitor.reset();
  EXPECT_EQ(asked(), QStringList{kPortalReleased});
}

TEST_F(IdleInhibitorTest, MayGoWhileItJoinsOrAsks) {
  offer(Manner::silent, Manner::answers, Manner::answers);
  join();
  inhibitor->setWanted(true);
  inhibitor.reset();
  EXPECT_EQ(asked(), QStringList());
  inhibitor = std::make_unique<IdleInhibitor>(clock);
  join();
  inhibitor->setWanted(true);
  ASSERT_TRUE(waitsFor(kByPortal));
  inhibitor.reset();
  portal.answerLate();
  clock.advance(1h);
  EXPECT_EQ(asked(), QStringList{kByPortal});
}

TEST_F(IdleInhibitorTest, FollowsThePlayer) {
  using enum Manner;
  VideoFrameQueue frames;
  FakeTransport transport;
  StreamKeeper keeper(playback, engine, frames, transport, clock);
  const ScreenAwake awake(playback, keeper, engine, *inhibitor);
  offer(refuses, answers, answers);
  join();
  const QStringList held{kByPortal, kBySaver};
  const QStringList released{kSaverReleased};
  const auto see = [this](EngineState state, std::int64_t pictures) {
    engine.now.state = state;
    engine.now.decodedVideo = pictures;
    clock.advance(250ms);
  };
  const auto starts = [&](const PlayRequest& opened) {
    open(opened);
    clock.advance(200ms);  // in which a still of the last picture may be taken
    see(EngineState::playing, 1);
  };
  PlayRequest broadcast = channel(u"1"_s);
  broadcast.kind = SourceKind::broadcast;
  using Step = std::function<void()>;
  const struct {
    const char* name;
    Step step;
    QStringList asked;
  } rows[] = {
      {"opens", [&] { open(broadcast); }, {}},
      {"plays", [&] { see(EngineState::playing, 1); }, held},
      {"pauses", [&] { playback.togglePause(); }, released},
      {"goes on", [&] { playback.togglePause(); }, held},
      {"another channel", [&] { starts(channel(u"2"_s)); }, {}},
      {"ends", [&] { see(EngineState::ended, 1); }, released},
      {"plays again", [&] { starts(broadcast); }, held},
      {"is interrupted", [&] { see(EngineState::error, 1); }, {}},
      {"is not to come back", [&] { keeper.giveUp(); }, released},
      {"plays again", [&] { starts(broadcast); }, held},
      {"stops", [&] { playback.stop(); }, released},
      {"sound alone",
       [&] {
         open(channel(u"3"_s));
         clock.advance(200ms);
         engine.now.decodedAudio = 50;
         engine.now.time = 2'000;
         see(EngineState::playing, 0);
       },
       {}},
      {"a picture joins it",
       [&] {
         engine.now.time = 9'000;
         see(EngineState::playing, 1);
       },
       held},
      {"the next one does not start",
       [&] {
         open(channel(u"4"_s));
         clock.advance(200ms);
         see(EngineState::error, 0);
       },
       released},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    row.step();
    if (!row.asked.isEmpty()) {
      EXPECT_TRUE(waitsFor(row.asked.last()));
    }
    EXPECT_EQ(asked(), row.asked);
  }
}

}  // namespace
}  // namespace vantor

#include "idle_inhibitor_test.moc"
