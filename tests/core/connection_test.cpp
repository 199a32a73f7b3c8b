#include <QDir>
#include <QSemaphore>

#include "support/files.h"
#include "support/model_fixture.h"

namespace vantor::test {
namespace {

using Operation = FakeCredentialStore::Operation;

const QString liveRequest = action(LibraryKind::live);
const QString moviesRequest = action(LibraryKind::movies);

class ConnectionTest : public ModelTest {
 protected:
  AppModel& app = launch();
  const QString copies = home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s);

  QStringList savedFiles() const { return QDir(copies).entryList(QDir::Files); }
  static ProviderAccount accountOf(const QString& user, const QString& server) {
    return ProviderAccount::validated(u"Vantor TV"_s, server, user, u"secret"_s);
  }
};

TEST_F(ConnectionTest, SigningInSavesTheAccountAndLoadsTheLiveLibrary) {
  app.setShowingConnect(true);
  connectAccount(account);
  EXPECT_TRUE(app.session().signingInOrOut());
  EXPECT_EQ(app.session().account(), std::nullopt) << "not before the provider accepts";
  acceptSignIn();
  EXPECT_EQ(signInFailure, nullptr);
  EXPECT_EQ(app.session().account(), account);
  EXPECT_EQ(app.browsing().section(), Section::live);
  EXPECT_EQ(app.libraries().loading(), std::set{LibraryKind::live});
  EXPECT_FALSE(app.session().signingInOrOut() || app.session().demo() || app.showingConnect() ||
               app.notice());
  EXPECT_EQ(app.session().subscription()->formats.size(), 2);
  EXPECT_EQ(credentials.value(providerItem), account.toJSON());
  EXPECT_EQ(configuration->currentServer(), u"http://tv.example"_s);
  answer(LibraryKind::live, rows(LibraryKind::live, 0, 4));
  ASSERT_TRUE(idle());
  EXPECT_EQ(app.browsing().items().size(), 4u);
  EXPECT_EQ(savedFiles().size(), 1);
}

TEST_F(ConnectionTest, AFailureLeavesEverythingAsItWas) {
  signIn(rows(LibraryKind::live, 0, 4));
  const QByteArray saved = *credentials.value(providerItem);
  ProviderAccount other = account;
  other.id = QUuid::createUuid();
  const auto expectAsItWas = [&] {
    EXPECT_FALSE(app.session().signingInOrOut());
    EXPECT_EQ(app.session().account(), account);
    EXPECT_EQ(app.browsing().items().size(), 4u);
    EXPECT_EQ(credentials.value(providerItem), saved);
  };
  for (const auto& [failing, answer] : {std::pair(Operation::remove, QByteArray("{}")),
                                        {Operation::update, acceptedSignIn()},
                                        {Operation::copyMatching, acceptedSignIn()}}) {
    credentials.fail(failing);
    connectAccount(other);
    transport.answer(QString(), answer);
    ASSERT_TRUE(eventually([&] { return signInOver; }));
    EXPECT_NE(signInFailure, nullptr);
    expectAsItWas();
    credentials.work(failing);
  }
  credentials.fail(Operation::remove);
  disconnectAccount();
  ASSERT_TRUE(eventually([&] { return app.notice().has_value(); }));
  EXPECT_EQ(app.notice(), u"The saved account could not be removed from Keychain."_s);
  expectAsItWas();
}

TEST_F(ConnectionTest, ASecondSignInWhileOneRunsDoesNothing) {
  connectAccount(account);
  const Job first = std::move(signInJob);
  connectAccount(account);
  EXPECT_TRUE(signInOver) << "returns at once, without failure";
  EXPECT_EQ(signInFailure, nullptr);
  EXPECT_EQ(transport.requests(QString()), 1);
  disconnectAccount();
  EXPECT_EQ(credentials.calls(Operation::remove), 0);
  transport.answer(QString(), acceptedSignIn());
  EXPECT_TRUE(eventually([&] { return app.session().account().has_value() && !first.running(); }));
}

TEST_F(ConnectionTest, SigningOutForgetsTheAccountAndItsFiles) {
  signIn(rows(LibraryKind::live, 0, 4));
  playMovie(60'000);
  app.select(item(1));
  const QString marks = u"favorites-"_s + account.idText();
  for (const QStringList& stored :
       {QStringList{u"live:1"_s}, QStringList(), QStringList{u"live:1"_s}}) {
    app.favorite(item(1));
    EXPECT_EQ(preferences->textList(marks), stored) << "stored with each toggle";
    EXPECT_EQ(app.record().favorites().size(), stored.size());
  }
  app.setShowingSettings(true);
  EXPECT_EQ(savedFiles().size(), 1);
  const QString progress = u"progress-"_s + account.idText();
  preferences->remove(progress);
  signOut();
  EXPECT_FALSE(credentials.value(providerItem).has_value());
  EXPECT_TRUE(app.browsing().items().empty() && app.libraries().catalogs().empty() &&
              app.record().favorites().isEmpty());
  EXPECT_FALSE(app.browsing().selected() || app.showingSettings());
  EXPECT_TRUE(app.session().subscription().has_value());
  EXPECT_TRUE(savedFiles().isEmpty());
  EXPECT_EQ(preferences->textList(marks).size(), 1) << "they wait for the account to come back";
  EXPECT_EQ(preferences->numberLists(progress).value(u"movies:2"_s), (QList<double>{60, 500}))
      << "the last report is still the leaving account's";
}

TEST_F(ConnectionTest, ALibraryIsAskedForOnceAndItsSavedCopySparesTheProvider) {
  signIn(rows(LibraryKind::live, 0, 4));
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  for (const LoadMode mode : {LoadMode::copyFirst, LoadMode::refresh}) {
    app.load(LibraryKind::movies, mode);
    settle();
  }
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 1));
  ASSERT_TRUE(idle());
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  settle();
  EXPECT_TRUE(app.libraries().loading().empty());
  EXPECT_EQ(transport.requests(moviesRequest), 1);
  launch();
  transport.answer(serviceDocument, "{}");
  ASSERT_TRUE(eventually([&] { return model->browsing().items().size() == 4; }));
  EXPECT_EQ(transport.requests(liveRequest), 1) << "only the first run's";
  model->load(LibraryKind::live, LoadMode::refresh);
  ASSERT_TRUE(isAskedFor(LibraryKind::live));
  EXPECT_EQ(model->browsing().items().size(), 4u) << "shown while the refresh runs";
}

