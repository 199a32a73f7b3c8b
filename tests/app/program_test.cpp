// The program as a process: what it plays at start, and that it ends well whatever it is doing.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

#include "platform/secret_service_store.h"
#include "provider/provider_account.h"
#include "provider/service_values.h"
#include "sim/server.h"
#include "storage/secure_store.h"
#include "support/waiting.h"

namespace vantor {
namespace {

using test::eventually;

sim::Options withStreams() {
  sim::Options options;
  options.mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString();
  return options;
}

class ProgramTest : public ::testing::Test {
 protected:
  sim::Options options = withStreams();
  sim::Server server{options};
  QTemporaryDir home;
  QProcess program;
  SecretServiceStore credentials;
  SecureStore secrets{credentials, ServiceValues::ofBuild().bundleIdentifier};

  void TearDown() override {
    program.kill();
    program.waitForFinished();
    secrets.remove(providerItem, {});
  }
  void saveAccount() {
    const ProviderAccount account = ProviderAccount::validated(
        QStringLiteral("Vantor TV"), QString::fromStdString(server.url()),
        QString::fromStdString(options.username), QString::fromStdString(options.password));
    secrets.write(account.toJSON(), providerItem, {});
  }
  bool start(const QStringList& arguments = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VANTOR_CONFIG_URL"),
                       QString::fromStdString(server.configUrl()));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("VANTOR_AUDIO"), QStringLiteral("none"));
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(VANTOR_PROGRAM), arguments);
    return program.waitForStarted();
  }
  /// Whether the process has the file open.
  bool hasOpen(const QString& path) {
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(program.processId()));
    for (const QFileInfo& entry : descriptors.entryInfoList(QDir::Files | QDir::System))
      if (entry.symLinkTarget() == path) return true;
    return false;
  }
  /// Ends it as the desktop does; how it ended.
  int quit() {
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    if (!program.waitForFinished(20'000)) return -1;
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -2;
  }
};

TEST_F(ProgramTest, QuitsWithAPlayingFile) {
  const QString file = QString::fromStdString(server.mediaPath("movie.mkv"));
  ASSERT_TRUE(start({QStringLiteral("--smoke-test"), file}));
  EXPECT_TRUE(eventually([&] { return hasOpen(QFileInfo(file).canonicalFilePath()); }));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(server.counters().connectionsAccepted, 0) << "an isolated run asks nobody";
  EXPECT_FALSE(QFile::exists(home.filePath(QStringLiteral("data/Vantor Player Mac Preview"))));
}

TEST_F(ProgramTest, QuitsWithTheSignInSheetOpen) {
  ASSERT_TRUE(start());
  // The window is up once the file of the preferences' folder is there; the sheet follows at once.
  EXPECT_TRUE(eventually(
      [&] { return QDir(home.filePath(QStringLiteral("config/Vantor Player"))).exists(); }));
  program.waitForReadyRead(1500);
  EXPECT_EQ(program.readAll(), QByteArray()) << "a normal run says nothing";
  EXPECT_EQ(quit(), 0);
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

TEST_F(ProgramTest, LoadsTheSavedAccountsLibraryAndKeepsItEncrypted) {
  saveAccount();
  ASSERT_TRUE(start());
  const QDir folder(home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog")));
  EXPECT_TRUE(
      eventually([&] { return !folder.entryList({QStringLiteral("*-live.bin")}).isEmpty(); }));
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(program.readAll(), QByteArray());
  const QByteArray password = QByteArray::fromStdString(options.password);
  QDir data(home.path());
  QStringList folders{home.path()};
  while (!folders.isEmpty()) {
    const QDir next(folders.takeFirst());
    for (const QFileInfo& entry : next.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
      if (entry.isDir()) {
        folders.append(entry.filePath());
        continue;
      }
      QFile file(entry.filePath());
      ASSERT_TRUE(file.open(QFile::ReadOnly));
      const QByteArray content = file.readAll();
      EXPECT_FALSE(content.contains(password)) << entry.filePath().toStdString();
      EXPECT_FALSE(content.contains(password.toPercentEncoding()))
          << entry.filePath().toStdString();
    }
  }
}

TEST_F(ProgramTest, ShowsThePreviewWithoutAskingAnyone) {
  saveAccount();
  ASSERT_TRUE(start({QStringLiteral("--demo")}));
  program.waitForReadyRead(2000);
  EXPECT_EQ(program.readAll(), QByteArray());
  EXPECT_EQ(quit(), 0);
  EXPECT_EQ(server.counters().connectionsAccepted, 0);
}

TEST_F(ProgramTest, AnswersHelpAndVersion) {
  for (const char* argument : {"--help", "--version"}) {
    ASSERT_TRUE(start({QString::fromLatin1(argument)}));
    ASSERT_TRUE(program.waitForFinished(20'000));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAll().contains("vantor"));
  }
}

}  // namespace
}  // namespace vantor
