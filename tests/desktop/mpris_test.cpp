// Calls the player over the D-Bus session bus that the tests run in, from a connection of its own.
#include "desktop/mpris_service.h"

#include <QCoreApplication>
#include <QDBusArgument>
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
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const QString serviceName = u"org.mpris.MediaPlayer2.vantor"_s;

/// What the player has told of itself, as somebody who shows it keeps it.
class Follower final : public QObject {
  Q_OBJECT
 public:
  QVariantMap player;
  QVariantMap root;
  QStringList changes;  // names, of each message
  QList<qlonglong> seeks;
 public Q_SLOTS:
  void note(const QString& interface, const QVariantMap& changed, const QStringList&) {
    changes.append(QStringList(changed.keys()).join(u' '));
    (interface == playerInterface ? player : root).insert(changed);
  }
  void noteSeek(qlonglong position) { seeks.append(position); }
};

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
  QString address;  // of the program's connection
  Follower follower;

  void SetUp() override {
    signIn(rows(LibraryKind::live, 1, 3));
    appear();
    bus.connection.connect(address, playerPath, propertiesInterface, u"PropertiesChanged"_s,
                           &follower, SLOT(note(QString, QVariantMap, QStringList)));
    bus.connection.connect(address, playerPath, playerInterface, u"Seeked"_s, &follower,
                           SLOT(noteSeek(qlonglong)));
  }
  void appear() {
    service = std::make_unique<MprisService>(
        MprisService::Parts{app, nowPlaying, keeper, artwork, worker, clock, home.path(),
                            u"tv.vantor.player"_s},
        MprisRoot::Actions{[this] { ++raised; }, [this] { ++quits; }});
    service->offer(worker);
    address = QDBusConnection::sessionBus().baseService();
    ASSERT_TRUE(
        eventually([&] { return get(rootInterface, u"Identity"_s) == u"Vantor Player"_s; }));
  }

  QDBusMessage ask(const QString& interface, const QString& method,
                   const QVariantList& arguments = {}) {
    QDBusMessage call = QDBusMessage::createMethodCall(address, playerPath, interface, method);
    call.setArguments(arguments);
    return bus.answer(call);
  }
  static QString errorIn(const QDBusMessage& answer) {
    return answer.errorName().section(u'.', -1);
  }
  /// The error's name, or nothing.
  QString call(const QString& method, const QVariantList& arguments = {}) {
    return errorIn(ask(playerInterface, method, arguments));
  }
  QString set(const QString& property, const QVariant& value,
              const QString& interface = playerInterface) {
    const QVariant wanted = QVariant::fromValue(QDBusVariant(value));
    QString error = errorIn(ask(propertiesInterface, u"Set"_s, {interface, property, wanted}));
    const QStringList rates = engine.calls.filter(u"setRate "_s);
    if (!rates.isEmpty()) engine.now.rate = rates.last().section(u' ', 1).toDouble();
    clock.advance(250ms);
    return error;
  }
  static QVariant plain(const QVariant& value) {
    return value.userType() == qMetaTypeId<QDBusArgument>()
               ? QVariant(qdbus_cast<QVariantMap>(value.value<QDBusArgument>()))
               : value;
  }
  QVariant get(const QString& interface, const QString& property) {
    return plain(ask(propertiesInterface, u"Get"_s, {interface, property})
                     .arguments()
                     .value(0)
                     .value<QDBusVariant>()
                     .variant());
  }
  QVariant get(const QString& property) { return get(playerInterface, property); }
  QVariantMap metadata() { return get(u"Metadata"_s).toMap(); }
  QVariant trackID() { return metadata().value(u"mpris:trackid"_s); }
  QVariantMap all(const QString& interface) {
    return qdbus_cast<QVariantMap>(
        ask(propertiesInterface, u"GetAll"_s, {interface}).arguments().value(0));
  }
  /// The follower, when everything that was told so far has arrived.
  Follower& heard() {
    settle();
    bus.arrive(QDBusConnection::sessionBus());
    return follower;
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
    app.play(item(row));
    settle();
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
  const std::pair<QString, const char*> interfaces[] = {
      {rootInterface,
       "CanQuit b, CanRaise b, CanSetFullscreen b, DesktopEntry s, Fullscreen b, HasTrackList b, "
       "Identity s, SupportedMimeTypes as, SupportedUriSchemes as"},
      {playerInterface,
       "CanControl b, CanGoNext b, CanGoPrevious b, CanPause b, CanPlay b, CanSeek b, "
       "MaximumRate d, Metadata a{sv}, MinimumRate d, PlaybackStatus s, Position x, Rate d, "
       "Volume d"}};
  const QStringList settable = {u"Fullscreen"_s, u"Rate"_s, u"Volume"_s};
  for (const auto& [interface, properties] : interfaces) {
    QStringList found;
    for (const auto& [property, value] : all(interface).asKeyValueRange()) {
      const QString signature =
          value.userType() == qMetaTypeId<QDBusArgument>()
              ? value.value<QDBusArgument>().currentSignature()
              : QString::fromLatin1(QDBusMetaType::typeToSignature(value.metaType()));
      found.append(property + u' ' + signature);
      SCOPED_TRACE(property.toStdString());
      EXPECT_EQ(set(property, value, interface),
                settable.contains(property) ? QString() : u"PropertyReadOnly"_s);
      const QVariant ofNobodysType = QVariant::fromValue(QDBusSignature(u"a{sv}"_s));
      EXPECT_NE(set(property, ofNobodysType, interface), QString());
    }
    EXPECT_EQ(found.join(u", "_s), QLatin1String(properties));
    EXPECT_NE(set(u"Nothing"_s, 1, interface), QString());
  }
  EXPECT_EQ(get(rootInterface, u"DesktopEntry"_s), u"tv.vantor.player"_s);
}

