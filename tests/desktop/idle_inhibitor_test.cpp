// Over the session bus that the tests run in, with the desktop's side of it made up.
#include "desktop/idle_inhibitor.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <map>

#include "desktop/own_bus.h"
#include "desktop/screen_awake.h"
#include "playback/playback_fixture.h"
#include "playback/stream_keeper.h"
#include "playback/video_frame_queue.h"
#include "support/fake_transport.h"

namespace vantor::test {
namespace {

enum class Manner { absent, answers, refuses, silent, talksNonsense };

const QString saverPath = u"/org/freedesktop/ScreenSaver"_s;
const QString managerPath = u"/org/gnome/SessionManager"_s;

const QString askedOfPortal = u"desktop Inhibit Inhibit sua{sv}  8 A picture is playing"_s;
const QString askedOfSaver =
    u"ScreenSaver ScreenSaver Inhibit ss Vantor Player A picture is playing"_s;
const QString askedOfManager =
    u"SessionManager SessionManager Inhibit susu tv.vantor.test 0 A picture is playing 8"_s;
const QString portalReleased = u"request Request Close "_s;
const QString saverReleased = u"ScreenSaver ScreenSaver UnInhibit u 7"_s;
const QString managerReleased = u"SessionManager SessionManager Uninhibit u 7"_s;

class IdleInhibitorTest : public PlaybackFixture {
 protected:
  DesktopObject services;
  std::map<QString, Manner> manners;  // of the services, by path
  QStringList log;                    // of the calls
  QList<QDBusMessage> late;           // the answers of the silent ones
  OwnBus desktop;
  std::unique_ptr<IdleInhibitor> inhibitor = std::make_unique<IdleInhibitor>(clock);

  void SetUp() override {
    services.onCall = [this](const QDBusMessage& call) { take(call); };
    desktop.connection.registerVirtualObject(u"/"_s, &services, QDBusConnection::SubPath);
  }

  void take(const QDBusMessage& call) {
    QStringList line{call.path().section(u'/', -1), call.interface().section(u'.', -1),
                     call.member(), call.signature()};
    for (const QVariant& argument : call.arguments())
      line.append(argument.userType() == qMetaTypeId<QDBusArgument>()
                      ? qdbus_cast<QVariantMap>(argument)[u"reason"_s].toString()
                      : argument.toString());
    log.append(line.join(u' '));
    if (call.member() != u"Inhibit"_s) return;
    const QVariant inhibition =
        call.path() == portalPath ? QVariant::fromValue(QDBusObjectPath(portalPath + u"/request"_s))
                                  : QVariant(7U);
    const Manner manner = manners[call.path()];
    if (manner == Manner::silent) late.append(call.createReply(inhibition));
    if (manner == Manner::answers) desktop.connection.send(call.createReply(inhibition));
    if (manner == Manner::talksNonsense) desktop.connection.send(call.createReply(u"nonsense"_s));
    if (manner == Manner::refuses)
      desktop.connection.send(call.createErrorReply(QDBusError::AccessDenied, u"no"_s));
  }

  void offer(Manner byPortal, Manner bySaver, Manner byManager) {
    manners = {{portalPath, byPortal}, {saverPath, bySaver}, {managerPath, byManager}};
    for (const auto& [path, manner] : manners) {
      const QString known = path == portalPath ? portalName : path.mid(1).replace(u'/', u'.');
      if (manner == Manner::absent)
        desktop.connection.unregisterService(known);
      else
        ASSERT_TRUE(desktop.connection.registerService(known)) << known.toStdString();
    }
  }
  void answerLate() {
    for (const QDBusMessage& answer : std::exchange(late, {})) desktop.connection.send(answer);
  }
  void join() { inhibitor->join(worker, u"tv.vantor.test"_s); }

  /// What has been asked since the last time, when all that is under way has arrived.
  QStringList asked() {
    // Each failure leads to another question.
    for (int times = 0; times < 6; ++times) desktop.arrive(QDBusConnection::sessionBus());
    return std::exchange(log, {});
  }
  struct Step {
    const char* name;
    std::function<void()> happens;
    QStringList asked;
  };
  void follow(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      SCOPED_TRACE(testing::Message() << "step " << &step - steps.data() << ": " << step.name);
      step.happens();
      EXPECT_TRUE(step.asked.isEmpty() || waitsFor(step.asked.last()));
      EXPECT_EQ(asked(), step.asked);
    }
  }
  bool waitsFor(const QString& line) {
    return eventually([&] { return log.contains(line); });
  }
};

TEST_F(IdleInhibitorTest, AsksTheFirstThatTakesIt) {
  using enum Manner;
  const std::tuple<Manner, Manner, Manner, QStringList, QStringList> rows[] = {
      {answers, answers, answers, {askedOfPortal}, {portalReleased}},
      {refuses, answers, answers, {askedOfPortal, askedOfSaver}, {saverReleased}},
      {talksNonsense, answers, answers, {askedOfPortal, askedOfSaver}, {saverReleased}},
      {refuses, refuses, answers, {askedOfPortal, askedOfSaver, askedOfManager}, {managerReleased}},
      {refuses, refuses, refuses, {askedOfPortal, askedOfSaver, askedOfManager}, {}},
  };
  join();
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const auto& [byPortal, bySaver, byManager, asking, releasing] = row;
    offer(byPortal, bySaver, byManager);
    inhibitor->setWanted(true);
    EXPECT_TRUE(waitsFor(asking.last())) << "once the bus is joined";
    inhibitor->setWanted(true);
    EXPECT_EQ(asked(), asking);
    EXPECT_TRUE(eventually([&] { return clock.waiting() == 0; })) << "the next would be asked, too";
    inhibitor->setWanted(false);
    inhibitor->setWanted(false);
    EXPECT_EQ(asked(), releasing);
  }
}

