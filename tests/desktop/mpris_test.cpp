// Calls the player over the D-Bus session bus that the tests run in, from a connection of its own.
#include "desktop/mpris_service.h"

#include <QCoreApplication>
#include <QDBusMetaType>
#include <QFile>
#include <cmath>
#include <limits>

#include "artwork/artwork_store.h"
#include "core/episode_queue.h"
#include "core/now_playing.h"
#include "core/zapping.h"
#include "desktop/own_bus.h"
#include "playback/stream_keeper.h"
#include "playback/video_frame_queue.h"
#include "support/files.h"
#include "support/model_fixture.h"
#include "support/picture.h"

namespace vantor::test {
namespace {

const QString playerPath = u"/org/mpris/MediaPlayer2"_s;
const QString rootInterface = u"org.mpris.MediaPlayer2"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const QString serviceName = u"org.mpris.MediaPlayer2.vantor"_s;

class MprisTest : public ModelTest {
 protected:
  const Settled settled;
  OwnBus bus;
  AppModel& app = launch();
  VideoFrameQueue frames;
  StreamKeeper keeper{app.playback(), engine, frames, transport, clock};
  Zapping zapping{app, clock};
  EpisodeQueue episodes{app};
  NowPlaying nowPlaying{app, zapping, episodes, clock};
  ArtworkStore artwork{transport, clock, worker};
  int raised = 0;
  int quits = 0;
  std::unique_ptr<MprisService> service;

  void SetUp() override {
    signIn(rows(LibraryKind::live, 1, 3));
    appear();
    bus.follow(playerPath, propertyInterface, u"PropertiesChanged"_s);
    bus.follow(playerPath, playerInterface, u"Seeked"_s);
  }
  void appear() {
    service = std::make_unique<MprisService>(
        MprisService::Parts{app, nowPlaying, keeper, artwork, worker, clock, home.path(),
                            u"tv.vantor.player"_s},
        MprisRoot::Actions{[this] { ++raised; }, [this] { ++quits; }});
    service->offer(worker);
    ASSERT_TRUE(
        eventually([&] { return get(u"Identity"_s, rootInterface) == u"Vantor Player"_s; }));
  }

  /// The error's name, or nothing.
  QString call(const QString& method, const QVariantList& arguments = {},
               const QString& interface = playerInterface) {
    return bus.ask(playerPath, interface, method, arguments).errorName().section(u'.', -1);
  }
  QString set(const QString& property, const QVariant& value,
              const QString& interface = playerInterface) {
    const QVariantList arguments{interface, property, QVariant::fromValue(QDBusVariant(value))};
    QString error = call(u"Set"_s, arguments, propertyInterface);
    const QStringList rates = engine.calls.filter(u"setRate "_s);
    if (!rates.isEmpty()) engine.now.rate = rates.last().section(u' ', 1).toDouble();
    clock.advance(250ms);
    return error;
  }
  QVariant get(const QString& property, const QString& interface = playerInterface) {
    return bus.properties(playerPath, interface).value(property);
  }
  QVariantMap metadata() { return qdbus_cast<QVariantMap>(get(u"Metadata"_s)); }
  QVariant trackID() { return metadata().value(u"mpris:trackid"_s); }
  /// What it says it can do now.
  QString abilities() {
    QStringList able;
    for (const auto& [name, value] : bus.properties(playerPath, playerInterface).asKeyValueRange())
      if (name.startsWith(u"Can"_s) && value.toBool()) able.append(name.mid(3));
    return able.join(u' ');
  }

