#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "engine_fixture.h"
#include "playback/still.h"
#include "stream_server.h"
#include "support/picture.h"

namespace vantor::test {
namespace {

using EngineTest = EngineFixture;

const std::string notOpened =
    "This source could not be opened. It may be offline or your provider may be refusing the "
    "connection.";
const std::string endedEarly = "The source ended before playback could start.";

TEST_F(EngineTest, PlaysEveryContainer) {
  for (const QString& name : {u"a.ts"_s, u"a.mkv"_s, u"a.mp4"_s, u"a.avi"_s, u"a.m3u8"_s}) {
    SCOPED_TRACE(name.toStdString());
    ASSERT_TRUE(starts(movie(name)));
    const SharedFrame frame = frames->latest();
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->size(), QSize(320, 180));
    EXPECT_TRUE(eventually([&] { return playback.transport()->duration() > 2.5; }));
    EXPECT_LT(playback.transport()->duration(), 3.5);
    EXPECT_TRUE(playback.transport()->seekable());
    EXPECT_TRUE(eventually([&] { return playback.transport()->audio().size() == 1; }));
  }
}

TEST_F(EngineTest, PicturesKeepTheirShapeWithoutTheDecodersPadding) {
  if (libVLCInternals() == LibVLCInternals::left) GTEST_SKIP() << "with this version of libVLC";
  // The lower half is white from line 360 on; a stretched picture has that edge lower.
  const QString half =
      solidColor(u"black"_s, u"1280x720"_s, 2) +
      u" -vf drawbox=y=360:h=360:color=white:t=fill,setsar=4/3 -qp 4 -c:v libx264 -pix_fmt "_s;
  for (const QString& format : {u"yuv420p"_s, u"yuv420p10le"_s}) {
    for (const QString& name : {u"half.mkv"_s, u"half.ts"_s}) {
      SCOPED_TRACE((format + u' ' + name).toStdString());
      ASSERT_TRUE(starts(make(name, half + format)));
      const SharedFrame frame = frames->latest();
      ASSERT_TRUE(frame);
      EXPECT_EQ(frame->size(), QSize(1280, 720));
      EXPECT_NEAR(frame->pixelAspect, 4.0 / 3, 0.01);
      const VideoPlane& luma = frame->planes[0];
      const auto line = [&](int y) { return luma.data[y * luma.stride + 640]; };
      EXPECT_LT(line(358), 40);
      EXPECT_GT(line(361), 210);
    }
  }
}

TEST_F(EngineTest, ColorsAreTheSourcesHoweverItStoresThem) {
  if (libVLCInternals() == LibVLCInternals::left) GTEST_SKIP() << "with this version of libVLC";
  const struct {
    QString encoder;
    QString formats;
    bool isFull = false;
    QString size = u"320x180"_s;  // low enough for BT.601, which these do not name
  } cases[] = {
      {u"libx264"_s, u"yuv420p yuvj420p yuv422p yuvj422p yuvj444p"_s},
      {u"mjpeg"_s, u"yuvj422p yuvj444p"_s},
      {u"libx264"_s, u"yuv420p10le yuv422p10le"_s, true},
      {u"libvpx-vp9"_s, u"yuv420p yuv422p yuv444p"_s, true},
      {u"ffv1"_s, u"yuv444p"_s, true},
      {u"ffv1"_s, u"gray bgr0"_s},
      {u"png"_s, u"rgb24"_s, false, u"1280x720"_s},
      {u"libx264rgb"_s, u"rgb24"_s, false, u"1280x720"_s},
      {u"rawvideo"_s, u"nv12"_s},
  };
  frames->setShowsDeepSamples(true);
  for (const auto& row : cases)
    for (const QString& format : row.formats.split(u' '))
      for (const QString& color : {u"#ffffff"_s, u"#b03050"_s}) {
        if (format == u"gray"_s && color != u"#ffffff"_s) continue;
        SCOPED_TRACE((row.encoder + u' ' + format + u' ' + color).toStdString());
        const QString full = u" -vf scale=out_range=pc -color_range pc"_s;
        ASSERT_TRUE(
            starts(make(u"color.mkv"_s, solidColor(u"0x"_s + color.mid(1), row.size, 2) +
                                            u" -c:v %1 -pix_fmt %2"_s.arg(row.encoder, format) +
                                            (row.isFull ? full : QString()))));
        const SharedFrame frame = frames->latest();
        ASSERT_TRUE(frame);
        EXPECT_EQ(isDeep(frame->layout), format == u"yuv420p10le"_s) << "is taken as it comes";
        EXPECT_EQ(isInterleaved(frame->layout), format == u"nv12"_s);
        EXPECT_TRUE(isNear(stillOf(*frame, 16).pixelColor(8, 4), QColor(color), 5));
      }
}

TEST_F(EngineTest, EverySourceBeginsAtItsOwnSpeed) {
  const QString file = longFilm();
  const auto pace = [&] {
    const std::int64_t begin = engine.status().time;
    QElapsedTimer real;
    real.start();
    EXPECT_TRUE(eventually([&] { return engine.status().time > begin + 2'000; }));
    return static_cast<double>(engine.status().time - begin) / static_cast<double>(real.elapsed());
  };
  ASSERT_TRUE(starts(file));
  playback.setRate(2);
  const double fast = pace();
  ASSERT_TRUE(starts(file));
  EXPECT_LT(pace(), fast * 0.75);
}

TEST_F(EngineTest, OfManyOpeningsAtOnceOnlyTheLastConnects) {
  StreamServer server(readFile(movie(u"a.ts"_s)));
  int connections = 0;
  QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
  ASSERT_TRUE(starts(movie(u"b.mkv"_s)));
  for (char number = '1'; number <= '8'; ++number) {
    engine.load({.address = server.address(QByteArray("/") + number + ".ts")});
    engine.play();
  }
  EXPECT_TRUE(eventually([&] { return engine.status().decodedVideo > 0; }));
  // The first may have begun before there was a second.
  EXPECT_LE(connections, 2);
  ASSERT_FALSE(server.requests.isEmpty());
  EXPECT_EQ(server.requests.last().target, "/8.ts");
}

TEST_F(EngineTest, AudioAloneStartsWithoutAPicture) {
  ASSERT_TRUE(starts(make(u"a.mp3"_s, tone(4))));
  EXPECT_FALSE(frames->latest());
  EXPECT_GE(engine.status().time, 1001);
}

TEST_F(EngineTest, FailuresGetTheirSentences) {
  QByteArray noise(200'000, 0);
  std::uint32_t state = 1;
  for (char& byte : noise)
    byte = static_cast<char>((state = state * 1'664'525 + 1'013'904'223) >> 24);
  playFile(writeFile(path(u"garbage.ts"_s), noise));
  EXPECT_THAT(failure(), testing::AnyOf(notOpened, endedEarly));
  EXPECT_FALSE(engine.status().hasMedia);

  StreamServer gone({});
  const QUrl nobody = gone.address("/live/1.ts");
  gone.close();
  playAddress(nobody);
  EXPECT_EQ(failure(), notOpened);

  playAddress(QUrl::fromLocalFile(path(u"missing.mkv"_s)));
  EXPECT_EQ(failure(), notOpened);
}

TEST_F(EngineTest, StreamThatBreaksOffEndsAfterWhatItHad) {
  const QByteArray whole = readFile(movie(u"a.ts"_s));
  StreamServer server(whole.first(whole.size() / 2));
  server.promised = static_cast<int>(whole.size());
  playAddress(server.address("/a.ts"));
  ASSERT_TRUE(starts());
  EXPECT_TRUE(eventually([&] { return playback.paused(); })) << "no end was noticed";
  EXPECT_FALSE(playback.message());
}

TEST_F(EngineTest, AsksForTheAddressAsItIsEncodedAndWithTheUserAgent) {
  StreamServer server(readFile(movie(u"a.ts"_s)));
  const std::tuple<QByteArray, QString, bool> cases[] = {
      {"/live/us%2Fer/p%40ss%3Aw%25rd/7.ts", u"VantorPlayerMac/0.1.0"_s, true},
      {"/live/caf%C3%A9%20%2B/x%3Fy%23z/8.ts?a=%26b%3D",
       u"Mozilla/5.0 (X11; Linux, :sout=#x) Odd/1"_s, true},
      {"/live/u/p/9.ts", u"Agent\r\nX-Injected: yes"_s, false},
  };
  for (const auto& [target, agent, sendsAgent] : cases) {
    SCOPED_TRACE(target.toStdString());
    server.requests.clear();
    playAddress(server.address(target), agent);
    EXPECT_TRUE(starts());
    ASSERT_FALSE(server.requests.isEmpty());
    EXPECT_EQ(server.requests.first().target.toStdString(), target.toStdString());
    EXPECT_EQ(server.requests.first().head.contains("User-Agent: " + agent.toUtf8() + "\r\n"),
              sendsAgent)
        << server.requests.first().head.toStdString();
    EXPECT_FALSE(server.requests.first().head.contains("X-Injected"));
  }
}

TEST_F(EngineTest, EndsPausedAndPlaysAgain) {
  ASSERT_TRUE(starts(movie(u"a.mkv"_s)));
  playback.seek(2.5);
  ASSERT_TRUE(eventually([&] { return playback.paused(); }));
  EXPECT_FALSE(playback.message());
  EXPECT_EQ(engine.status().state, EngineState::ended);
  EXPECT_GT(playback.transport()->duration(), 2.5) << "is known to the end";
  playback.togglePause();
  EXPECT_TRUE(eventually([&] {
    const EngineStatus status = engine.status();
    return status.state == EngineState::playing && status.time > 0 && status.time < 2'000;
  }));
}

TEST_F(EngineTest, ResumesPausesAndSeeks) {
  playFile(longFilm(), 30);
  ASSERT_TRUE(starts());
  const TransportState& transport = *playback.transport();
  EXPECT_TRUE(eventually([&] { return transport.seconds() > 29; }));
  playback.seek(5);
  EXPECT_TRUE(eventually([&] { return transport.seconds() < 10 && transport.seconds() > 4; }));
  playback.togglePause();
  ASSERT_TRUE(eventually([&] { return engine.status().state == EngineState::paused; }));
  const std::int64_t time = engine.status().time;
  playback.togglePause();
  EXPECT_TRUE(eventually([&] { return engine.status().time > time; }));
  playback.setRate(2);
  playback.restart();
  EXPECT_TRUE(eventually([&] { return engine.status().time < 4'000; }));
}

TEST_F(EngineTest, TracksAreListedAndThoseChosenBeforeAreInForce) {
  const QString words =
      writeFile(path(u"words.srt"_s), "1\n00:00:00,000 --> 00:00:02,000\nWords\n");
  const auto spoken = [&](const QString& name, const QString& options) {
    return make(name,
                solidColor(u"red"_s, u"160x90"_s, 20) + tone(20) + tone(20) +
                    u" -i %1 -i %1 -map 0 -map 1 -map 2 "_s.arg(words) + options +
                    u" -metadata:s:a:0 language=eng -metadata:s:a:1 language=deu -c:v libx264"_s);
  };
  const QString film = spoken(u"film.mkv"_s,
                              u"-map 3 -map 4 -metadata:s:s:0 language=eng "
                              "-metadata:s:s:1 language=deu -disposition:s:0 default "
                              "-metadata:s:a:1 title=Two -metadata:s:s:0 title=Three"_s);
  const QString channel = spoken(u"channel.ts"_s, {});
  const QString playlist = u" -f hls -hls_playlist_type vod"_s;
  make(u"pictures.m3u8"_s,
       solidColor(u"red"_s, u"160x90"_s, 20) + u" -c:v libx264 -g 25"_s + playlist);
  for (const QString& sound : {u"eng.m3u8"_s, u"deu.m3u8"_s}) make(sound, tone(20) + playlist);
  const QString renditions = writeFile(path(u"renditions.m3u8"_s), R"(#EXTM3U
#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID="a",NAME="One",DEFAULT=YES,LANGUAGE="eng",URI="eng.m3u8"
#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID="a",NAME="Two",LANGUAGE="deu",URI="deu.m3u8"
#EXT-X-STREAM-INF:BANDWIDTH=90000,CODECS="avc1.64000b,mp4a.40.2",AUDIO="a"
pictures.m3u8
)");
  const TransportState& transport = *playback.transport();
  const auto language = [](const QList<EngineTrack>& tracks, int id) {
    const auto choice = choiceOf(id, tracks);
    return choice ? choice->language : u"(none)"_s;
  };
  const auto play = [&](const QString& file, const TrackChoices& choices) {
    playback.stop();
    playback.play({.url = QUrl::fromLocalFile(file), .id = file, .tracks = choices});
    ASSERT_TRUE(starts());
    ASSERT_TRUE(eventually([&] { return transport.seconds() > 1; }));
  };
  const TrackChoice german{.language = u"de"_s};
  play(film, {});
  ASSERT_TRUE(transport.audio().size() == 2 && transport.subtitles().size() == 2);
  EXPECT_TRUE(transport.audio().at(1).name.contains(u"Two"_s));
  EXPECT_TRUE(transport.subtitles().at(0).name.contains(u"Three"_s));
  EXPECT_NE(transport.audio().at(0).id, transport.audio().at(1).id);
  EXPECT_EQ(language(transport.audio(), transport.audioTrack()), u"en"_s);
  EXPECT_NE(transport.subtitleTrack(), -1) << "the film's own choice";
  play(film, {.audio = {german}, .subtitles = {german}});
  EXPECT_EQ(language(transport.audio(), transport.audioTrack()), u"de"_s);
  EXPECT_EQ(language(transport.subtitles(), transport.subtitleTrack()), u"de"_s);
  for (const QString& broadcast : {channel, renditions}) {
    play(broadcast, {.audio = {german}, .subtitles = {german}});
    EXPECT_EQ(language(transport.audio(), transport.audioTrack()), u"de"_s)
        << broadcast.toStdString();
  }
  play(film, {.audio = {german}, .subtitles = {{.off = true}}});
  EXPECT_EQ(transport.subtitleTrack(), -1);
}

TEST_F(EngineTest, HoldsTheLastPictureOfThePreviousSource) {
  const QString first = movie(u"red.mkv"_s);
  const QString second = movie(u"blue.mkv"_s, u"blue"_s);
  QList<QImage> held;
  QObject::connect(&playback, &Playback::heldFrameChanged,
                   [&] { held.append(playback.heldFrame()); });
  // A machine that needs longer for the picture than the next source is kept waiting goes without.
  for (int tries = 0; tries < 5 && held.size() != 2; ++tries) {
    ASSERT_TRUE(starts(first));
    held.clear();
    ASSERT_TRUE(starts(second));
  }
  ASSERT_EQ(held.size(), 2);
  EXPECT_EQ(held.at(0).size(), QSize(640, 360));
  EXPECT_TRUE(isNear(held.at(0).pixelColor(320, 180), Qt::red, 24));
  EXPECT_TRUE(held.at(1).isNull());
  EXPECT_TRUE(QDir(folder.path()).entryList({u"quillet-frame-*"_s}, QDir::Dirs).isEmpty());
}

/// A sound card whose devices write what they are given into files of their names.
class EngineTestWithCard : public EngineFixture {
 protected:
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");

  void SetUp() override {
    QString card = u"ctl.default { type hw card 0 }\n"_s;
    for (const QString& device : {u"default"_s, u"bar"_s})
      card +=
          u"pcm.%1 { type file slave.pcm { type null } format raw file %2 "
          "hint { show on description %1 } }\n"_s.arg(device, fileOf(device));
    qputenv("ALSA_CONFIG_PATH",
            QFile::encodeName(writeFile(path(u"asound.conf"_s), card.toUtf8())));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
  }
  void TearDown() override {
    runtime.isEmpty() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
    qunsetenv("ALSA_CONFIG_PATH");
  }
  void plugIn() {
    qunsetenv("VANTOR_AUDIO");
    qunsetenv("PULSE_SERVER");
    writeFile(path(u"pipewire-0"_s));
  }
  QString fileOf(const QString& device) const { return path(device + u".raw"_s); }
  qint64 heard(const QString& device) const { return QFile(fileOf(device)).size(); }
};

TEST_F(EngineTestWithCard, SoundGoesToADevicePluggedInLaterAndToTheOneThatIsChosenWithoutABreak) {
  const QString film = longFilm();
  EXPECT_TRUE(starts(film));
  EXPECT_EQ(heard(u"default"_s), 0);
  plugIn();
  EXPECT_TRUE(starts(film));
  ASSERT_TRUE(eventually([&] { return heard(u"default"_s) > 0; })) << "from the next source on";
  EXPECT_TRUE(eventually([&] {
    return std::ranges::count(engine.audioDevices().present, u"bar"_s, &AudioDevice::id) == 1;
  }));
  EXPECT_EQ(heard(u"bar"_s), 0);
  playback.setAudioDevice(u"bar"_s);
  const std::int64_t pictures = engine.status().picture.shown;
  EXPECT_TRUE(eventually([&] { return heard(u"bar"_s) > 0; }));
  EXPECT_TRUE(eventually([&] { return engine.status().picture.shown > pictures + 25; }));
  EXPECT_EQ(playback.state(), PlaybackState::playing);
  playback.stop();
  const qint64 before = heard(u"bar"_s);
  EXPECT_TRUE(starts(film));
  EXPECT_TRUE(eventually([&] { return heard(u"bar"_s) > 0 && heard(u"bar"_s) != before; }))
      << "the next source too";
  const qint64 usual = heard(u"default"_s);
  playback.setAudioDevice({});
  EXPECT_TRUE(eventually([&] { return heard(u"default"_s) != usual; }));
  playback.stop();
  EXPECT_TRUE(eventually([&] { return !engine.status().releasing; }));
}

TEST_F(EngineTest, SoundFollowsDevicesThatComeAndGo) {
  if (QStandardPaths::findExecutable(u"pulseaudio"_s).isEmpty())
    GTEST_SKIP() << "without a sound server of its own";
  const QString socket = path(u"native"_s);
  const QByteArray address = "unix:" + QFile::encodeName(socket);
  QProcess server;
  server.start(u"env"_s,
               {u"HOME="_s + folder.path(), u"XDG_RUNTIME_DIR="_s + folder.path(), u"pulseaudio"_s,
                u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s, u"--use-pid-file=no"_s,
                u"-L"_s, u"module-native-protocol-unix socket="_s + socket, u"-L"_s,
                u"module-null-sink sink_name=tv"_s});
  ASSERT_TRUE(eventually([&] { return QFile::exists(socket); }));
  const auto control = [&](QStringList arguments) {
    arguments = QStringList{u"--server"_s, QString::fromUtf8(address)} + arguments;
    EXPECT_EQ(QProcess::execute(u"pactl"_s, arguments), 0);
  };
  const auto goesTo = [&](const QString& device) {
    return eventually([&] { return playback.transport()->audioDevices().inForce == device; });
  };
  qputenv("PULSE_SERVER", address);
  qunsetenv("VANTOR_AUDIO");

  playback.setAudioDevice(u"bar"_s);
  EXPECT_TRUE(starts(longFilm()));
  EXPECT_TRUE(goesTo(u"tv"_s));
  for (int round = 0; round < 2; ++round) {
    control({u"load-module"_s, u"module-null-sink"_s, u"sink_name=bar"_s});
    EXPECT_TRUE(goesTo(u"bar"_s));
    // Modules are numbered as they come.
    control({u"unload-module"_s, QString::number(round + 2)});
    EXPECT_TRUE(goesTo(u"tv"_s));
    const std::int64_t pictures = engine.status().picture.shown;
    EXPECT_TRUE(eventually([&] { return engine.status().picture.shown > pictures + 25; }));
  }
  playback.stop();
  qunsetenv("PULSE_SERVER");
  server.terminate();
  EXPECT_TRUE(server.waitForFinished());
}

TEST_F(EngineTest, StatusIsNeverThatOfAnEarlierMedia) {
  const QString file = movie(u"a.mkv"_s);
  ASSERT_TRUE(starts(file));
  engine.unload();
  EXPECT_FALSE(engine.status().hasMedia);
  EXPECT_FALSE(frames->latest());
  for (int round = 0; round < 5; ++round) {
    engine.load({.address = QUrl::fromLocalFile(file)});
    EXPECT_EQ(engine.status().decodedVideo, 0);
    EXPECT_EQ(engine.status().state, EngineState::idle);
    EXPECT_FALSE(frames->latest());
    engine.play();
    EXPECT_TRUE(eventually([&] { return frames->latest() && engine.status().decodedVideo > 0; }));
  }
}

TEST_F(EngineTest, HeadlessDecodesWithoutShowing) {
  LibVLCEngine headless(frames, Output::discarded);
  headless.load({.address = QUrl::fromLocalFile(movie(u"a.mkv"_s))});
  headless.play();
  EXPECT_TRUE(eventually([&] {
    const EngineStatus status = headless.status();
    return status.decodedVideo > 0 && status.decodedAudio > 0;
  }));
  EXPECT_FALSE(frames->latest());
}

TEST_F(EngineTest, PlaysButRecordsNothingWithoutTheLibrarysInternals) {
  LibVLCEngine plain(frames, Output::shown, LibVLCInternals::left);
  const QString file = movie(u"a.mkv"_s);
  for (int round = 0; round < 2; ++round) {
    plain.load({.address = QUrl::fromLocalFile(file)});
    plain.play();
    ASSERT_TRUE(eventually([&] { return plain.status().decodedVideo > 0 && frames->latest(); }));
    EXPECT_FALSE(plain.status().recordable);
    EXPECT_FALSE(plain.startRecording(folder.path()));
    EXPECT_TRUE(isNear(stillOf(*frames->latest(), 16).pixelColor(8, 4), Qt::red, 24));
  }
}

TEST_F(EngineTest, SilentServerHoldsUpNeitherCommandsNorTheEnd) {
  QTcpServer silent;
  ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
  const QUrl address(u"http://127.0.0.1:%1/live/1.ts"_s.arg(silent.serverPort()));
  const QString file = movie(u"a.mkv"_s);
  playAddress(address);
  ASSERT_TRUE(eventually([&] { return silent.hasPendingConnections(); }));
  EXPECT_TRUE(starts(file));

  auto other = std::make_unique<LibVLCEngine>(frames, Output::shown);
  other->load({.address = address});
  other->play();
  ASSERT_TRUE(silent.nextPendingConnection());
  ASSERT_TRUE(eventually([&] { return silent.hasPendingConnections(); }));
  other.reset();
}

}  // namespace
}  // namespace vantor::test
