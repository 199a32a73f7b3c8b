#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <cstring>
#include <future>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;
using Operation = test::FakeCredentialStore::Operation;

const QString liveRequest = action(LibraryKind::live);
const QString moviesRequest = action(LibraryKind::movies);

class ConnectionTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch();

  bool waitForRequest(const QString& name) {
    return eventually([&] { return transport.open(name) == 1; });
  }
  void answer(LibraryKind kind, const QByteArray& body) {
    ASSERT_TRUE(waitForRequest(action(kind)));
    transport.answer(action(kind), body);
    transport.answer(categoryAction(kind), "[]");
  }
  bool finishSignIn() {
    transport.answer(QString(), acceptedSignIn());
    return eventually([&] { return signInOver; });
  }
  bool idle() {
    return eventually(
        [&] { return app.libraries().loading().empty() && !app.session().signingInOrOut(); });
  }
  QStringList savedFiles() {
    return QDir(home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog")))
        .entryList(QDir::Files);
  }
};

TEST_F(ConnectionTest, SigningInSavesTheAccountAndLoadsTheLiveLibrary) {
  app.setShowingConnect(true);
  connectAccount(account);
  EXPECT_TRUE(app.session().signingInOrOut());
  EXPECT_FALSE(app.session().account().has_value())
      << "nothing changes before the provider accepts";
  ASSERT_TRUE(finishSignIn());
  EXPECT_EQ(signInFailure, nullptr);
  EXPECT_EQ(app.session().account(), account);
  EXPECT_EQ(app.browsing().section(), Section::live);
  EXPECT_EQ(app.libraries().loading(), std::set{LibraryKind::live});
  EXPECT_FALSE(app.session().signingInOrOut() || app.session().demo() || app.showingConnect() ||
               app.notice());
  EXPECT_EQ(app.session().subscription()->formats.size(), 2);
  EXPECT_EQ(credentials.value(providerItem), account.toJSON());
  EXPECT_EQ(configuration->currentServer(), QStringLiteral("http://tv.example"));
  answer(LibraryKind::live, rows(LibraryKind::live, 0, 4));
  ASSERT_TRUE(idle());
  EXPECT_EQ(app.browsing().items().size(), 4u);
  EXPECT_EQ(savedFiles().size(), 1);
}

TEST_F(ConnectionTest, AFailedSignInLeavesEverythingAsItWas) {
  signIn(rows(LibraryKind::live, 0, 4));
  const QByteArray saved = *credentials.value(providerItem);
  ProviderAccount other = account;
  other.id = QUuid::createUuid();
  struct Case {
    Operation failing;
    bool accepted;
  };
  for (const Case& example : {Case{Operation::remove, false}, Case{Operation::update, true},
                              Case{Operation::copyMatching, true}}) {
    credentials.fail(example.failing);
    connectAccount(other);
    transport.answer(QString(), example.accepted ? acceptedSignIn() : QByteArray("{}"));
    ASSERT_TRUE(eventually([&] { return signInOver; }));
    EXPECT_NE(signInFailure, nullptr);
    EXPECT_FALSE(app.session().signingInOrOut());
    EXPECT_EQ(app.session().account(), account);
    EXPECT_EQ(app.browsing().items().size(), 4u);
    EXPECT_EQ(credentials.value(providerItem), saved);
    credentials.work(example.failing);
  }
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
  app.select(app.browsing().items().item(1));
  app.favorite(app.browsing().items().item(1));
  app.setShowingSettings(true);
  EXPECT_EQ(savedFiles().size(), 1);
  disconnectAccount();
  ASSERT_TRUE(
      eventually([&] { return !app.session().account() && !app.session().signingInOrOut(); }));
  EXPECT_FALSE(credentials.value(providerItem).has_value());
  EXPECT_TRUE(app.browsing().items().empty() && app.libraries().catalogs().empty() &&
              app.record().favorites().isEmpty());
  EXPECT_FALSE(app.browsing().selected() || app.showingSettings());
  EXPECT_TRUE(app.session().subscription().has_value());
  EXPECT_TRUE(savedFiles().isEmpty());
  EXPECT_EQ(preferences->textList(QStringLiteral("favorites-") + account.idText()).size(), 1)
      << "marks wait for the account to come back";
}

