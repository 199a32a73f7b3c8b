#include <gtest/gtest.h>

#include <future>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;
using Operation = test::FakeCredentialStore::Operation;

const QString config = QStringLiteral("vantor-config.json");

class StartUpTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  QString key(const char* prefix) const { return QString::fromLatin1(prefix) + account.idText(); }
  void saveAccount() { credentials.put(providerItem, account.toJSON()); }
};

TEST_F(StartUpTest, WithoutAnAccountNothingIsAsked) {
  AppModel& app = launch();
  EXPECT_EQ(app.browsing().section(), Section::live);
  EXPECT_FALSE(app.session().account() || app.notice() || app.session().demo());
  EXPECT_TRUE(app.record().favorites().isEmpty());
  EXPECT_TRUE(transport.exchanges().empty());
}

TEST_F(StartUpTest, ASavedAccountComesBackWithItsFavouritesAndProgress) {
  saveAccount();
  {
    Preferences stored(home.filePath(QStringLiteral("preferences.ini")));
    stored.setTextList(key("favorites-"), {QStringLiteral("live:1"), QStringLiteral("movies:2")});
    stored.setNumberLists(key("progress-"), {{QStringLiteral("movies:2"), {61, 500}}});
  }
  AppModel& app = launch();
  EXPECT_EQ(app.session().account(), account);
  EXPECT_EQ(app.record().favorites(),
            (QSet<QString>{QStringLiteral("live:1"), QStringLiteral("movies:2")}));
  EXPECT_FALSE(app.session().subscription().has_value());
  playMovie();
  EXPECT_TRUE(engine.calls.contains(QStringLiteral("setTime 61000"))) << "resumes where it stopped";
}

TEST_F(StartUpTest, WhoeverWentElsewhereBeforeTheAccountWasReadIsTakenToItsChannels) {
  saveAccount();
  std::promise<void> unlocked;
  secretsWorker.post([waiting = unlocked.get_future().share()] { waiting.wait(); });
  AppModel& app = begin();
  app.navigate(Section::movies);
  app.browsing().setSearch(QStringLiteral("x"));
  unlocked.set_value();
  ASSERT_TRUE(eventually([&] { return app.session().account().has_value(); }));
  EXPECT_EQ(app.browsing().section(), Section::live);
  EXPECT_EQ(app.browsing().search(), QString());
  EXPECT_TRUE(app.session().restoringLibrary());
  transport.answer(config, R"({"schemaVersion":1,"serverUrl":"http://tv.example"})");
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  EXPECT_FALSE(app.session().restoringLibrary());
  app.navigate(Section::movies);
  EXPECT_TRUE(eventually([&] { return transport.open(action(LibraryKind::movies)) == 1; }));
  EXPECT_EQ(app.browsing().search(), QStringLiteral("x"));
}

TEST_F(StartUpTest, ChecksTheServerBeforeItLoadsTheLiveLibrary) {
  saveAccount();
  AppModel& app = launch();
  EXPECT_EQ(transport.open(config), 1);
  EXPECT_TRUE(app.libraries().loading().empty());
  transport.answer(config, R"({"schemaVersion":1,"serverUrl":"http://tv.example"})");
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  EXPECT_EQ(transport.requests(QString()), 0) << "the same server needs no verification";
  EXPECT_EQ(app.libraries().loading(), std::set{LibraryKind::live});
}

TEST_F(StartUpTest, FollowsAChangedServerOnceItAcceptsTheAccount) {
  saveAccount();
  AppModel& app = launch();
  transport.answer(config, R"({"schemaVersion":1,"serverUrl":"http://new.example"})");
  ASSERT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
  EXPECT_EQ(transport.exchanges().back()->request.address.host(), QStringLiteral("new.example"));
  transport.answer(QString(), acceptedSignIn());
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  EXPECT_EQ(app.session().account()->serverText(), QStringLiteral("http://new.example"));
  EXPECT_EQ(app.session().account()->id, account.id);
  EXPECT_EQ(ProviderAccount::fromJSON(*credentials.value(providerItem)), *app.session().account());
  EXPECT_EQ(configuration->currentServer(), QStringLiteral("http://new.example"));
}

TEST_F(StartUpTest, KeepsTheSavedServerWhenTheNewOneFails) {
  const QString keeping =
      QStringLiteral("The updated server could not be verified. Keeping your saved connection.");
  for (const bool refusedByStore : {false, true}) {
    saveAccount();
    AppModel& app = launch();
    transport.answer(config, R"({"schemaVersion":1,"serverUrl":"http://new.example"})");
    ASSERT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
    if (refusedByStore) {
      credentials.fail(Operation::update);
      transport.answer(QString(), acceptedSignIn());
    } else {
      transport.answer(QString(), "{}");
    }
    ASSERT_TRUE(eventually([&] { return app.notice().has_value(); }));
    EXPECT_EQ(app.notice(), keeping);
    EXPECT_EQ(app.session().account(), account);
  }
}

TEST_F(StartUpTest, AServiceCheckThatEndsLateLeavesANewAccountAlone) {
  saveAccount();
  AppModel& app = launch();
  transport.answer(config, R"({"schemaVersion":1,"serverUrl":"http://new.example"})");
  ASSERT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
  ProviderAccount other = account;
  other.id = QUuid::createUuid();
  connectAccount(other);
  ASSERT_EQ(transport.open(QString()), 2);
  const auto verification = transport.exchanges().at(1);
  const auto signIn = transport.exchanges().at(2);
  signIn->over = true;
  signIn->answer.resolve(acceptedSignIn());
  ASSERT_TRUE(eventually([&] { return signInOver; }));
  verification->over = true;
  verification->answer.resolve(acceptedSignIn());
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  settle();
  EXPECT_EQ(app.session().account(), other);
  EXPECT_EQ(ProviderAccount::fromJSON(*credentials.value(providerItem)), other);
}

TEST_F(StartUpTest, WhatCannotBeReadEndsInASentence) {
  credentials.put(providerItem, "{\"id\":7}");
  EXPECT_TRUE(launch().notice().has_value());
  EXPECT_FALSE(model->session().account().has_value());

  credentials.fail(Operation::copyMatching);
  EXPECT_EQ(launch().notice(),
            QStringLiteral("Vantor could not read its saved account from Keychain. Allow access "
                           "and try again."));
  EXPECT_FALSE(model->session().account().has_value());

  credentials.work(Operation::copyMatching);
  credentials.fail(Operation::add);
  saveAccount();
  EXPECT_EQ(launch().notice(),
            QStringLiteral("Vantor could not securely save this account in Keychain."));
  EXPECT_EQ(model->session().account(), account) << "signed in without a disk copy";
}

TEST_F(StartUpTest, AnIsolatedLaunchTouchesNothing) {
  saveAccount();
  for (const QStringList& arguments :
       {QStringList{QStringLiteral("--demo")},
        QStringList{QStringLiteral("--smoke-test"), QStringLiteral("/x.mkv")}}) {
    AppModel& app = launch(arguments);
    EXPECT_FALSE(app.session().account().has_value());
    EXPECT_EQ(app.session().demo(), arguments.size() == 1);
  }
  EXPECT_EQ(credentials.calls(Operation::copyMatching), 0);
  EXPECT_TRUE(transport.exchanges().empty());
}

}  // namespace
}  // namespace vantor