  void see(EngineState state, std::int64_t time, std::int64_t length = 0) {
    engine.now.state = state;
    engine.now.decodedVideo = 1;
    engine.now.time = time;
    engine.now.length = length;
    engine.now.seekable = length > 0;
    clock.advance(250ms);
  }
  void playChannel(std::size_t row) {
    play(item(row));
    clock.advance(300ms);
    see(EngineState::playing, 500);
  }
  void playMovieAt(std::int64_t time) {
    playMovie(time);
    see(EngineState::playing, time, 500'000);
  }
  /// Plays on for so long, as the engine would.
  void playOn(std::chrono::milliseconds length, double speed = 1) {
    for (auto passed = 0ms; passed < length; passed += 250ms) {
      engine.now.time += std::llround(250 * speed);
      ++engine.now.decoded;
      clock.advance(250ms);
    }
  }
  QString playingAfter(const QString& method) {
    call(method);
    clock.advance(250ms);
    return app.playback().itemID().value_or(QString());
  }
};

TEST_F(MprisTest, EveryPropertyHasTheTypeOfTheStandardAndOnlyThreeCanBeSet) {
  const std::pair<QString, QString> interfaces[] = {
      {rootInterface,
       u"CanQuit b, CanRaise b, CanSetFullscreen b, DesktopEntry s, Fullscreen b set, "
       "HasTrackList b, Identity s, SupportedMimeTypes as, SupportedUriSchemes as"_s},
      {playerInterface,
       u"CanControl b, CanGoNext b, CanGoPrevious b, CanPause b, CanPlay b, CanSeek b, "
       "MaximumRate d, Metadata a{sv}, MinimumRate d, PlaybackStatus s, Position x, Rate d set, "
       "Volume d set"_s}};
  for (const auto& [interface, properties] : interfaces) {
    QStringList found;
    for (const auto& [property, value] : bus.properties(playerPath, interface).asKeyValueRange()) {
      const QString signature =
          value.userType() == qMetaTypeId<QDBusArgument>()
              ? value.value<QDBusArgument>().currentSignature()
              : QString::fromLatin1(QDBusMetaType::typeToSignature(value.metaType()));
      const QString error = set(property, value, interface);
      found.append(property + u' ' + signature + (error.isEmpty() ? u" set"_s : QString()));
      SCOPED_TRACE(property.toStdString());
      EXPECT_TRUE(error.isEmpty() || error == u"PropertyReadOnly"_s);
      const QVariant ofNobodysType = QVariant::fromValue(QDBusSignature(u"a{sv}"_s));
      EXPECT_NE(set(property, ofNobodysType, interface), QString());
    }
    EXPECT_EQ(found.join(u", "_s), properties);
    EXPECT_NE(set(u"Nothing"_s, 1, interface), QString());
  }
  EXPECT_EQ(get(u"DesktopEntry"_s, rootInterface), u"tv.vantor.player"_s);
}

TEST_F(MprisTest, CanDoWhatItSays) {
  const auto stands = [&](const QString& status, const QString& able) {
    bus.told();
    EXPECT_EQ(bus.values[playerInterface].value(u"PlaybackStatus"_s, status), status)
        << "it was told";
    EXPECT_EQ(get(u"PlaybackStatus"_s), status);
    EXPECT_EQ(abilities(), able);
  };
  const QString none = u"Control"_s;
  const QString channel = u"Control GoNext GoPrevious Pause Play"_s;
  stands(u"Stopped"_s, none);
  for (const char* method : {"Next", "Previous", "Pause", "Play", "Stop"})
    EXPECT_EQ(call(QLatin1String(method)), QString()) << method;
  EXPECT_EQ(call(u"PlayPause"_s), u"NotSupported"_s);
  EXPECT_EQ(call(u"Seek"_s, {1'000'000LL}), QString());
  stands(u"Stopped"_s, none);

  playChannel(0);
  stands(u"Playing"_s, channel);
  const std::pair<const char*, QString> calls[] = {
      {"Pause", u"Paused"_s},     {"Pause", u"Paused"_s}, {"PlayPause", u"Playing"_s},
      {"PlayPause", u"Paused"_s}, {"Play", u"Playing"_s}, {"Play", u"Playing"_s}};
  for (const auto& [method, status] : calls) {
    call(QLatin1String(method));
    stands(status, channel);
  }
  see(EngineState::error, 500);
  clock.advance(1s);
  ASSERT_TRUE(keeper.bringingBack());
  EXPECT_EQ(bus.told(), QStringList()) << "it is on its way back";
  stands(u"Playing"_s, channel);
  call(u"Pause"_s);
  EXPECT_FALSE(keeper.bringingBack());
  stands(u"Paused"_s, channel);
  call(u"Stop"_s);
  stands(u"Stopped"_s, none);
  EXPECT_EQ(metadata(), QVariantMap());

  call(u"Raise"_s, {}, rootInterface);
  call(u"Quit"_s, {}, rootInterface);
  EXPECT_EQ(std::pair(raised, quits), std::pair(1, 1));

  playMovieAt(20'000);
  stands(u"Playing"_s, u"Control Pause Play Seek"_s);
  see(EngineState::error, 20'000, 500'000);
  keeper.giveUp();
  stands(u"Stopped"_s, u"Control Pause Play"_s);
  call(u"Play"_s);
  stands(u"Playing"_s, u"Control Pause Play"_s);
  see(EngineState::playing, 0, 500'000);
  see(EngineState::ended, 500'000, 500'000);
  keeper.giveUp();
  stands(u"Stopped"_s, u"Control Pause Play"_s);
  app.playback().togglePause();
  stands(u"Playing"_s, u"Control Pause Play"_s);
  engine.now.state = EngineState::ended;
  engine.announce();
  stands(u"Stopped"_s, u"Control Pause Play"_s);
  call(u"PlayPause"_s);
  stands(u"Playing"_s, u"Control Pause Play"_s);
  call(u"Stop"_s);
  stands(u"Stopped"_s, none);
}

TEST_F(MprisTest, GoesFromChannelToChannelAndFromEpisodeToEpisode) {
  playChannel(2);
  const QVariant track = trackID();
  EXPECT_EQ(track.userType(), qMetaTypeId<QDBusObjectPath>());
  EXPECT_EQ(playingAfter(u"Next"_s), u"live:1"_s);
  EXPECT_NE(trackID(), track);
  EXPECT_EQ(playingAfter(u"Previous"_s), u"live:3"_s);
  engine.now.recordable = true;
  see(EngineState::playing, 1'000);
  app.playback().startRecording();
  EXPECT_EQ(abilities(), u"Control Pause Play"_s) << "a recording keeps the channel";
  EXPECT_EQ(playingAfter(u"Next"_s), u"live:3"_s);
  engine.onRecordingStopped({});
  EXPECT_EQ(abilities(), u"Control GoNext GoPrevious Pause Play"_s);

  always(LibraryKind::shows, rows(LibraryKind::shows, 1, 2));
  app.navigate(Section::shows);
  ASSERT_TRUE(idle());
  app.select(item(0));
  answerEpisodes(R"({"2":[{"id":"27","episode_num":7,"title":"Seventh"}],
                     "3":[{"id":"31","episode_num":1,"title":"First"}]})");
  play(app.details().episodes().first());
  EXPECT_EQ(abilities(), u"Control GoNext Pause Play"_s);
  QVariantMap facts = metadata();
  EXPECT_TRUE(facts.take(u"mpris:trackid"_s).isValid());
  EXPECT_EQ(facts, (QVariantMap{{u"xesam:title"_s, u"Seventh"_s},
                                {u"xesam:album"_s, u"Title 1"_s},
                                {u"xesam:artist"_s, QStringList{u"Title 1"_s}},
                                {u"xesam:discNumber"_s, 2},
                                {u"xesam:trackNumber"_s, 7}}));
  app.select(item(1));
  answerEpisodes(R"({"1":[{"id":"91","episode_num":1},{"id":"92","episode_num":2}]})");
  EXPECT_EQ(playingAfter(u"Next"_s), u"episode:31"_s) << "of the show that plays";
  EXPECT_EQ(abilities(), u"Control GoPrevious Pause Play"_s);
  EXPECT_EQ(playingAfter(u"Next"_s), u"episode:31"_s);
  EXPECT_EQ(playingAfter(u"Previous"_s), u"episode:27"_s);
  playMovie();
  EXPECT_EQ(abilities(), u"Control Pause Play"_s);
}

TEST_F(MprisTest, TellsWhichProgrammeIsOn) {
  const auto tellsOf = [&](const QString& title) {
    return bus.told() == QStringList{u"Metadata: "_s} && metadata()[u"xesam:title"_s] == title;
  };
  transport.onDemand(guideRequest);
  playChannel(0);
  EXPECT_EQ(metadata()[u"xesam:title"_s], u"Title 1"_s);
  EXPECT_FALSE(metadata().contains(u"mpris:length"_s));
  const QByteArray programmes = guide({{"News", -1min, 90s}, {"Film", 90s, 1h}});
  playOn(1min);
  ASSERT_TRUE(eventually([&] { return transport.open(guideRequest) == 1; }));
  bus.told();
  transport.answer(guideRequest, programmes);
  EXPECT_TRUE(eventually([&] { return tellsOf(u"News"_s); }));
  playOn(1min);
  EXPECT_TRUE(tellsOf(u"Film"_s));
  playOn(10min);
  EXPECT_EQ(bus.told(), QStringList()) << "nothing else has changed";
}

TEST_F(MprisTest, ShowsThePictureAsAFileAndNoAddressOfTheProvider) {
  transport.always(u"poster.png"_s, pictureOf(Qt::green));
  MediaItem movie = entry(LibraryKind::movies, 7);
  movie.artwork = QUrl(u"http://tv.example/secret/poster.png"_s);
  app.play(movie);
  ASSERT_TRUE(eventually([&] { return metadata().contains(u"mpris:artUrl"_s); }));
  EXPECT_EQ(bus.told().count(u"Metadata: "_s), 2) << "of the movie and of its picture";
  QString told;
  QDebug(&told) << metadata() << bus.properties(playerPath, rootInterface)
                << bus.properties(playerPath, playerInterface);
  EXPECT_FALSE(told.contains(u"tv.example"_s) || told.contains(u"secret"_s)) << told.toStdString();
  const QString picture = QUrl(metadata()[u"mpris:artUrl"_s].toString()).toLocalFile();
  EXPECT_EQ(QImage(picture).pixelColor(5, 5), QColor(Qt::green));
  EXPECT_EQ(QFile::permissions(picture) & ~(QFile::ReadUser | QFile::WriteUser),
            QFile::ReadOwner | QFile::WriteOwner);
  app.play(entry(LibraryKind::movies, 8));
  bus.told();
  EXPECT_FALSE(metadata().contains(u"mpris:artUrl"_s));
  EXPECT_FALSE(QFile::exists(picture));
}

TEST_F(MprisTest, SeeksWithinTheTrackThatIsMeant) {
  playMovieAt(20'000);
  EXPECT_EQ(metadata()[u"mpris:length"_s], 500'000'000LL);
  EXPECT_EQ(get(u"Position"_s), 20'000'000LL);
  const QDBusObjectPath track = trackID().value<QDBusObjectPath>();
  const auto path = [](const QString& text) { return QVariant::fromValue(QDBusObjectPath(text)); };
  const std::tuple<const char*, QVariantList, QString> rows[] = {
      {"SetPosition", {path(track.path()), 100'000'000LL}, u"setTime 100000"_s},
      {"SetPosition", {path(track.path()), 0LL}, u"setTime 0"_s},
      {"SetPosition", {path(track.path()), 500'000'000LL}, u"setTime 500000"_s},
      {"SetPosition", {path(track.path()), 500'000'001LL}, {}},
      {"SetPosition", {path(track.path()), -1LL}, {}},
      {"SetPosition", {path(track.path() + u"1"_s), 100'000'000LL}, {}},
      {"SetPosition", {path(u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s), 1LL}, {}},
      {"Seek", {10'000'000LL}, u"setTime 30000"_s},
      {"Seek", {-10'000'000LL}, u"setTime 10000"_s},
      {"Seek", {-30'000'000LL}, u"setTime 0"_s},
      {"Seek", {std::numeric_limits<qlonglong>::min()}, u"setTime 0"_s},
      {"Seek", {std::numeric_limits<qlonglong>::max()}, {}},
  };
  for (const auto& [method, arguments, expected] : rows) {
    SCOPED_TRACE(testing::Message() << method << " " << arguments.last().toLongLong());
    see(EngineState::playing, 20'001, 500'000);  // the engine has been there
    see(EngineState::playing, 20'000, 500'000);
    engine.takeCalls();
    EXPECT_EQ(call(QString::fromLatin1(method), arguments), QString());
    EXPECT_EQ(engine.takeCalls(), expected.isEmpty() ? QStringList() : QStringList{expected});
  }
  see(EngineState::playing, 20'001, 500'000);
  call(u"Seek"_s, {10'000'000LL});
  engine.takeCalls();
  call(u"Seek"_s, {10'000'000LL});
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setTime 40001"_s}) << "skips add up";
}

TEST_F(MprisTest, TellsOfJumpsAndOfNothingElseOfThePosition) {
  playMovieAt(20'000);
  bus.told();
  playOn(20s);
  call(u"Pause"_s);
  clock.advance(1min);
  call(u"Play"_s);
  engine.now.state = EngineState::playing;
  playOn(2s);
  EXPECT_EQ(bus.told(), (QStringList{u"PlaybackStatus: Paused"_s, u"PlaybackStatus: Playing"_s}));
  engine.now.time = 300'000;
  clock.advance(250ms);
  playOn(10s);
  EXPECT_EQ(bus.told(), QStringList{u"Seeked: 300000000"_s});
  set(u"Rate"_s, 2.0);
  playOn(10s, 2);
  EXPECT_EQ(bus.told(), QStringList{u"Rate: 2"_s}) << "twice as fast is no jump";

  // It takes its time, and begins elsewhere.
  play(entry(LibraryKind::movies, 3));
  clock.advance(5s);
  EXPECT_EQ(bus.told().filter(u"Seeked"_s), QStringList());
  EXPECT_EQ(get(u"Position"_s), 0LL);
  see(EngineState::playing, 100, 500'000);
  EXPECT_EQ(bus.told().filter(u"Seeked"_s), QStringList{u"Seeked: 100000"_s});
}

TEST_F(MprisTest, SetsRateVolumeAndFullScreen) {
  EXPECT_EQ(set(u"Fullscreen"_s, true, rootInterface), QString());
  EXPECT_EQ(get(u"Fullscreen"_s, rootInterface), false) << "there is nothing to see";
  set(u"Rate"_s, 2.0);
  EXPECT_EQ(get(u"Rate"_s), 1.0);
  playMovieAt(20'000);
  const std::tuple<QString, QVariant, QVariant> rows[] = {
      {u"Volume"_s, 0.4, 0.4},
      {u"Volume"_s, -3.0, 0.0},
      {u"Volume"_s, 7.5, 1.0},
      {u"Volume"_s, std::nan(""), 1.0},
      {u"Volume"_s, -std::numeric_limits<double>::infinity(), 0.0},
      {u"Rate"_s, 1.25, 1.25},
      {u"Rate"_s, 0.001, 0.5},
      {u"Rate"_s, -1.0, 0.5},
      {u"Rate"_s, 1e300, 2.0},
      {u"Rate"_s, std::nan(""), 2.0},
  };
  for (const auto& [property, value, becomes] : rows) {
    bus.told();
    const bool differs = get(property) != becomes;
    EXPECT_EQ(set(property, value), QString());
    EXPECT_EQ(get(property), becomes) << value.toDouble();
    EXPECT_EQ(bus.told(),
              differs ? QStringList{property + u": "_s + becomes.toString()} : QStringList());
  }
  set(u"Rate"_s, 0.0);
  EXPECT_EQ(bus.told(), QStringList{u"PlaybackStatus: Paused"_s});
  EXPECT_EQ(get(u"Rate"_s), 2.0);

  for (const bool full : {true, false}) {
    set(u"Fullscreen"_s, full, rootInterface);
    EXPECT_EQ(app.playback().fullScreen(), full);
    EXPECT_EQ(bus.told(), QStringList{u"Fullscreen: "_s + QVariant(full).toString()});
    EXPECT_EQ(get(u"CanSetFullscreen"_s, rootInterface), true);
  }
  call(u"Stop"_s);
  EXPECT_TRUE(bus.told().contains(u"CanSetFullscreen: false"_s));
}

TEST_F(MprisTest, OpensFilesOnly) {
  const auto addressOf = [this](const QString& name) {
    return QUrl::fromLocalFile(writeFile(home.filePath(name))).toString(QUrl::FullyEncoded);
  };
  const QString good = addressOf(u"a film.mkv"_s);
  const std::pair<QString, QString> refused[] = {
      {u"http://tv.example/live/1.ts"_s, u"NotSupported"_s},
      {u"file:///nowhere/at/all.mkv"_s, u"InvalidArgs"_s},
      {u"file:///dev/zero"_s, u"InvalidArgs"_s},
  };
  for (const auto& [uri, error] : refused) {
    EXPECT_EQ(call(u"OpenUri"_s, {uri}), error) << uri.toStdString();
    EXPECT_EQ(app.playback().source(), std::nullopt);
  }
  EXPECT_EQ(call(u"OpenUri"_s, {good}), QString());
  EXPECT_EQ(metadata()[u"xesam:title"_s], u"a film"_s);
  EXPECT_EQ(metadata()[u"xesam:url"_s], good);
  const QVariant track = trackID();
  EXPECT_EQ(call(u"OpenUri"_s, {good}), QString());
  EXPECT_EQ(trackID(), track);
  EXPECT_EQ(call(u"OpenUri"_s, {addressOf(u"another.mkv"_s)}), QString());
  EXPECT_NE(trackID(), track);
}

TEST_F(MprisTest, HasANameOfItsOwnWhenTheNameIsTaken) {
  QDBusConnection program = QDBusConnection::sessionBus();
  const auto becomesOwner = [&](const QString& name) {
    return eventually([&] { return bus.owner(name) == program.baseService(); });
  };
  EXPECT_TRUE(becomesOwner(serviceName));
  program.unregisterService(serviceName);
  ASSERT_TRUE(bus.connection.registerService(serviceName));
  service.reset();
  appear();
  const QString own =
      serviceName + u".instance"_s + QString::number(QCoreApplication::applicationPid());
  EXPECT_TRUE(becomesOwner(own));
  EXPECT_EQ(bus.owner(serviceName), bus.connection.baseService());
  program.unregisterService(own);
}

}  // namespace
}  // namespace vantor::test