TEST_F(ConnectionTest, SigningOutThatFailsKeepsEverything) {
  signIn(rows(LibraryKind::live, 0, 4));
  credentials.fail(Operation::remove);
  disconnectAccount();
  ASSERT_TRUE(eventually([&] { return app.notice().has_value(); }));
  EXPECT_EQ(app.notice(), QStringLiteral("The saved account could not be removed from Keychain."));
  EXPECT_EQ(app.session().account(), account);
  EXPECT_EQ(app.browsing().items().size(), 4u);
  EXPECT_FALSE(app.session().signingInOrOut());
}

TEST_F(ConnectionTest, ALibraryIsAskedForOnce) {
  signIn();
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  app.load(LibraryKind::movies, LoadMode::refresh);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 1));
  ASSERT_TRUE(idle());
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  settle();
  EXPECT_TRUE(app.libraries().loading().empty());
  EXPECT_EQ(transport.requests(moviesRequest), 1);
}

TEST_F(ConnectionTest, TheSavedCopySparesTheProvider) {
  signIn(rows(LibraryKind::live, 0, 4));
  ASSERT_TRUE(idle());
  launch();
  transport.answer(QStringLiteral("vantor-config.json"), "{}");
  ASSERT_TRUE(eventually([&] { return model->browsing().items().size() == 4; }));
  EXPECT_EQ(transport.requests(liveRequest), 1) << "only the first run's";
  model->load(LibraryKind::live, LoadMode::refresh);
  ASSERT_TRUE(waitForRequest(liveRequest));
  EXPECT_EQ(model->browsing().items().size(), 4u) << "shown while the refresh runs";
}

TEST_F(ConnectionTest, AFailedLoadKeepsTheLibraryAndSaysSo) {
  signIn(rows(LibraryKind::live, 0, 4));
  app.load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live, "{}");
  ASSERT_TRUE(idle());
  EXPECT_EQ(app.libraries().errors().at(LibraryKind::live),
            QStringLiteral("The provider returned an unreadable library."));
  EXPECT_EQ(app.browsing().items().size(), 4u);
  app.load(LibraryKind::live, LoadMode::refresh);
  EXPECT_TRUE(app.libraries().errors().empty());
}

TEST_F(ConnectionTest, ALibraryThatCannotBeSavedIsShownAllTheSame) {
  signIn();
  const QString folder = home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog"));
  ASSERT_TRUE(QDir(folder).removeRecursively());
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 3));
  ASSERT_TRUE(idle());
  EXPECT_EQ(app.notice(),
            QStringLiteral("Library loaded, but its saved copy could not be updated. It will "
                           "remain available while the app is open."));
  EXPECT_EQ(app.libraries().catalogs().at(LibraryKind::movies).size(), 3u);
}

/// What can replace the world while a load is suspended.
enum class Change { connect, disconnect, destroy };

class StaleLoadTest : public ConnectionTest, public ::testing::WithParamInterface<Change> {
 protected:
  void change() {
    switch (GetParam()) {
      case Change::connect: {
        ProviderAccount other = account;
        other.id = QUuid::createUuid();
        connectAccount(other);
        ASSERT_TRUE(finishSignIn());
        break;
      }
      case Change::disconnect:
        disconnectAccount();
        ASSERT_TRUE(eventually(
            [&] { return !model->session().account() && !model->session().signingInOrOut(); }));
        break;
      case Change::destroy:
        model.reset();
        settle();
        break;
    }
  }
};

TEST_P(StaleLoadTest, AppliesNothingAfterItsRequest) {
  signIn();
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  ASSERT_TRUE(waitForRequest(moviesRequest));
  const auto request = transport.exchanges().at(transport.exchanges().size() - 2);
  change();
  EXPECT_TRUE(request->cancelled);
  // Even an answer that was under way when the load was cancelled.
  request->answer.resolve(rows(LibraryKind::movies, 0, 3));
  settle();
  if (!model) return;
  EXPECT_FALSE(app.libraries().catalogs().contains(LibraryKind::movies));
  EXPECT_FALSE(app.libraries().loading().contains(LibraryKind::movies));
  EXPECT_TRUE(app.libraries().errors().empty());
  if (GetParam() != Change::connect) return;
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 2));
  ASSERT_TRUE(eventually([&] { return app.libraries().catalogs().contains(LibraryKind::movies); }))
      << "the new world's own load is not hindered";
}

