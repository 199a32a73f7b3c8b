// What is written is killed at any moment, meets a disk that is full at any byte, and is looked at
// for the order in which it would survive a power cut. VANTOR_KILLS says how often saves are
// killed; sign-ins a fifth of that. The test programs kill copies of themselves.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>
#include <csignal>

#include <sys/resource.h>

#include "library/catalog_builder.h"
#include "storage/catalog_disk_store.h"
#include "storage/private_file.h"
#include "support/awaited.h"
#include "support/environment_number.h"
#include "support/model_fixture.h"

namespace vantor::machine {
namespace {

using namespace test;

const char* const victimFolder = "VANTOR_VICTIM_FOLDER";
const QUuid savedAccount = QUuid(u"0f3c2a58-7b1d-4e2a-9c3f-5d6e7f8a9b0c"_s);

/// A credential store that outlives the program, a file for each item.
class FileCredentials final : public CredentialStore {
 public:
  explicit FileCredentials(QString folder) : folder_(std::move(folder)) {}
  Match copyMatching(const CredentialKey& key, std::stop_token) override {
    if (!QFile::exists(file(key))) return {CredentialStatus::itemNotFound, {}};
    return {CredentialStatus::success, private_file::read(file(key))};
  }
  CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                          std::stop_token token) override {
    return QFile::exists(file(key)) ? add(key, value, token) : CredentialStatus::itemNotFound;
  }
  CredentialStatus add(const CredentialKey& key, const QByteArray& value,
                       std::stop_token) override {
    private_file::replace(file(key), value);
    return CredentialStatus::success;
  }
  CredentialStatus remove(const CredentialKey& key, std::stop_token) override {
    private_file::remove(file(key));
    return CredentialStatus::success;
  }

 private:
  QString file(const CredentialKey& key) const { return folder_ + u"/secret-"_s + key.account; }
  const QString folder_;
};

/// The part of the program that a victim runs, and that looks at what it left.
class Life {
 public:
  explicit Life(const QString& home)
      : credentials(home), fixture({.home = home, .credentials = &credentials}) {
    fixture.transport.always(QString(), ModelFixture::acceptedSignIn());
    fixture.always(LibraryKind::live, ModelFixture::rows(LibraryKind::live, 1, 9));
  }
  AppModel& launch() {
    AppModel& app = fixture.launch();
    fixture.transport.answer(u"vantor-config.json"_s, "{}");
    return app;
  }
  /// As the same user, with an account of another id.
  void signInAnew() {
    fixture.connectAccount(
        ProviderAccount::validated(u"Vantor TV"_s, u"http://tv.example"_s, u"user"_s, u"secret"_s));
    if (!eventually([&] { return fixture.signInOver; }) || !fixture.idle()) std::abort();
  }
  std::shared_ptr<CatalogDiskStore> disk() {
    return CatalogDiskStore::create(fixture.secureStore, fixture.folders, {});
  }