TEST_F(ConnectionTest, ALoadOrSaveThatFailsKeepsTheLibraryAndSaysSo) {
  signIn(rows(LibraryKind::live, 0, 4));
  app.load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live, "{}");
  ASSERT_TRUE(idle());
  EXPECT_EQ(app.libraries().errors().at(LibraryKind::live),
            u"The provider returned an unreadable library."_s);
  EXPECT_EQ(app.browsing().items().size(), 4u);
  app.load(LibraryKind::live, LoadMode::refresh);
  EXPECT_TRUE(app.libraries().errors().empty());

  ASSERT_TRUE(QDir(copies).removeRecursively());
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 3));
  EXPECT_EQ(app.notice(),
            u"Library loaded, but its saved copy could not be updated. It will remain available "
            "while the app is open."_s);
  EXPECT_EQ(app.libraries().catalogs().at(LibraryKind::movies).size(), 3u);
}

TEST_F(ConnectionTest, ALibraryInPartsIsShownAsItComesAndSavedWhole) {
  signIn();
  using Progress = std::map<LibraryKind, LoadProgress>;
  const auto expect = [&](std::size_t shown, qsizetype saved) {
    EXPECT_EQ(app.libraries().catalog(LibraryKind::movies).size(), shown);
    EXPECT_EQ(savedFiles().filter(u"movies"_s).size(), saved);
  };
  const auto begin = [&](LoadMode mode) {
    app.load(LibraryKind::movies, mode);
    ASSERT_TRUE(isAskedFor(LibraryKind::movies));
    transport.answer(categoryAction(LibraryKind::movies),
                     R"([{"category_id":1},{"category_id":2}])");
    transport.fail(moviesRequest, OversizedBody());
    ASSERT_TRUE(isAskedFor(LibraryKind::movies));
    transport.answer(moviesRequest, rows(LibraryKind::movies, 0, 1));
    ASSERT_TRUE(isAskedFor(LibraryKind::movies));
    EXPECT_EQ(app.libraries().progress(), (Progress{{LibraryKind::movies, {1, 1, 3}}}));
  };
  const auto end = [&](bool well) {
    if (well) transport.answer(moviesRequest, rows(LibraryKind::movies, 1, 1));
    ASSERT_TRUE(isAskedFor(LibraryKind::movies));
    well ? transport.answer(moviesRequest, "[]") : transport.fail(moviesRequest, HTTPFailure(500));
    ASSERT_TRUE(idle());
    EXPECT_EQ(app.libraries().errors().contains(LibraryKind::movies), !well);
    EXPECT_EQ(app.libraries().progress(), Progress());
  };
  begin(LoadMode::copyFirst);
  expect(1, 0);
  end(false);
  expect(0, 0);
  EXPECT_FALSE(app.libraries().catalogs().contains(LibraryKind::movies));
  begin(LoadMode::copyFirst);
  end(true);
  expect(2, 1);
  begin(LoadMode::refresh);
  expect(2, 1);
  end(false);
  expect(2, 1);
  begin(LoadMode::refresh);
  signOut();
  EXPECT_EQ(app.libraries().progress(), Progress());
}

