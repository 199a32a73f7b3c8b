// Calls the object over the D-Bus session bus that the tests run in, from a connection of its own.
#include "desktop/recording_service.h"

#include "desktop/own_bus.h"
#include "playback/playback_fixture.h"
#include "support/files.h"

namespace vantor::test {
namespace {

const QString path = u"/tv/vantor/player/Recording"_s;
const QString interfaceName = u"tv.vantor.player.Recording"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

class Changes final : public QObject {
  Q_OBJECT
 public:
  QStringList seen;
 public Q_SLOTS:
  void note(const QString& interface, const QVariantMap& changed, const QStringList&) {
    if (interface != interfaceName) return;
    for (auto [name, value] : changed.asKeyValueRange())
      seen.append(name + u": "_s + value.toString());
  }
};

/// The desktop's notifications.
class Notifications final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
 public:
  QStringList shown;  // what each replaces, says and offers
 public Q_SLOTS:
  Q_SCRIPTABLE uint Notify(const QString&, uint replaced, const QString&, const QString&,
                           const QString& body, const QStringList& actions, const QVariantMap&,
                           int) {
    shown.append(u"%1 %2 %3"_s.arg(replaced).arg(body, actions.value(1)));
    return 7;
  }
 Q_SIGNALS:
  Q_SCRIPTABLE void ActionInvoked(uint id, const QString& action);
};

class RecordingServiceTest : public PlaybackFixture {
 protected:
  OwnBus bus;
  QString address;  // of the service
  RecordingService service{playback};
  Changes changes;

  void SetUp() override {
    PlaybackFixture::SetUp();
    service.offer(worker, u"tv.vantor.player"_s);
    address = QDBusConnection::sessionBus().baseService();
    ASSERT_TRUE(eventually([this] { return !call(u"ListRecordings"_s).startsWith(u"Unknown"_s); }));
    bus.connection.connect(address, path, properties, u"PropertiesChanged"_s, &changes,
                           SLOT(note(QString, QVariantMap, QStringList)));
  }

  /// What the call returned, or the error and its sentence.
  QString call(const QString& method) {
    const QDBusMessage reply =
        bus.answer(QDBusMessage::createMethodCall(address, path, interfaceName, method));
    if (reply.type() == QDBusMessage::ErrorMessage)
      return reply.errorName().section(u'.', -1) + u": "_s + reply.errorMessage();
    return reply.arguments().value(0).toStringList().join(u' ');
  }
};

TEST_F(RecordingServiceTest, RecordsAndTellsOfEveryStep) {
  openPlaying(channel(u"1"_s));
  engine.now.recordable = true;
  EXPECT_EQ(call(u"Start"_s), QString());
  EXPECT_EQ(playback.recording().stage(), Recording::Stage::running);
  EXPECT_EQ(call(u"Start"_s),
            u"Refused: Recording the current video. Stop recording before changing sources."_s);
  EXPECT_EQ(call(u"Stop"_s), QString());
  EXPECT_EQ(call(u"Stop"_s), u"Refused: Saving recording…"_s);
  EXPECT_EQ(call(u"Start"_s), u"Refused: Saving recording…"_s);
  engine.onRecordingStopped(writeFile(playback.recording().folder() + u"/engine.ts"_s, "x"));
  ASSERT_EQ(playback.recording().files().size(), 1);
  EXPECT_EQ(call(u"ListRecordings"_s), playback.recording().files().first().toLocalFile());
  ASSERT_TRUE(QFile::remove(playback.recording().files().first().toLocalFile()));
  EXPECT_EQ(call(u"ListRecordings"_s), QString()) << "looks again every time";
  EXPECT_TRUE(eventually([&] { return changes.seen.size() == 6; }));
  EXPECT_EQ(changes.seen,
            (QStringList{u"State: recording"_s,
                         u"Notice: Recording the current video. Stop recording before changing "
                         "sources."_s,
                         u"State: saving"_s, u"Notice: Saving recording…"_s, u"State: idle"_s,
                         u"Notice: Recording saved."_s}));
  const QVariantMap all = qdbus_cast<QVariantMap>(
      bus.answer(QDBusMessage::createMethodCall(address, path, properties, u"GetAll"_s)
                 << interfaceName)
          .arguments()
          .value(0));
  EXPECT_EQ(all, (QVariantMap{{u"State"_s, u"idle"_s}, {u"Notice"_s, u"Recording saved."_s}}));
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
  EXPECT_EQ(engine.calls.filter(u"startRecording"_s).size(), 1) << "which the engine refused";

  openPlaying(channel(u"2"_s));
  engine.now.recordable = true;
  EXPECT_EQ(call(u"Start"_s), QString());
  engine.recordingStops = false;
  EXPECT_EQ(call(u"Stop"_s),
            u"Refused: Recording could not be finalized. Check the recording folder."_s);
}

TEST_F(RecordingServiceTest, NotifiesOfWhatNoScreenShows) {
  Notifications desktop;
  ASSERT_TRUE(bus.connection.registerObject(
      u"/org/freedesktop/Notifications"_s, &desktop,
      QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals));
  ASSERT_TRUE(bus.connection.registerService(u"org.freedesktop.Notifications"_s));
  QStringList expected;
  const auto shows = [&](const QString& text) {
    expected.append(text);
    EXPECT_TRUE(eventually([&] { return desktop.shown.size() == expected.size(); }));
    EXPECT_EQ(desktop.shown, expected);
  };
  openPlaying(channel(u"1"_s));
  engine.now.recordable = true;
  playback.startRecording();
  shows(u"0 Recording the current video. Stop recording before changing sources. Stop Recording"_s);
  for (int times = 0; times < 2; ++times) {
    playback.play(channel(u"2"_s));
    shows(u"7 Stop recording before changing sources. Stop Recording"_s);
  }
  Q_EMIT desktop.ActionInvoked(8, u"finish"_s);
  Q_EMIT desktop.ActionInvoked(7, u"default"_s);
  Q_EMIT desktop.ActionInvoked(7, u"finish"_s);
  shows(u"7 Saving recording… "_s);
  EXPECT_EQ(engine.calls.count(u"stopRecording"_s), 1);
  engine.onRecordingStopped({});
  shows(u"7 No recording file was produced. This source may not support recording. "_s);
}

}  // namespace
}  // namespace vantor::test

#include "recording_service_test.moc"
