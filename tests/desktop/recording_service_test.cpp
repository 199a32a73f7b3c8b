// Calls the object over the D-Bus session bus that the tests run in, from a connection of its own.
#include "desktop/recording_service.h"

#include "desktop/own_bus.h"
#include "playback/playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

const QString path = u"/tv/vantor/player/Recording"_s;
const QString interfaceName = u"tv.vantor.player.Recording"_s;

class RecordingServiceTest : public PlaybackFixture {
 protected:
  DesktopObject desktop;
  OwnBus bus;
  RecordingService service{playback};

  void SetUp() override {
    service.offer(worker, u"tv.vantor.player"_s);
    ASSERT_TRUE(eventually([this] { return !call(u"ListRecordings"_s).startsWith(u"Unknown"_s); }));
    bus.follow(path, propertyInterface, u"PropertiesChanged"_s);
  }

  /// What the call returned, or the error and its sentence.
  QString call(const QString& method) {
    const QDBusMessage reply = bus.ask(path, interfaceName, method);
    if (reply.type() == QDBusMessage::ErrorMessage)
      return reply.errorName().section(u'.', -1) + u": "_s + reply.errorMessage();
    return reply.arguments().value(0).toStringList().join(u' ');
  }
  void playRecordable(const QString& id) {
    openPlaying(channel(id));
    engine.now.recordable = true;
  }
};

TEST_F(RecordingServiceTest, RecordsAndTellsOfEveryStep) {
  const QString running = u"Recording the current video. Stop recording before changing sources."_s;
  playRecordable(u"1"_s);
  EXPECT_EQ(call(u"Start"_s), QString());
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::running);
  EXPECT_EQ(call(u"Start"_s), u"Refused: "_s + running);
  EXPECT_EQ(call(u"Stop"_s), QString());
  EXPECT_EQ(call(u"Stop"_s), u"Refused: Saving recording…"_s);
  EXPECT_EQ(call(u"Start"_s), u"Refused: Saving recording…"_s);
  engine.onRecordingStopped(writeFile(playback.recording().folder() + u"/engine.ts"_s, "x"));
  ASSERT_EQ(playback.recording().files().size(), 1);
  const QString file = playback.recording().files().first().toLocalFile();
  EXPECT_EQ(call(u"ListRecordings"_s), file);
  ASSERT_TRUE(QFile::remove(file));
  EXPECT_EQ(call(u"ListRecordings"_s), QString()) << "looks again every time";
  EXPECT_EQ(bus.told(), (QStringList{u"State: recording"_s, u"Notice: "_s + running,
                                     u"State: saving"_s, u"Notice: Saving recording…"_s,
                                     u"State: idle"_s, u"Notice: Recording saved."_s}));
  EXPECT_EQ(bus.properties(path, interfaceName), bus.values[interfaceName]);
}

TEST_F(RecordingServiceTest, RefusesWithTheReason) {
  const QString notPlaying = u"Refused: Only what is playing can be recorded."_s;
  EXPECT_EQ(call(u"Start"_s), notPlaying);
  EXPECT_EQ(call(u"Stop"_s), u"Refused: Nothing is being recorded."_s);
  openPlaying(channel(u"1"_s));
  EXPECT_EQ(call(u"Start"_s), u"Refused: This source does not support recording."_s);
  playback.togglePause();
  EXPECT_EQ(call(u"Start"_s), notPlaying);
  see(EngineState::error);
  EXPECT_EQ(call(u"Start"_s), u"Refused: "_s + playback.message().value_or(QString()));
  open(channel(u"2"_s));
  engine.now.recordable = true;
  EXPECT_EQ(call(u"Start"_s), notPlaying) << "it opens";
  playRecordable(u"2"_s);
  EXPECT_EQ(call(u"Start"_s), QString());
  engine.recordingStops = false;
  EXPECT_EQ(call(u"Stop"_s),
            u"Refused: Recording could not be finalized. Check the recording folder."_s);
}

TEST_F(RecordingServiceTest, NotifiesOfWhatNoScreenShows) {
  const QString name = u"org.freedesktop.Notifications"_s;
  const QString object = u"/org/freedesktop/Notifications"_s;
  QStringList shown;  // what each replaces, says and offers; since the last look
  desktop.onCall = [&](const QDBusMessage& call) {
    const QVariantList arguments = call.arguments();
    shown.append(u"%1 %2 %3"_s.arg(arguments[1].toUInt())
                     .arg(arguments[4].toString(), arguments[5].toStringList().value(1)));
    bus.connection.send(call.createReply(7u));
  };
  const auto choose = [&](uint notification, const QString& action) {
    bus.connection.send(QDBusMessage::createSignal(object, name, u"ActionInvoked"_s)
                        << notification << action);
  };
  const auto shows = [&](const QStringList& texts) {
    EXPECT_TRUE(eventually([&] { return shown.size() >= texts.size(); }));
    EXPECT_EQ(std::exchange(shown, {}), texts);
  };
  const QString refused = u"7 Stop recording before changing sources. Stop Recording"_s;
  ASSERT_TRUE(bus.offer(name, object, desktop));
  playRecordable(u"1"_s);
  playback.startRecording();
  playback.play(channel(u"2"_s));  // before the desktop has answered
  shows({u"0 Recording the current video. Stop recording before changing sources. Stop Recording"_s,
         refused});
  playback.play(channel(u"2"_s));
  shows({refused});
  choose(8, u"finish"_s);
  choose(7, u"default"_s);
  bus.arrive();
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::running);
  choose(7, u"finish"_s);
  shows({u"7 Saving recording… "_s});
  EXPECT_EQ(engine.calls.count(u"stopRecording"_s), 1);
  engine.onRecordingStopped({});
  shows({u"7 No recording file was produced. This source may not support recording. "_s});
}

}  // namespace
}  // namespace vantor::test
