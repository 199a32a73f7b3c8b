// Starts of the program in a session where it runs already, and where it cannot know.
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <QXmlStreamReader>
#include <random>

#include "program_fixture.h"

namespace vantor::test {
namespace {

class OneProgramTest : public ProgramFixture {
 protected:
  const QString name = ServiceValues::ofBuild().bundleIdentifier;
  const QString film = media("movie.mkv");
  const QVariantList filmToOpen{QStringList{QUrl::fromLocalFile(film).toString()}, QVariantMap()};

  /// Starts it, and waits until it has the name.
  bool startFirst() {
    return start() && eventually([this] { return owner() != 0; });
  }
  /// The process that has the name; 0: none.
  uint owner(const QDBusConnection& bus = QDBusConnection::sessionBus()) const {
    return bus.interface()->servicePid(name);
  }
  /// Starts it once more and waits for its end; what it said, and its status.
  QString startAgain(const QStringList& arguments) {
    QProcess second;
    startToo(second, arguments);
    if (!second.waitForFinished(20'000)) {
      kill(second);
      return u"does not end"_s;
    }
    return QString::fromUtf8(second.readAll()) + QString::number(second.exitCode());
  }
  /// Starts a session bus of its own in the environment; its address.
  QString startBus(QProcess& bus) {
    bus.setProcessEnvironment(environment);
    bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    EXPECT_TRUE(bus.waitForReadyRead(20'000));
    return QString::fromLatin1(bus.readAllStandardOutput().trimmed());
  }
  QDBusMessage request(const QString& method, const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(name, u"/tv/vantor/player"_s,
                                                          u"org.freedesktop.Application"_s, method);
    message.setArguments(arguments);
    return message;
  }
  /// The first one's answer: an error's name, or nothing.
  QString ask(const QString& method, const QVariantList& arguments) const {
    const QDBusMessage answer = QDBusConnection::sessionBus().call(request(method, arguments));
    return answer.errorName().section(u'.', -1);
  }
  /// Calls of every method that the first one has at the path and below, but for the one that ends
  /// it.
  void collectMethods(const QString& path, QList<QDBusMessage>& methods) const {
    const QDBusMessage answer = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        name, path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s));
    QXmlStreamReader tree(answer.arguments().value(0).toString());
    QString interface;
    while (!tree.atEnd()) {
      if (tree.readNext() != QXmlStreamReader::StartElement) continue;
      const QString found = tree.attributes().value(u"name"_s).toString();
      if (tree.name() == u"interface"_s) interface = found;
      if (tree.name() == u"method"_s && found != u"Quit"_s)
        methods.append(QDBusMessage::createMethodCall(name, path, interface, found));
      if (tree.name() == u"node"_s && !found.isEmpty())
        collectMethods(path.chopped(path.size() == 1) + u'/' + found, methods);
    }
  }
  /// What it plays, as it tells everyone.
  static QString title() {
    const QDBusInterface player(u"org.mpris.MediaPlayer2.vantor"_s, u"/org/mpris/MediaPlayer2"_s,
                                u"org.mpris.MediaPlayer2.Player"_s);
    return player.property("Metadata").toMap()[u"xesam:title"_s].toString();
  }
};

TEST_F(OneProgramTest, ALaterStartHandsOverWhatItWasAskedAndEnds) {
  saveAccount();
  ASSERT_TRUE(startFirst());
  EXPECT_EQ(owner(), program.processId());
  EXPECT_EQ(startAgain({}), u"0"_s);
  EXPECT_EQ(startAgain({u"--show"_s, u"movies"_s}), u"0"_s);
  EXPECT_EQ(startAgain({u"--show"_s, u"shows"_s, film}), u"0"_s);
  EXPECT_TRUE(eventually([&] { return hasOpen(film); }));
  EXPECT_TRUE(server.waitForRequests("get_series", 1, std::chrono::seconds(30)));
  EXPECT_TRUE(eventually([&] { return title() == u"movie"_s; }));
  EXPECT_EQ(startAgain({u"file:///nowhere/lost%20film.mkv"_s}), u"0"_s);
  EXPECT_TRUE(eventually([&] { return title() == u"lost film"_s; }));
  EXPECT_TRUE(startAgain({u"http://tv.example/1.ts"_s}).endsWith(u"1"_s));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(program.readAll(), QByteArray());
  EXPECT_EQ(owner(), 0U);
}

TEST_F(OneProgramTest, ManyStartsAtOnceLeaveOne) {
  ASSERT_TRUE(start());
  std::array<QProcess, 4> others;
  for (QProcess& other : others) {
    startToo(other);
    ASSERT_TRUE(other.waitForStarted());
  }
  const auto running = [&] {
    return (program.state() == QProcess::Running ? 1 : 0) +
           std::ranges::count(others, QProcess::Running, &QProcess::state);
  };
  EXPECT_TRUE(eventually([&] { return running() == 1 && owner() != 0; }));
  for (QProcess& other : others) {
    if (other.state() != QProcess::Running) {
      EXPECT_EQ(other.exitCode(), 0);
    }
    kill(other);
  }
}

TEST_F(OneProgramTest, IsolatedOnesStandAlone) {
  ASSERT_TRUE(start({u"--smoke-test"_s, film}));
  EXPECT_TRUE(eventually([&] { return title() == u"Local playback test"_s; }));
  EXPECT_EQ(owner(), 0U);
  QProcess proper;
  startToo(proper);
  EXPECT_TRUE(eventually([&] { return owner() == proper.processId(); }));
  EXPECT_EQ(startAgain({}), u"0"_s);
  kill(proper);
  EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(OneProgramTest, StartsBesideSomebodyElseWhoHasTheNameAndAnswersNothing) {
  ASSERT_TRUE(QDBusConnection::sessionBus().registerService(name));
  ASSERT_TRUE(start({film}));
  EXPECT_TRUE(eventually([&] { return title() == u"movie"_s; }));
  EXPECT_EQ(quit(), 0);
  QDBusConnection::sessionBus().unregisterService(name);
}

TEST_F(OneProgramTest, BearsRequestsAndCallsOfAnyKindAndOrder) {
  // Newer ones of Qt tell of each call that they refuse.
  environment.insert(u"QT_LOGGING_RULES"_s, u"qt.dbus.*=false"_s);
  environment.insert(u"HOME"_s, home.path());
  ASSERT_TRUE(startFirst());
  const QVariantMap token{{u"activation-token"_s, QString(10'000, u't')}};
  const QVariantMap strange{{u"activation-token"_s, QVariantMap{{u"a"_s, 1}}},
                            {u"desktop-startup-id"_s, 7}};
  const QVariant none = QVariant::fromValue(QVariantList());
  const std::tuple<QString, QVariantList, QString> rows[] = {
      {u"Activate"_s, {strange}, {}},
      {u"Activate"_s, {7}, u"UnknownMethod"_s},
      {u"Open"_s, {QStringList(), token}, u"InvalidArgs"_s},
      {u"Open"_s, {QStringList{u"http://tv.example/"_s}, token}, u"InvalidArgs"_s},
      {u"Open"_s, {QStringList{u"file:///%00"_s}, token}, u"InvalidArgs"_s},
      {u"Open"_s, {QStringList{u"file:///"_s + QString(100'000, u'x')}, strange}, {}},
      {u"Open"_s, {QStringList(10'000, u"file:///tmp"_s), strange}, {}},
      {u"ActivateAction"_s, {u"search"_s, none, strange}, {}},
      {u"ActivateAction"_s, {u"quit"_s, none, token}, u"InvalidArgs"_s},
      {u"Open"_s, filmToOpen, {}},
  };
  for (const auto& [method, arguments, error] : rows)
    EXPECT_EQ(ask(method, arguments), error) << method.toStdString() << " " << arguments.size();

  ASSERT_TRUE(eventually([&] { return title() == u"movie"_s; }));
  QList<QDBusMessage> methods;
  collectMethods(u"/"_s, methods);
  ASSERT_GT(methods.size(), 25);
  const QVariantList values =
      QVariantList{1, -1LL, 0.5, true, u"search"_s, u"org.mpris.MediaPlayer2.Player"_s} +
      QVariantList{QString(100'000, u'x'),
                   QStringList{u"a"_s, u"b"_s},
                   QVariantMap{{u"activation-token"_s, 1}},
                   QVariant::fromValue(QVariantList()),
                   QVariant::fromValue(QDBusObjectPath(u"/a"_s)),
                   QVariant::fromValue(QDBusVariant(3))};
  // In a fixed order that looks like none.
  std::minstd_rand random(7);
  const auto any = [&](const auto& list) { return list.at(qsizetype(random()) % list.size()); };
  QList<QDBusPendingCall> calls;
  for (int i = 0; i < 3'000; ++i) {
    QDBusMessage message = any(methods);
    QVariantList arguments;
    for (auto count = random() % 4; count > 0; --count) arguments.append(any(values));
    message.setArguments(arguments);
    calls.append(QDBusConnection::sessionBus().asyncCall(message));
    QDBusMessage pretended = QDBusMessage::createTargetedSignal(
        name, message.path(), message.interface(), u"NameOwnerChanged"_s);
    pretended.setArguments(arguments);
    QDBusConnection::sessionBus().send(pretended);
  }
  EXPECT_TRUE(eventually([&] {
    return std::ranges::all_of(calls, [](const auto& call) { return call.isFinished(); });
  }));
  EXPECT_EQ(ask(u"Open"_s, filmToOpen), QString());
  EXPECT_TRUE(eventually([&] { return title() == u"movie"_s; }));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(program.readAll(), QByteArray());
}

TEST_F(OneProgramTest, TheBusStartsItWhenSomebodyWantsIt) {
  environment.insert(u"XDG_DATA_DIRS"_s, home.filePath(u"system"_s));
  writeFile(home.filePath(u"system/dbus-1/services/%1.service"_s.arg(name)),
            "[D-BUS Service]\nName=" + name.toUtf8() + "\nExec=" VANTOR_PROGRAM "\n");
  QProcess bus;
  QDBusConnection other = QDBusConnection::connectToBus(startBus(bus), u"activation"_s);
  const QDBusMessage opened = other.call(request(u"Open"_s, filmToOpen));
  EXPECT_EQ(opened.errorMessage(), QString());
  const auto started = static_cast<pid_t>(owner(other));
  QDBusConnection::disconnectFromBus(u"activation"_s);
  ASSERT_GT(started, 0);
  EXPECT_TRUE(eventually([&] { return hasOpen(film, started); }));
  ::kill(started, SIGTERM);
  EXPECT_TRUE(eventually([&] { return !QFile::exists(u"/proc/%1"_s.arg(started)); }));
  kill(bus);
}

TEST_F(OneProgramTest, IsSeenByTheDesktopsControls) {
  ASSERT_TRUE(start({film}));
  const auto playerctl = [](const QStringList& arguments) {
    QProcess control;
    control.setProcessChannelMode(QProcess::MergedChannels);
    control.start(u"playerctl"_s, QStringList{u"--player=vantor"_s} + arguments);
    control.waitForFinished(20'000);
    return QString::fromUtf8(control.readAll()).trimmed();
  };
  EXPECT_TRUE(eventually([&] { return playerctl({u"status"_s}) == u"Playing"_s; }));
  // Which it has once it plays.
  EXPECT_TRUE(eventually([&] {
    return playerctl({u"metadata"_s, u"mpris:length"_s}).toLongLong() > 0;
  }));
  EXPECT_EQ(playerctl({u"metadata"_s, u"xesam:title"_s}), u"movie"_s);
  EXPECT_EQ(playerctl({u"position"_s, u"30"_s}), QString());
  EXPECT_TRUE(eventually([&] { return playerctl({u"position"_s}).toDouble() > 25; }));
  EXPECT_EQ(playerctl({u"volume"_s, u"0.25"_s}), QString());
  EXPECT_EQ(playerctl({u"volume"_s}).toDouble(), 0.25);
  for (const auto& [command, status] : {std::pair(u"pause"_s, u"Paused"_s),
                                        {u"play-pause"_s, u"Playing"_s},
                                        {u"stop"_s, u"Stopped"_s}}) {
    EXPECT_EQ(playerctl({command}), QString());
    EXPECT_EQ(playerctl({u"status"_s}), status);
  }
  EXPECT_EQ(quit(), 0);
}

TEST_F(OneProgramTest, GoesOnWhenTheBusEnds) {
  QProcess bus;
  environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, startBus(bus));
  ASSERT_TRUE(start({film}));
  ASSERT_TRUE(eventually([&] { return hasOpen(film); }));
  kill(bus);
  EXPECT_FALSE(program.waitForFinished(1'500));
  EXPECT_TRUE(hasOpen(film));
  EXPECT_EQ(quit(), 0);
}

}  // namespace
}  // namespace vantor::test
