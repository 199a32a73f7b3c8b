// The program as a process: what it plays at start, and that it ends well whatever it is doing.

#include "program_fixture.h"

#include <QFile>
#include <QLocalServer>

namespace vantor::test {
namespace {

using ProgramTest = ProgramFixture;

TEST_F(ProgramTest, QuitsWithTheSignInSheetOpen) {
  ASSERT_TRUE(start());
  // The window is up once the file of the preferences' folder is there; the sheet follows at once.
  EXPECT_TRUE(eventually([&] { return QDir(home.filePath(u"config/Vantor Player"_s)).exists(); }));
  program.waitForReadyRead(1500);
  EXPECT_EQ(program.readAll(), QByteArray()) << "a normal run says nothing";
  EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramTest, TellsWhichWritingSystemsHaveNoFont) {
  environment.insert(
      u"FONTCONFIG_FILE"_s,
      writeFile(home.filePath(u"fonts.conf"_s),
                "<fontconfig><dir>/usr/share/fonts/opentype/inter</dir></fontconfig>"));
  ASSERT_TRUE(start({u"--demo"_s}));
  QByteArray told;
  EXPECT_TRUE(eventually([&] { return (told += program.readAll()).contains("No font for"); }));
  for (const char* name : {"Arabic", "Chinese", "Japanese", "Korean"})
    EXPECT_TRUE(told.contains(name)) << name;
  EXPECT_FALSE(told.contains("Cyrillic"));
  EXPECT_TRUE(told.contains("symbols"));
  EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramTest, AnIsolatedOnePlaysAFileOfAnyNameInAnyEnvironmentAndAsksNobody) {
  saveAccount();
  const QString file = home.filePath(u"Ölfilm – 日本.mkv"_s);
  ASSERT_TRUE(QFile::copy(media("movie.mkv"), file));
  const QStringList locale{u"LC_ALL"_s, u"LANG"_s, u"LANGUAGE"_s};
  const std::pair<QStringList, QString> rows[] = {
      {{}, {}},
      {locale, u"xx_YY.UTF-8"_s},
      {locale, u"de_DE.KOI8-R@none"_s},
      {locale, u"/etc/passwd"_s},
      {locale, u"C"_s},
      {{u"DBUS_SESSION_BUS_ADDRESS"_s}, u"unix:path=/nonexistent"_s},
  };
  for (const auto& [variables, value] : rows) {
    SCOPED_TRACE(value.toStdString());
    for (const QString& variable : variables) environment.insert(variable, value);
    ASSERT_TRUE(start({u"--smoke-test"_s, file}));
    EXPECT_TRUE(eventually([&] { return hasOpen(file); }));
    EXPECT_EQ(quit(), 0);
  }
  EXPECT_EQ(server.counters().connectionsAccepted, 0);
  EXPECT_FALSE(QFile::exists(home.filePath(u"data/Vantor Player Mac Preview"_s)));
  EXPECT_FALSE(QFile::exists(home.filePath(u"config/Vantor Player"_s)));
}

TEST_F(ProgramTest, BringsTheNoticesOfWhatItIsMadeOf) {
  const QDir folder(
      QFileInfo(QStringLiteral(VANTOR_PROGRAM)).dir().filePath(u"../share/vantor/Licenses"_s));
  for (const char* part :
       {"Vantor Player", "ffmpeg", "fonts-inter", "fonts-noto", "icu", "libsecret", "openssl",
        "qcoro", "qt6-base", "qt6-declarative", "rapidjson", "simdjson", "vlc"}) {
    const QStringList notices = folder.entryList({QLatin1String(part) + u"*.txt"_s});
    ASSERT_FALSE(notices.isEmpty()) << part;
    EXPECT_GT(QFileInfo(folder.filePath(notices.front())).size(), 100) << part;
  }
}

TEST_F(ProgramTest, QuitsInTheMiddleOfAServiceCheckAndOfALoad) {
  saveAccount();
  for (const char* action : {"config", "get_live_streams"}) {
    server.resetCounters();
    server.hold(action);
    ASSERT_TRUE(start());
    EXPECT_TRUE(server.waitForRequests(action, 1, std::chrono::seconds(30))) << action;
    EXPECT_EQ(quit(), 0) << action;
    server.release(action);
  }
}

TEST_F(ProgramTest, QuitsWhileTheSessionBusSaysNothing) {
  QLocalServer bus;
  ASSERT_TRUE(bus.listen(home.filePath(u"bus"_s)));
  environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + bus.fullServerName());
  ASSERT_TRUE(start({u"--demo"_s}));
  ASSERT_TRUE(bus.waitForNewConnection(20'000));
#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
  ASSERT_TRUE(eventually([&] { return answersSignals(); }));
  EXPECT_EQ(quit(), 0);
#else
  // Qt waits for the bus before anything of ours runs; the signal just ends that.
  EXPECT_NE(quit(), -1);
#endif
}

TEST_F(ProgramTest, LoadsTheSavedAccountsLibraryAndKeepsItEncrypted) {
  saveAccount();
  ASSERT_TRUE(start());
  const QDir folder(home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s));
  EXPECT_TRUE(eventually([&] { return !folder.entryList({u"*-live.bin"_s}).isEmpty(); }));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(program.readAll(), QByteArray());
  const QByteArray password = QByteArray::fromStdString(options.password);
  for (const QString& file : files())
    for (const QByteArray& form : {password, password.toPercentEncoding()})
      EXPECT_FALSE(readFile(file).contains(form)) << file.toStdString();
}

TEST_F(ProgramTest, AnswersHelpAndVersionWithoutADisplayAndRefusesMistakes) {
  for (const QString& argument : {u"--help"_s, u"--version"_s, u"--demmo"_s}) {
    const bool mistake = argument == u"--demmo"_s;
    environment.insert(u"QT_QPA_PLATFORM"_s, mistake ? u"offscreen"_s : u"none"_s);
    const QByteArray told = said({u"-reverse"_s, argument}, mistake ? 1 : 0);
    EXPECT_TRUE(told.contains("vantor")) << told.constData();
    EXPECT_EQ(told.contains("'demmo'. See --help"), mistake) << told.constData();
  }
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(QLatin1String(display));
  EXPECT_TRUE(said({u"--demmo"_s}, 1).contains("'demmo'. See --help"));
  program.setStandardOutputFile(u"/dev/full"_s);
  said({u"--version"_s}, 1);
}

}  // namespace
}  // namespace vantor::test