TEST_F(ConnectionTest, TheListAndTheProgressGoWithTheUser) {
  transport.always(QString(), acceptedSignIn());
  always(LibraryKind::live, rows(LibraryKind::live, 0, 3));
  // Each while the library of the one before is being saved.
  const auto enter = [&](const QString& name) {
    account = accountOf(name, u"http://tv.example"_s);
    connectAccount(account);
    ASSERT_TRUE(
        eventually([&] { return signInOver && model->libraries().catalogs().size() == 1; }));
  };
  enter(u"somebody"_s);
  const QString first = account.idText();
  model->favorite(entry(LibraryKind::live, 1));
  model->playback().onProgress(u"movies:7"_s, 61, 500);
  enter(u"another"_s);
  EXPECT_TRUE(model->record().favorites().isEmpty());
  signOut();
  launch();
  enter(u"somebody"_s);
  model->playback().onProgress(u"movies:8"_s, 10, 500);
  ASSERT_TRUE(idle());
  launch();
  EXPECT_EQ(model->record().favorites(), QSet<QString>{u"live:1"_s});
  EXPECT_EQ(preferences->numberLists(u"progress-"_s + account.idText()),
            (NumberLists{{u"movies:7"_s, {61, 500}}, {u"movies:8"_s, {10, 500}}}));
  EXPECT_EQ(preferences->text(u"progress-"_s + first), std::nullopt);
  quit();
  const QByteArray written = readFile(home.filePath(u"preferences.ini"_s));
  EXPECT_FALSE(written.isEmpty() || written.contains("somebody"));
}

TEST_F(ConnectionTest, FilesOfAccountsThatAreGoneAreRemoved) {
  const auto leave = [&](const char* name) { writeFile(copies + u'/' + QLatin1String(name)); };
  const QStringList own{account.idText() + u"-live.bin"_s};
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-live.bin");
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-movies.bin.new");
  signIn(rows(LibraryKind::live, 0, 3));
  EXPECT_TRUE(eventually([&] { return savedFiles() == own; }));
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-shows.bin");
  launch();
  EXPECT_TRUE(eventually([&] { return savedFiles() == own; }));
  quit();
  credentials.remove({u"tv.vantor.player"_s, providerItem}, {});
  launch();
  EXPECT_TRUE(savedFiles().isEmpty());
}

/// Steps of a service check ("c" its address, "d" its sign-in) and of what the user does meanwhile
/// ("i" begins a sign-in and "j" is its answer, "o" signs out), in every order; what they write
/// waits until then ("late") or not.
TEST_F(ConnectionTest, AServiceCheckNeverUndoesWhatTheUserDoes) {
  const ProviderAccount other = accountOf(u"other"_s, u"http://other.example"_s);
  const auto answerSignIn = [&](const char* host) {
    for (const auto& exchange : transport.exchanges())
      if (!exchange->over && exchange->request.address.host() == QLatin1String(host)) {
        exchange->over = true;
        exchange->answer.resolve(acceptedSignIn());
      }
  };
  const std::map<char, std::function<void()>> step = {
      {'c', [&] { nameServer("http://new.example"); }},
      {'d', [&] { answerSignIn("new.example"); }},
      {'i', [&] { connectAccount(other); }},
      {'j', [&] { answerSignIn("other.example"); }},
      {'o', [&] { disconnectAccount(); }},
  };
  for (const std::string steps :
       {"cdij", "cidj", "cijd", "icdj", "icjd", "ijcd", "cdo", "cod", "ocd"})
    for (const bool late : {false, true}) {
      SCOPED_TRACE(steps + (late ? " late" : ""));
      quit();
      credentials.put(providerItem, account.toJSON());
      launch();
      QSemaphore unlocked;
      if (late) secretsWorker.post([&unlocked] { unlocked.acquire(); });
      for (const char name : steps) {
        step.at(name)();
        settle();
      }
      unlocked.release();
      ASSERT_TRUE(eventually([&] { return !model->session().signingInOrOut(); }));
      settle();
      const auto stored = credentials.value(providerItem);
      if (steps.find('o') == std::string::npos) {
        EXPECT_EQ(model->session().account(), other);
        EXPECT_EQ(ProviderAccount::fromJSON(stored.value_or("{}")), other);
      } else {
        EXPECT_FALSE(stored || model->session().account());
      }
    }
}

TEST_F(ConnectionTest, DestroyingTheModelEndsASignIn) {
  for (const bool answered : {false, true}) {
    launch();
    connectAccount(account);
    if (answered) transport.answer(QString(), acceptedSignIn());
    model.reset();
    signInJob.cancel();
    EXPECT_TRUE(eventually([&] { return signInOver; })) << answered;
    EXPECT_NE(signInFailure, nullptr);
  }
}

}  // namespace
}  // namespace vantor::test
