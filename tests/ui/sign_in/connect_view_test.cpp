#include "ui/sign_in/connect_view.h"

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

class ConnectViewTest : public ViewsTest {
 protected:
  void SetUp() override {
    open();
    view = views->connectView();
    app->setShowingConnect(true);
  }
  void type(const QString& username, const QString& password) {
    view->setUsername(username);
    view->setPassword(password);
  }
  /// Clicks "Connect" and lets the configuration name a server.
  void begin() {
    view->connectAccount();
    settle();
    nameServer();
    settle();
  }
  /// The same, when that is asked to accept the account.
  bool begins() {
    begin();
    return eventually([&] { return transport.open(QString()) == 1; });
  }
  bool ends() {
    return eventually([&] { return !view->working(); });
  }

  ConnectView* view = nullptr;
};

TEST_F(ConnectViewTest, ConnectsOnlyWithBothFields) {
  for (const QString& password : {u""_s, u" "_s}) {
    EXPECT_FALSE(view->canConnect());
    type(u" "_s, password);
  }
  EXPECT_TRUE(view->canConnect());
  begin();
  ASSERT_TRUE(ends());
  EXPECT_EQ(view->error(), u"Enter your provider username and password."_s);
  EXPECT_EQ(transport.requests(QString()), 0);
}

TEST_F(ConnectViewTest, AFailureKeepsWhatWasTypedAndASignInForgetsThePassword) {
  type(u"user"_s, u"secret"_s);
  const std::pair<std::function<void()>, QString> failures[] = {
      {[&] { transport.answer(QString(), R"({"user_info":{"auth":0}})"); },
       u"Your provider did not accept this account. Check the username, password and "
       "subscription status."_s},
      {[&] { transport.fail(QString(), URLError(URLError::Code::unreachable)); },
       u"Unable to connect. Check your internet connection and provider details, then try "
       "again."_s}};
  for (const auto& [fail, error] : failures) {
    ASSERT_TRUE(begins());
    EXPECT_EQ(view->error(), QString());
    fail();
    ASSERT_TRUE(ends());
    EXPECT_EQ(view->error(), error);
    EXPECT_EQ(view->username() + u':' + view->password(), u"user:secret"_s);
    EXPECT_TRUE(view->canConnect());
  }
  ASSERT_TRUE(begins());
  EXPECT_EQ(transport.exchanges().back()->request.address.host(), u"tv.example"_s);
  EXPECT_FALSE(view->canConnect() || view->closable());
  view->close();
  EXPECT_TRUE(app->showingConnect()) << "not while the provider is being asked";
  transport.answer(QString(), acceptedSignIn());
  ASSERT_TRUE(ends());
  EXPECT_FALSE(app->showingConnect());
  EXPECT_EQ(app->session().account()->name, u"Vantor TV"_s);

  app->setShowingConnect(true);
  EXPECT_EQ(view->username() + u':' + view->password(), u"user:"_s);
}

TEST_F(ConnectViewTest, ClosingOrEndingTheViewEndsItsAttempt) {
  type(u"user"_s, u"secret"_s);
  view->connectAccount();
  settle();
  ASSERT_EQ(transport.open(serviceDocument), 1);
  view->close();
  settle();
  EXPECT_TRUE(transport.exchanges().back()->cancelled);
  EXPECT_FALSE(app->showingConnect() || view->working());

  app->setShowingConnect(true);
  type(u"user"_s, u"secret"_s);
  ASSERT_TRUE(begins());
  views.reset();
  settle();
  EXPECT_TRUE(transport.exchanges().back()->cancelled);
  EXPECT_TRUE(eventually([&] { return !app->session().signingInOrOut(); }));
}

}  // namespace
}  // namespace vantor::test