  FileCredentials credentials;
  ModelFixture fixture;
};

/// A library that tells of which save it is, by its names and by its length.
Catalog version(int number) {
  CatalogBuilder builder;
  for (int i = 0; i < 1 + number * 7919 % 3000; ++i)
    builder.add({.providerID = std::to_string(i), .name = std::to_string(number)});
  return builder.build(Catalog::Time(std::chrono::seconds(1'800'000'000)));
}

bool isVersion(const std::optional<Catalog>& catalog, int number) {
  return catalog && catalog->size() == version(number).size() &&
         catalog->name(catalog->size() - 1) == QString::number(number);
}

void tell(int number) {
  std::printf("done %d\n", number);
  std::fflush(stdout);
}

/// Runs the test that calls this as a victim in `folder`, and kills it after its first steps. The
/// number that it told last; -1 when it told none.
int killed(const QString& folder, double within) {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  QProcess victim;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QLatin1String(victimFolder), folder);
  victim.setProcessEnvironment(environment);
  victim.start(QCoreApplication::applicationFilePath(),
               {u"--gtest_filter=%1.%2"_s.arg(QLatin1String(test->test_suite_name()),
                                              QLatin1String(test->name()))});
  QByteArray told;
  while (!told.contains("done ") && victim.waitForReadyRead(30'000)) told += victim.readAll();
  QThread::usleep(
      static_cast<unsigned long>(within * 1e6 * QRandomGenerator::global()->generateDouble()));
  victim.kill();
  victim.waitForFinished();
  told += victim.readAll();
  const QByteArray whole = told.first(told.lastIndexOf('\n') + 1).trimmed();
  return whole.contains("done ") ? whole.mid(whole.lastIndexOf(' ') + 1).toInt() : -1;
}

int kills() {
  return environmentNumber("VANTOR_KILLS", 40);
}

/// Also what is none of the store's own.
QFileInfoList catalogueFiles(const QTemporaryDir& home) {
  return QDir(home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s))
      .entryInfoList(QDir::Files);
}

TEST(InterruptedWrites, AKilledSaveLeavesTheOldLibraryOrTheNew) {
  if (const QString folder = qEnvironmentVariable(victimFolder); !folder.isEmpty()) {
    const auto store = Life(folder).disk();
    for (int number = 1;; ++number) {
      awaited<Done>(store->save(version(number), savedAccount, LibraryKind::live));
      tell(number);
    }
  }
  QTemporaryDir folder;
  for (int round = 0; round < kills(); ++round) {
    const int last = killed(folder.path(), 0.02);
    ASSERT_GT(last, 0);
    const auto found = awaited<std::optional<Catalog>>(
        Life(folder.path()).disk()->load(savedAccount, LibraryKind::live));
    ASSERT_TRUE(isVersion(found, last) || isVersion(found, last + 1)) << "after save " << last;
  }
  EXPECT_LE(catalogueFiles(folder).size(), 2) << "remains must not pile up";
}

TEST(InterruptedWrites, AKilledSignInLeavesTheUserSignedInWithTheirList) {
  const QSet<QString> marked{u"live:1"_s, u"live:4"_s};
  if (const QString folder = qEnvironmentVariable(victimFolder); !folder.isEmpty()) {
    Life life(folder);
    AppModel& app = life.launch();
    for (int number = 1;; ++number) {
      life.signInAnew();
      for (const QString& id : marked)
        if (!app.record().favorites().contains(id))
          app.favorite(ModelFixture::entry(LibraryKind::live, id.section(u':', 1).toInt()));
      const QString list = u"favorites-"_s + app.session().account()->idText();
      const bool written = eventually(
          [&] { return Preferences(folder + u"/preferences.ini"_s).textList(list).size() == 2; });
      if (written) tell(number);
    }
  }
  QTemporaryDir folder;
  for (int round = 0; round < std::max(20, kills() / 5); ++round) {
    ASSERT_GT(killed(folder.path(), 0.05), 0);
    Life life(folder.path());
    const AppModel& app = life.launch();
    ASSERT_TRUE(app.session().account().has_value());
    ASSERT_EQ(app.session().account()->username, u"user"_s);
    ASSERT_EQ(app.record().favorites(), marked) << "round " << round;
    ASSERT_TRUE(eventually([&] { return app.browsing().items().size() == 9; }));
    ASSERT_TRUE(life.fixture.idle());
    ASSERT_FALSE(app.notice()) << app.notice()->toStdString();
  }
}

/// Files cannot grow beyond so many bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

TEST(InterruptedWrites, ADiskThatIsFullAtAnyByteKeepsTheOldLibrary) {
  QTemporaryDir folder;
  Life life(folder.path());
  const auto store = life.disk();
  const auto save = [&](int number) {
    try {
      awaited<Done>(store->save(version(number), savedAccount, LibraryKind::live));
    } catch (const std::system_error&) {
      return false;
    }
    return true;
  };
  const auto isShown = [&](int number) {
    return isVersion(awaited<std::optional<Catalog>>(store->load(savedAccount, LibraryKind::live)),
                     number);
  };
  ASSERT_TRUE(save(3000));
  qint64 bytes = 0;
  for (bool saved = false; !saved; ++bytes) {
    const FullDisk full(static_cast<rlim_t>(bytes));
    saved = save(6000);
    ASSERT_TRUE(isShown(saved ? 6000 : 3000)) << bytes;
    ASSERT_EQ(catalogueFiles(folder).size(), 1) << bytes;
  }
  EXPECT_EQ(catalogueFiles(folder).constFirst().size(), bytes - 1);
}

TEST(InterruptedWrites, ADiskThatIsFullAtAnyByteKeepsThePreferencesForLater) {
  QTemporaryDir folder;
  const QString file = folder.filePath(u"preferences.ini"_s);
  // As the next run finds it: in this one QSettings has a memory.
  const auto text = [&](const char* key) {
    QFile left(file);
    if (!left.open(QFile::ReadOnly)) return QString();
    for (const QByteArray& line : left.readAll().split('\n'))
      if (line.startsWith(key)) return QString::fromUtf8(line).section(u'"', 1, 1).chopped(1);
    return QString();
  };
  Preferences(file).setText(u"one"_s, u"old"_s);
  const qint64 size = QFileInfo(file).size();
  for (qint64 bytes = 0; bytes <= size + 40; ++bytes) {
    Preferences preferences(file);
    const QString before = text("one");
    const QString wanted = QString::number(bytes);
    {
      const FullDisk full(static_cast<rlim_t>(bytes));
      preferences.setText(u"one"_s, wanted);
      settle();
      QThread::msleep(2);
    }
    const QString now = text("one");
    ASSERT_TRUE(now == before || now == wanted) << bytes << " " << now.toStdString();
    // Room again: what could not be written goes along with what comes next.
    preferences.setText(u"two"_s, wanted);
    ASSERT_TRUE(eventually([&] { return text("two") == wanted; })) << bytes;
    ASSERT_EQ(text("one"), wanted) << bytes;
  }
}

TEST(InterruptedWrites, ASaveReachesTheDiskInTheOrderThatAPowerCutNeeds) {
  if (const QString folder = qEnvironmentVariable(victimFolder); !folder.isEmpty()) {
    awaited<Done>(Life(folder).disk()->save(version(1), savedAccount, LibraryKind::live));
    return;
  }
  const QString strace = QStandardPaths::findExecutable(u"strace"_s);
  if (strace.isEmpty()) GTEST_SKIP() << "strace is not installed";
  QTemporaryDir folder;
  const QString trace = folder.filePath(u"trace"_s);
  QProcess traced;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QLatin1String(victimFolder), folder.path());
  traced.setProcessEnvironment(environment);
  traced.start(strace, {u"-f"_s, u"-y"_s, u"-s"_s, u"0"_s, u"-o"_s, trace, u"-e"_s,
                        u"trace=write,fsync,fdatasync,rename,renameat,renameat2"_s,
                        QCoreApplication::applicationFilePath(),
                        u"--gtest_filter=InterruptedWrites.ASaveReaches*"_s});
  ASSERT_TRUE(traced.waitForFinished());
  if (traced.exitCode() != 0) GTEST_SKIP() << "strace may not trace here";
  QFile file(trace);
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  static const QRegularExpression call(
      uR"((write|sync|rename)\w*\((?:AT_FDCWD[^,]*, )?(?:\d+)?["<][^">]*/Catalog(/[^">]*)?[">])"_s);
  QStringList order;
  for (auto found = call.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const QString what = match.captured(1) + (match.captured(2).isEmpty() ? u" folder"_s : u""_s);
    if (order.isEmpty() || order.constLast() != what) order.append(what);
  }
  EXPECT_EQ(order, (QStringList{u"write"_s, u"sync"_s, u"rename"_s, u"sync folder"_s}));
}

}  // namespace
}  // namespace vantor::machine
