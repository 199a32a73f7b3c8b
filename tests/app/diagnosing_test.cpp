// What the program says and keeps for people who help, and that none of it tells of the user.

#include "program_fixture.h"

#include <QLocalServer>

#include <sys/resource.h>

namespace vantor::test {
namespace {

class DiagnosingTest : public ProgramFixture {
 protected:
  const QDir notes{home.filePath(u"state/Vantor Player"_s)};

  /// An account of a provider that does not answer, in whose name and address is a mark.
  void saveMarkedAccount() {
    const ProviderAccount account = ProviderAccount::validated(
        u"Jane's\nTV"_s, u"http://jane.invalid:9/jane"_s, u"jane"_s, u"jane secret"_s);
    secrets.write(account.toJSON(), providerItem, {});
  }
  QStringList reports(const char* ending) {
    return notes.entryList({u"crash-*."_s + QLatin1String(ending)}, QDir::Files);
  }
  void crash() {
    ::kill(static_cast<pid_t>(program.processId()), SIGSEGV);
    ASSERT_TRUE(program.waitForFinished(20'000));
    EXPECT_NE(program.exitCode(), 0);
  }
  static void expectParts(const QByteArray& text, std::initializer_list<const char*> parts) {
    for (const char* part : parts)
      EXPECT_TRUE(text.contains(part)) << part << " in " << text.constData();
  }
  void expectToTellNothing(const QByteArray& text) {
    for (const QByteArray& mark : {QByteArray("jane"), QByteArray("Jane"), home.path().toUtf8(),
                                   QByteArray::number(server.port())})
      EXPECT_FALSE(text.contains(mark)) << mark.constData() << " in " << text.constData();
  }
};

TEST_F(DiagnosingTest, ACrashLeavesAReportThatTheNextStartTells) {
  saveMarkedAccount();
  program.setChildProcessModifier([] {
    const rlimit none = {0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
  });
  ASSERT_TRUE(start());
  EXPECT_TRUE(
      eventually([&] { return readFile(notes.filePath(u"log"_s)).contains("vantor.provider"); }));
  crash();
  EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
  ASSERT_EQ(reports("new").size(), 1);
  const QByteArray report = readFile(notes.filePath(reports("new").front()));
  expectParts(report, {"SIGSEGV", "program: ", "libVLC: 3", "libQt6Core.so.6", " vantor+0x"});
  expectToTellNothing(report);
  expectToTellNothing(readFile(notes.filePath(u"log"_s)));

  ASSERT_TRUE(start({u"--demo"_s}));
  EXPECT_TRUE(eventually([&] { return answersSignals(); }));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(reports("new").size(), 1) << "an isolated run tells nothing";
  // Of whom there is nothing else to tell.
  saveAccount();
  ASSERT_TRUE(start());
  EXPECT_TRUE(eventually([&] { return reports("txt").size() == 1; }));
  EXPECT_EQ(quit(), 0);
}

TEST_F(DiagnosingTest, AnIsolatedRunLeavesNoReport) {
  ASSERT_TRUE(start({u"--demo"_s}));
  EXPECT_TRUE(eventually([&] { return answersSignals(); }));
  crash();
  EXPECT_FALSE(notes.exists());
}

TEST_F(DiagnosingTest, TellsWhatIsThereAndNothingOfTheUser) {
  saveMarkedAccount();
  const QString folder = home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s);
  writeFile(folder + u"/01234567-89AB-CDEF-0123-456789ABCDEF-live.bin"_s, QByteArray(4321, 'x'));
  environment.insert(u"HOME"_s, home.path());
  environment.insert(u"XDG_CURRENT_DESKTOP"_s, home.path());
  const QStringList before = files();
  const QByteArray told = said({u"--diagnose"_s});
  expectParts(told, {"desktop: ~,", "platform: ", "graphics: ", "plugins that are missing: none",
                     "keyring: unlocked", "saved account: there\n", "library of live: 4321 bytes",
                     "preferences: none", "reports of crashes: none", "~/state/Vantor Player"});
  EXPECT_FALSE(told.contains("01234567"));
  expectToTellNothing(told);
  EXPECT_EQ(files(), before);
}

TEST_F(DiagnosingTest, TellsWhatItCanWithoutADisplayAndWithABusThatSaysNothing) {
  QLocalServer bus;
  ASSERT_TRUE(bus.listen(home.filePath(u"bus"_s)));
  environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + bus.fullServerName());
  environment.insert(u"QT_QPA_PLATFORM"_s, u"none"_s);
  environment.insert(u"LC_ALL"_s, u"xx_YY.bogus"_s);
  expectParts(said({u"--diagnose"_s}), {"Qt cannot open a display", "Keyring\n  no answer",
                                        "libraries: none", "reports of crashes: none"});
}

}  // namespace
}  // namespace vantor::test
