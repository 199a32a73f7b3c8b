#include <QSemaphore>

#include "support/model_fixture.h"

namespace vantor::test {
namespace {

using Operation = FakeCredentialStore::Operation;

class StartUpTest : public ModelTest {
 protected:
  void saveAccount() { credentials.put(providerItem, account.toJSON()); }
};

TEST_F(StartUpTest, ASavedAccountComesBackWithItsFavouritesAndProgress) {
  saveAccount();
  {
    Preferences stored = leavePreferences();
    stored.setTextList(u"favorites-"_s + account.idText(), {u"live:1"_s, u"movies:2"_s});
    stored.setNumberLists(u"progress-"_s + account.idText(), {{u"movies:2"_s, {61, 500}}});
  }
  AppModel& app = launch();
  EXPECT_EQ(app.session().account(), account);
  EXPECT_EQ(app.record().favorites(), (QSet<QString>{u"live:1"_s, u"movies:2"_s}));
  EXPECT_FALSE(app.session().subscription().has_value());
  playMovie();
  EXPECT_TRUE(engine.calls.contains(u"setTime 61000"_s)) << "resumes where it stopped";
}

TEST_F(StartUpTest, WhoeverWentElsewhereBeforeTheAccountWasReadIsTakenToItsChannels) {
  saveAccount();
  QSemaphore unlocked;
  secretsWorker.post([&unlocked] { unlocked.acquire(); });
  AppModel& app = begin();
  app.navigate(Section::movies);
  app.browsing().setSearch(u"x"_s);
  unlocked.release();
  ASSERT_TRUE(eventually([&] { return app.session().account().has_value(); }));
  EXPECT_EQ(app.browsing().section(), Section::live);
  EXPECT_EQ(app.browsing().search(), QString());
  EXPECT_TRUE(app.session().restoringLibrary());
  settle();
  EXPECT_EQ(transport.open(serviceDocument), 1);
  EXPECT_TRUE(app.libraries().loading().empty()) << "the server is checked first";
  nameServer("http://TV.Example");
  ASSERT_TRUE(isAskedFor(LibraryKind::live));
  EXPECT_EQ(app.libraries().loading(), std::set{LibraryKind::live});
  EXPECT_FALSE(app.session().restoringLibrary());
  EXPECT_EQ(transport.requests(QString()), 0)
      << "the same server needs no verification, however it is written";
  app.navigate(Section::movies);
  EXPECT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(app.browsing().search(), u"x"_s);
}

TEST_F(StartUpTest, FollowsAChangedServerOnceItAcceptsTheAccountAndThatIsSaved) {
  const QString kept =
      u"The updated server could not be verified. Keeping your saved connection."_s;
  ProviderAccount moved = account;
  moved.server = QUrl(u"http://new.example"_s);
  const std::tuple<const char*, QByteArray, bool> cases[] = {
      {"not accepted", "{}", true},
      {"not saved", acceptedSignIn(), false},
      {"accepted and saved", acceptedSignIn(), true},
  };
  for (const auto& [what, answer, saves] : cases) {
    SCOPED_TRACE(what);
    saveAccount();
    AppModel& app = launch();
    nameServer("http://new.example");
    ASSERT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
    EXPECT_EQ(transport.exchanges().back()->request.address.host(), u"new.example"_s);
    saves ? credentials.work(Operation::update) : credentials.fail(Operation::update);
    transport.answer(QString(), answer);
    ASSERT_TRUE(isAskedFor(LibraryKind::live));
    const bool follows = answer != "{}" && saves;
    EXPECT_EQ(app.notice(), follows ? std::nullopt : std::optional(kept));
    EXPECT_EQ(app.session().account(), follows ? moved : account);
    EXPECT_EQ(credentials.value(providerItem), (follows ? moved : account).toJSON());
    EXPECT_EQ(configuration->currentServer(),
              follows ? u"http://new.example"_s : u"http://fallback.example:25461"_s);
  }
}

TEST_F(StartUpTest, AGuideIsAskedForAtTheServerThatTheServiceMovedTo) {
  saveAccount();
  AppModel& app = launch();
  app.navigate(Section::search);
  app.select(entry(LibraryKind::live, 1));
  app.guide().prefetchGuide(entry(LibraryKind::live, 2));
  settle();
  ASSERT_EQ(transport.open(guideRequest), 2);
  transport.always(QString(), acceptedSignIn());
  nameServer("http://new.example");
  const auto openThere = [&] {
    clock.advance(100ms);
    return std::ranges::count_if(transport.exchanges(), [](const auto& exchange) {
      return exchange->action == guideRequest && !exchange->over &&
             exchange->request.address.host() == u"new.example"_s;
    });
  };
  ASSERT_TRUE(eventually([&] { return openThere() == 2; }));
  EXPECT_EQ(transport.open(guideRequest), 2) << "nothing waits for the old one";
  while (transport.answer(guideRequest, guide({{"News", 0s, 1h}}))) settle();
  EXPECT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
  EXPECT_EQ(app.guide().guide().size(), 1);
}

TEST_F(StartUpTest, WhatCannotBeReadEndsInASentence) {
  credentials.put(providerItem, "{\"id\":7}");
  EXPECT_TRUE(launch().notice().has_value());
  EXPECT_EQ(model->session().account(), std::nullopt);
  credentials.fail(Operation::copyMatching);
  EXPECT_EQ(
      launch().notice(),
      u"Vantor could not read its saved account from Keychain. Allow access and try again."_s);
  EXPECT_EQ(model->session().account(), std::nullopt);
  credentials.work(Operation::copyMatching);
  credentials.fail(Operation::add);
  saveAccount();
  EXPECT_EQ(launch().notice(), u"Vantor could not securely save this account in Keychain."_s);
  EXPECT_EQ(model->session().account(), account) << "signed in without a disk copy";
}

TEST_F(StartUpTest, WithoutAnAccountOrIsolatedNothingIsAsked) {
  AppModel& plain = launch();
  EXPECT_EQ(plain.browsing().section(), Section::live);
  EXPECT_FALSE(plain.session().account() || plain.notice() || plain.session().demo());
  EXPECT_TRUE(plain.record().favorites().isEmpty());
  saveAccount();
  const int read = credentials.calls(Operation::copyMatching);
  for (const QStringList& arguments :
       {QStringList{u"--demo"_s}, QStringList{u"--smoke-test"_s, u"/x.mkv"_s}}) {
    AppModel& app = launch(arguments);
    EXPECT_FALSE(app.session().account().has_value());
    EXPECT_EQ(app.session().demo(), arguments.size() == 1);
    app.guide().prefetchGuide(entry(LibraryKind::live, 1));
    app.select(app.session().demo() ? item(1) : entry(LibraryKind::live, 1));
    app.refreshGuide();
    settle();
    EXPECT_FALSE(app.details().detailsLoading());
  }
  EXPECT_EQ(credentials.calls(Operation::copyMatching), read);
  EXPECT_TRUE(transport.exchanges().empty());
}

}  // namespace
}  // namespace vantor::test