TEST_P(StaleLoadTest, AppliesNothingAfterReadingItsCopy) {
  signIn();
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 3));
  ASSERT_TRUE(idle());
  launch();
  transport.answer(QStringLiteral("vantor-config.json"),
                   R"({"schemaVersion":1,"serverUrl":"http://tv.example"})");
  ASSERT_TRUE(
      eventually([&] { return model->libraries().catalogs().contains(LibraryKind::live); }));
  const int before = transport.requests(moviesRequest);
  model->load(LibraryKind::movies, LoadMode::copyFirst);
  // The load now waits for the disk; the change comes first.
  change();
  settle();
  EXPECT_EQ(transport.requests(moviesRequest), before);
  if (!model) return;
  EXPECT_FALSE(model->libraries().catalogs().contains(LibraryKind::movies));
  EXPECT_FALSE(model->libraries().loading().contains(LibraryKind::movies));
}

TEST_P(StaleLoadTest, AppliesNothingWhileItsCopyIsBeingSaved) {
  signIn();
  app.load(LibraryKind::movies, LoadMode::copyFirst);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 2000));
  ASSERT_TRUE(eventually([&] { return app.libraries().catalogs().contains(LibraryKind::movies); }));
  change();
  if (!model) return;
  settle();
  EXPECT_FALSE(app.libraries().catalogs().contains(LibraryKind::movies));
  EXPECT_FALSE(app.libraries().loading().contains(LibraryKind::movies));
}

INSTANTIATE_TEST_SUITE_P(Changes, StaleLoadTest,
                         ::testing::Values(Change::connect, Change::disconnect, Change::destroy),
                         [](const auto& change) -> std::string {
                           switch (change.param) {
                             case Change::connect:
                               return "Connect";
                             case Change::disconnect:
                               return "Disconnect";
                             case Change::destroy:
                               return "Destroy";
                           }
                           return {};
                         });

TEST_F(ConnectionTest, TheListAndTheProgressGoWithTheUser) {
  const auto user = [](const char* name) {
    return ProviderAccount::validated(QStringLiteral("Vantor TV"),
                                      QStringLiteral("http://tv.example"),
                                      QString::fromLatin1(name), QStringLiteral("secret"));
  };
  transport.always(QString(), acceptedSignIn());
  transport.always(liveRequest, rows(LibraryKind::live, 0, 3));
  transport.always(categoryAction(LibraryKind::live), "[]");
  const auto enter = [&](const char* name) {
    connectAccount(user(name));
    ASSERT_TRUE(
        eventually([&] { return signInOver && model->libraries().catalogs().size() == 1; }));
  };
  enter("somebody");
  const QString first = model->session().account()->idText();
  model->favorite(model->browsing().items().item(1));
  model->playback().onProgress(QStringLiteral("movies:7"), 61, 500);
  enter("another");
  EXPECT_TRUE(model->record().favorites().isEmpty());
  disconnectAccount();
  ASSERT_TRUE(eventually(
      [&] { return !model->session().account() && !model->session().signingInOrOut(); }));
  launch();
  enter("somebody");
  const QString second = model->session().account()->idText();
  EXPECT_NE(second, first);
  EXPECT_EQ(model->record().favorites(), QSet<QString>{QStringLiteral("live:1")});
  model->playback().onProgress(QStringLiteral("movies:8"), 10, 500);
  ASSERT_TRUE(eventually([&] { return model->libraries().loading().empty(); }));
  launch();
  EXPECT_EQ(model->record().favorites(), QSet<QString>{QStringLiteral("live:1")});
  const NumberLists progress = preferences->numberLists(QStringLiteral("progress-") + second);
  EXPECT_EQ(progress.value(QStringLiteral("movies:7")), (QList<double>{61, 500}));
  EXPECT_EQ(progress.size(), 2);
  EXPECT_EQ(preferences->text(QStringLiteral("progress-") + first), std::nullopt);
  quit();
  QFile file(home.filePath(QStringLiteral("preferences.ini")));
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  EXPECT_FALSE(file.readAll().contains("somebody"));
}