TEST_F(IdleInhibitorTest, AnswerThatComesLateIsReleased) {
  using enum Manner;
  offer(silent, answers, answers);
  join();
  const auto want = [this] { inhibitor->setWanted(true); };
  const auto release = [this] { inhibitor->setWanted(false); };
  const auto answer = [this] { answerLate(); };
  const auto waits = [this] { clock.advance(5s); };
  follow({
      {"wanted", want, {askedOfPortal}},
      {"not yet given up", [this] { clock.advance(4'999ms); }, {}},
      {"somebody else is asked", [this] { clock.advance(1ms); }, {askedOfSaver}},
      {"late", answer, {portalReleased}},
      {"released", release, {saverReleased}},
      {"wanted", want, {askedOfPortal}},
      {"no longer", release, {}},
      {"late", answer, {portalReleased}},
      {"wanted", want, {askedOfPortal}},
      {"wanted again", [&] { release(), want(); }, {}},
      {"late", answer, {}},
      {"released", release, {portalReleased}},
      {"nobody answers", [&] { manners[saverPath] = manners[managerPath] = silent; }, {}},
      {"wanted", want, {askedOfPortal}},
      {"waits", waits, {askedOfSaver}},
      {"waits", waits, {askedOfManager}},
      {"waits", waits, {}},
      {"released", [&] { release(), clock.advance(1h); }, {}},
  });
}

TEST_F(IdleInhibitorTest, FollowsServicesThatComeAndGo) {
  using enum Manner;
  const QStringList all{askedOfPortal, askedOfSaver, askedOfManager};
  const auto offers = [this](Manner byPortal, Manner bySaver, Manner byManager) {
    return [=, this] { offer(byPortal, bySaver, byManager); };
  };
  offer(refuses, refuses, answers);
  join();
  follow({
      {"wanted", [this] { inhibitor->setWanted(true); }, all},
      {"what held it has gone", offers(refuses, refuses, absent), {askedOfPortal, askedOfSaver}},
      {"somebody has come", offers(refuses, refuses, answers), all},
      {"another goes", offers(refuses, absent, answers), {}},
      {"another comes", offers(refuses, answers, answers), {}},
      {"released", [this] { inhibitor->setWanted(false); }, {managerReleased}},
      {"all go", offers(absent, absent, absent), {}},
      {"all come", offers(answers, answers, answers), {}},
  });
}

TEST_F(IdleInhibitorTest, ReleasesWhateverItHasAtItsEnd) {
  const auto wantAnother = [this] {
    inhibitor = std::make_unique<IdleInhibitor>(clock);
    join();
    inhibitor->setWanted(true);
  };
  const auto end = [this] { inhibitor.reset(); };
  offer(Manner::silent, Manner::answers, Manner::answers);
  follow({
      {"ends while it joins", [&] { wantAnother(), end(); }, {}},
      {"another asks", wantAnother, {askedOfPortal}},
      {"ends while it asks", [&] { end(), answerLate(), clock.advance(1h); }, {}},
      {"is answered from now on", [this] { manners[portalPath] = Manner::answers; }, {}},
      {"another asks", wantAnother, {askedOfPortal}},
      {"ends with what it has", end, {portalReleased}},
  });
}

TEST_F(IdleInhibitorTest, FollowsThePlayer) {
  using enum Manner;
  VideoFrameQueue frames;
  FakeTransport transport;
  StreamKeeper keeper(playback, engine, frames, transport, clock);
  ScreenAwake awake(playback, keeper, engine, *inhibitor);
  offer(refuses, answers, answers);
  join();
  const QStringList held{askedOfPortal, askedOfSaver};
  const QStringList released{saverReleased};
  const auto opens = [this](const QString& id, SourceKind kind = SourceKind::broadcast) {
    return [this, id, kind] {
      PlayRequest request = channel(id);
      request.kind = kind;
      open(request);
      clock.advance(200ms);  // in which a still of the last picture may be taken
    };
  };
  const auto shows = [this](EngineState state, int pictures = 1, int time = 0) {
    return [this, state, pictures, time] {
      engine.now.decodedVideo = pictures;
      engine.now.decodedAudio = 50;
      engine.now.time = time;
      see(state);
    };
  };
  const auto plays = shows(EngineState::playing);
  const auto pauses = [this] { playback.togglePause(); };
  follow({
      {"opens", opens(u"1"_s), {}},
      {"plays", plays, held},
      {"pauses", pauses, released},
      {"goes on", pauses, held},
      {"another channel", opens(u"2"_s), {}},
      {"plays", plays, {}},
      {"is interrupted", shows(EngineState::error), {}},
      {"is not to come back", [&] { keeper.giveUp(); }, released},
      {"opens again", opens(u"1"_s), {}},
      {"plays", plays, held},
      {"stops", [&] { playback.stop(); }, released},
      {"opens a radio channel", opens(u"3"_s), {}},
      {"sound alone", shows(EngineState::playing, 0, 2'000), {}},
      {"a picture joins it", shows(EngineState::playing, 1, 9'000), held},
      {"opens a film", opens(u"4"_s, SourceKind::onDemand), {}},
      {"it does not start", shows(EngineState::error, 0), released},
      {"opens another", opens(u"5"_s, SourceKind::onDemand), {}},
      {"plays", plays, held},
      {"ends", shows(EngineState::ended), released},
      {"opens an episode", opens(u"6"_s, SourceKind::onDemand), {}},
      {"plays", plays, held},
      {"another follows", [&] { awake.setContinues(true), shows(EngineState::ended)(); }, {}},
      {"it is not wanted", [&] { awake.setContinues(false); }, released},
  });
}

}  // namespace
}  // namespace vantor::test
