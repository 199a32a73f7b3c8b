#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>

#include "platform/secret_service_store.h"
#include "provider/provider_account.h"
#include "provider/service_values.h"
#include "sim/server.h"
#include "storage/secure_store.h"
#include "support/files.h"
#include "support/simulated_streams.h"
#include "support/waiting.h"

namespace vantor::test {

/// The program as a process, with folders of its own and a simulated provider.
class ProgramFixture : public ::testing::Test {
 protected:
  const sim::Options options = simulated(sim::Options().password);
  sim::Server server{options};
  QTemporaryDir home;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  QProcess program;
  SecretServiceStore credentials;
  SecureStore secrets{credentials, ServiceValues::ofBuild().bundleIdentifier};

  void SetUp() override {
    environment.insert(u"VANTOR_CONFIG_URL"_s, QString::fromStdString(server.configUrl()));
    environment.insert(u"XDG_DATA_HOME"_s, home.filePath(u"data"_s));
    environment.insert(u"XDG_CONFIG_HOME"_s, home.filePath(u"config"_s));
    environment.insert(u"XDG_STATE_HOME"_s, home.filePath(u"state"_s));
    environment.insert(u"VANTOR_AUDIO"_s, u"none"_s);
  }
  void TearDown() override {
    kill(program);
    secrets.remove(providerItem, {});
  }
  /// What is in the program's folders, and the folders themselves.
  QStringList files() const {
    QStringList found;
    QDirIterator all(home.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) found.append(all.next());
    found.sort();
    return found;
  }
  QString media(const char* name) const { return QString::fromStdString(server.mediaPath(name)); }
  void saveAccount() {
    const ProviderAccount account = ProviderAccount::validated(
        u"Vantor TV"_s, QString::fromStdString(server.url()),
        QString::fromStdString(options.username), QString::fromStdString(options.password));
    secrets.write(account.toJSON(), providerItem, {});
  }
  bool start(const QStringList& arguments = {}) {
    startToo(program, arguments);
    return program.waitForStarted();
  }
  /// Starts one more beside it.
  void startToo(QProcess& other, const QStringList& arguments = {}) const {
    other.setProcessEnvironment(environment);
    other.setProcessChannelMode(QProcess::MergedChannels);
    other.start(QStringLiteral(VANTOR_PROGRAM), arguments);
  }
  /// Starts it for an answer on its output, and waits for its end.
  QByteArray said(const QStringList& arguments, int status = 0) {
    EXPECT_TRUE(start(arguments) && program.waitForFinished(20'000));
    QByteArray all = program.readAll();
    EXPECT_EQ(program.exitCode(), status) << all.constData();
    return all;
  }
  static void kill(QProcess& process) {
    process.kill();
    process.waitForFinished();
  }
  /// Whether the process, or the first one, has the file open.
  bool hasOpen(const QString& path, qint64 process = 0) const {
    const QDir descriptors(u"/proc/%1/fd"_s.arg(process > 0 ? process : program.processId()));
    const QFileInfoList open = descriptors.entryInfoList(QDir::Files | QDir::System);
    return std::ranges::any_of(open, [file = QFileInfo(path).canonicalFilePath()](auto& entry) {
      return entry.symLinkTarget() == file;
    });
  }
  /// Whether SIGTERM is the program's own to answer, and not yet that of the system.
  bool answersSignals() {
    const QByteArray all = readFile(u"/proc/%1/status"_s.arg(program.processId()));
    const QByteArray caught = all.mid(all.indexOf("SigCgt:") + 7, 20).trimmed().left(16);
    return (caught.toULongLong(nullptr, 16) >> (SIGTERM - 1)) & 1;
  }
  /// Ends it as the desktop does; how it ended.
  int quit() {
    if (program.state() != QProcess::Running) return -3;
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    if (!program.waitForFinished(20'000)) return -1;
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -2;
  }
};

}  // namespace vantor::test