TEST_F(ConnectionTest, FilesOfAccountsThatAreGoneAreRemoved) {
  const auto leave = [&](const char* name) {
    QDir().mkpath(home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog")));
    QFile file(home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog/")) +
               QString::fromLatin1(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
  };
  const QStringList own{account.idText() + QStringLiteral("-live.bin")};
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-live.bin");
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-movies.bin.new");
  signIn(rows(LibraryKind::live, 0, 3));
  EXPECT_TRUE(eventually([&] { return savedFiles() == own; }));
  leave("0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-shows.bin");
  launch();
  EXPECT_TRUE(eventually([&] { return savedFiles() == own; }));
  quit();
  credentials.remove({QStringLiteral("tv.vantor.player"), providerItem}, {});
  launch();
  EXPECT_TRUE(savedFiles().isEmpty());
}

TEST_F(ConnectionTest, TheLastReportOfProgressIsTheLeavingAccounts) {
  signIn(rows(LibraryKind::live, 0, 3));
  playMovie(60'000);
  const QString key = QStringLiteral("progress-") + account.idText();
  preferences->remove(key);
  disconnectAccount();
  ASSERT_TRUE(
      eventually([&] { return !app.session().account() && !app.session().signingInOrOut(); }));
  EXPECT_EQ(preferences->numberLists(key).value(QStringLiteral("movies:2")),
            (QList<double>{60, 500}));
}

/// Steps of a service check ("c" its address, "d" its sign-in) and of what the user does meanwhile
/// ("i" begins a sign-in and "j" is its answer, "o" signs out), in every order; what they write
/// waits until then ("late") or not.
TEST_F(ConnectionTest, AServiceCheckNeverUndoesWhatTheUserDoes) {
  const ProviderAccount other = ProviderAccount::validated(
      QStringLiteral("Vantor TV"), QStringLiteral("http://other.example"), QStringLiteral("other"),
      QStringLiteral("secret"));
  const auto answerSignIn = [&](const char* host) {
    for (const auto& exchange : transport.exchanges())
      if (!exchange->over && exchange->request.address.host() == QLatin1String(host)) {
        exchange->over = true;
        exchange->answer.resolve(acceptedSignIn());
      }
  };
  for (const char* steps : {"cdij", "cidj", "cijd", "icdj", "icjd", "ijcd", "cdo", "cod", "ocd"})
    for (const bool late : {false, true}) {
      SCOPED_TRACE(testing::Message() << steps << (late ? " late" : ""));
      quit();
      credentials.put(providerItem, account.toJSON());
      launch();
      std::promise<void> unlocked;
      if (late) secretsWorker.post([waiting = unlocked.get_future().share()] { waiting.wait(); });
      for (const char* step = steps; *step != 0; ++step) {
        switch (*step) {
          case 'c':
            transport.answer(QStringLiteral("vantor-config.json"),
                             R"({"schemaVersion":1,"serverUrl":"http://new.example"})");
            break;
          case 'd':
            answerSignIn("new.example");
            break;
          case 'i':
            connectAccount(other);
            break;
          case 'j':
            answerSignIn("other.example");
            break;
          case 'o':
            disconnectAccount();
            break;
        }
        settle();
      }
      if (late) unlocked.set_value();
      ASSERT_TRUE(eventually([&] { return !model->session().signingInOrOut(); }));
      settle();
      const std::optional<QByteArray> stored = credentials.value(providerItem);
      if (strchr(steps, 'o') != nullptr) {
        EXPECT_FALSE(stored || model->session().account());
      } else {
        EXPECT_EQ(model->session().account(), other);
        ASSERT_TRUE(stored.has_value());
        EXPECT_EQ(ProviderAccount::fromJSON(*stored), other);
      }
    }
}

TEST_F(ConnectionTest, DestroyingTheModelEndsASignIn) {
  for (const bool answered : {false, true}) {
    launch();
    connectAccount(account);
    if (answered) {
      transport.answer(QString(), acceptedSignIn());
    }
    model.reset();
    signInJob.cancel();
    EXPECT_TRUE(eventually([&] { return signInOver; })) << answered;
    EXPECT_NE(signInFailure, nullptr);
  }
}

}  // namespace
}  // namespace vantor