TEST_F(MprisTest, CanDoWhatItSays) {
  const auto abilities = [this] {
    QStringList able;
    for (const char* ability :
         {"CanGoNext", "CanGoPrevious", "CanPlay", "CanPause", "CanSeek", "CanControl"})
      if (get(QLatin1String(ability)).toBool()) able.append(QLatin1String(ability).mid(3));
    return able.join(u' ');
  };
  const auto stands = [&](const QString& status, const QString& able) {
    EXPECT_EQ(heard().player.value(u"PlaybackStatus"_s, status), status) << "it was told";
    EXPECT_EQ(get(u"PlaybackStatus"_s), status);
    EXPECT_EQ(abilities(), able);
  };
  const QString none = u"Control"_s;
  const QString channel = u"GoNext GoPrevious Play Pause Control"_s;
  stands(u"Stopped"_s, none);
  EXPECT_EQ(metadata(), QVariantMap());
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
  call(u"Stop"_s);
  stands(u"Stopped"_s, none);
  EXPECT_EQ(metadata(), QVariantMap());

  ask(rootInterface, u"Raise"_s);
  ask(rootInterface, u"Quit"_s);
  EXPECT_EQ(std::pair(raised, quits), std::pair(1, 1));

  playMovieAt(20'000);
  stands(u"Playing"_s, u"Play Pause Seek Control"_s);
  see(EngineState::error, 20'000, 500'000);
  keeper.giveUp();
  stands(u"Stopped"_s, u"Play Pause Control"_s);
  call(u"Play"_s);
  stands(u"Playing"_s, u"Play Pause Control"_s);
  see(EngineState::playing, 0, 500'000);
  see(EngineState::ended, 500'000, 500'000);
  keeper.giveUp();
  EXPECT_EQ(get(u"PlaybackStatus"_s), u"Stopped"_s);
  call(u"PlayPause"_s);
  EXPECT_EQ(get(u"PlaybackStatus"_s), u"Playing"_s);
}

TEST_F(MprisTest, PlaysWhileAChannelIsOnItsWayBack) {
  playChannel(0);
  heard().changes.clear();
  see(EngineState::error, 500);
  clock.advance(1s);
  ASSERT_TRUE(keeper.bringingBack());
  EXPECT_EQ(get(u"PlaybackStatus"_s), u"Playing"_s);
  EXPECT_EQ(heard().changes, QStringList());
  call(u"Pause"_s);
  EXPECT_FALSE(keeper.bringingBack());
  EXPECT_NE(get(u"PlaybackStatus"_s), u"Playing"_s);
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
  EXPECT_EQ(get(u"CanGoNext"_s), false) << "a recording keeps the channel";
  EXPECT_EQ(playingAfter(u"Next"_s), u"live:3"_s);
  engine.onRecordingStopped({});
  EXPECT_EQ(get(u"CanGoNext"_s), true);

  always(LibraryKind::shows, rows(LibraryKind::shows, 1, 2));
  app.navigate(Section::shows);
  ASSERT_TRUE(idle());
  app.select(item(0));
  answerEpisodes(R"({"2":[{"id":"27","episode_num":7,"title":"Seventh"}],
                     "3":[{"id":"31","episode_num":1,"title":"First"}]})");
  app.play(app.details().episodes().first());
  settle();
  EXPECT_EQ(get(u"CanGoNext"_s), true);
  EXPECT_EQ(get(u"CanGoPrevious"_s), false);
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
  EXPECT_EQ(metadata()[u"xesam:album"_s], u"Title 1"_s);
  EXPECT_EQ(get(u"CanGoNext"_s), false);
  EXPECT_EQ(playingAfter(u"Next"_s), u"episode:31"_s);
  EXPECT_EQ(playingAfter(u"Previous"_s), u"episode:27"_s);
  playMovie();
  EXPECT_EQ(get(u"CanGoNext"_s), false);
}

TEST_F(MprisTest, TellsWhichProgrammeIsOn) {
  transport.onDemand(guideRequest);
  playChannel(0);
  EXPECT_EQ(metadata()[u"xesam:title"_s], u"Title 1"_s);
  EXPECT_FALSE(metadata().contains(u"mpris:length"_s));
  const QByteArray programmes = guide({{"News", -1min, 90s}, {"Film", 90s, 1h}});
  playOn(1min);
  ASSERT_TRUE(eventually([&] { return transport.open(guideRequest) == 1; }));
  follower.changes.clear();
  transport.answer(guideRequest, programmes);
  EXPECT_TRUE(eventually([&] { return metadata().value(u"xesam:title"_s) == u"News"_s; }));
  EXPECT_EQ(heard().changes, QStringList{u"Metadata"_s});
  playOn(1min);
  EXPECT_EQ(heard().changes.size(), 2);
  EXPECT_EQ(metadata().value(u"xesam:title"_s), u"Film"_s);
  playOn(10min);
  EXPECT_EQ(heard().changes.size(), 2) << "nothing else has changed";
}

TEST_F(MprisTest, ShowsThePictureAsAFileAndNoAddressOfTheProvider) {
  transport.always(u"poster.png"_s, pictureOf(Qt::green));
  MediaItem movie = entry(LibraryKind::movies, 7);
  movie.artwork = QUrl(u"http://tv.example/secret/poster.png"_s);
  app.play(movie);
  ASSERT_TRUE(eventually([&] { return metadata().contains(u"mpris:artUrl"_s); }));
  const QUrl picture(metadata()[u"mpris:artUrl"_s].toString());
  ASSERT_TRUE(picture.isLocalFile());
  EXPECT_EQ(QImage(picture.toLocalFile()).pixelColor(5, 5), QColor(Qt::green));
  EXPECT_EQ(QFile::permissions(picture.toLocalFile()) & ~(QFile::ReadUser | QFile::WriteUser),
            QFile::ReadOwner | QFile::WriteOwner);
  for (const QString& interface : {rootInterface, playerInterface}) {
    const QVariantMap values = all(interface);
    for (const auto& [property, value] : values.asKeyValueRange()) {
      QString text;
      QDebug(&text) << plain(value);
      EXPECT_FALSE(text.contains(u"tv.example"_s) || text.contains(u"secret"_s))
          << property.toStdString() << text.toStdString();
    }
  }
  app.play(entry(LibraryKind::movies, 8));
  heard();
  EXPECT_FALSE(metadata().contains(u"mpris:artUrl"_s));
  EXPECT_FALSE(QFile::exists(picture.toLocalFile()));
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
  heard().seeks.clear();
  follower.changes.clear();
  playOn(20s);
  call(u"Pause"_s);
  clock.advance(1min);
  call(u"Play"_s);
  engine.now.state = EngineState::playing;
  playOn(2s);
  EXPECT_TRUE(heard().seeks.isEmpty());
  EXPECT_EQ(follower.changes, (QStringList{u"PlaybackStatus"_s, u"PlaybackStatus"_s}));
  engine.now.time = 300'000;
  clock.advance(250ms);
  playOn(10s);
  EXPECT_EQ(heard().seeks, QList<qlonglong>{300'000'000});

  set(u"Rate"_s, 2.0);
  playOn(10s, 2);
  EXPECT_EQ(heard().seeks.size(), 1) << "twice as fast is no jump";
  follower.seeks.clear();

  // It takes its time, and begins elsewhere.
  app.play(entry(LibraryKind::movies, 3));
  settle();
  clock.advance(5s);
  EXPECT_TRUE(heard().seeks.isEmpty());
  EXPECT_EQ(get(u"Position"_s), 0LL);
  see(EngineState::playing, 100, 500'000);
  EXPECT_EQ(heard().seeks, QList<qlonglong>{100'000});
}

TEST_F(MprisTest, SetsRateVolumeAndFullScreen) {
  EXPECT_EQ(set(u"Fullscreen"_s, true, rootInterface), QString());
  EXPECT_EQ(get(rootInterface, u"Fullscreen"_s), false) << "there is nothing to see";
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
    heard().changes.clear();
    const bool differs = get(property) != becomes;
    EXPECT_EQ(set(property, value), QString());
    EXPECT_EQ(get(property), becomes) << value.toDouble();
    EXPECT_EQ(heard().changes, differs ? QStringList{property} : QStringList());
  }
  EXPECT_EQ(get(u"PlaybackStatus"_s), u"Playing"_s);
  set(u"Rate"_s, 0.0);
  EXPECT_EQ(get(u"PlaybackStatus"_s), u"Paused"_s);
  EXPECT_EQ(get(u"Rate"_s), 2.0);

  EXPECT_EQ(get(rootInterface, u"CanSetFullscreen"_s), true);
  set(u"Fullscreen"_s, true, rootInterface);
  EXPECT_TRUE(app.playback().fullScreen());
  EXPECT_EQ(heard().root[u"Fullscreen"_s], true);
  EXPECT_EQ(follower.root[u"CanSetFullscreen"_s], true);
  set(u"Fullscreen"_s, false, rootInterface);
  EXPECT_FALSE(app.playback().fullScreen());
  call(u"Stop"_s);
  EXPECT_EQ(get(rootInterface, u"CanSetFullscreen"_s), false);
}

TEST_F(MprisTest, OpensFilesOnly) {
  const QString file = writeFile(home.filePath(u"a film.mkv"_s));
  const QString good = QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
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
}

TEST_F(MprisTest, HasANameOfItsOwnWhenTheNameIsTaken) {
  EXPECT_TRUE(eventually([&] { return bus.owner(serviceName) == address; }));
  QDBusConnection::sessionBus().unregisterService(serviceName);
  ASSERT_TRUE(bus.connection.registerService(serviceName));
  service.reset();
  appear();
  const QString own =
      serviceName + u".instance"_s + QString::number(QCoreApplication::applicationPid());
  EXPECT_TRUE(eventually([&] { return bus.owner(own) == address; }));
  EXPECT_EQ(bus.owner(serviceName), bus.connection.baseService());
  QDBusConnection::sessionBus().unregisterService(own);
}

}  // namespace
}  // namespace vantor::test

#include "mpris_test.moc"
