#include "ui/connect_view.h"

#include <gtest/gtest.h>

#include "provider/error_wording.h"
#include "support/model_fixture.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString configFile = u"vantor-config.json"_s;

class ConnectViewTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void SetUp() override {
    app = &launch();
    view = std::make_unique<ConnectView>(*app);
    app->setShowingConnect(true);
  }
  void TearDown() override { view.reset(); }

  void type(const QString& username, const QString& password) {
    view->setUsername(username);
    view->setPassword(password);
  }
  /// Starts an attempt and lets the service name its server.
  void attempt() {
    view->connectAccount();
    ASSERT_TRUE(test::eventually([&] { return transport.open(configFile) == 1; }));
    transport.answer(configFile, R"({"schemaVersion":1,"serverUrl":"https://named.example"})");
    test::settle();
  }

  AppModel* app = nullptr;
  std::unique_ptr<ConnectView> view;
};

TEST_F(ConnectViewTest, NeedsBothFieldsButTakesBlanks) {
  struct Row {
    QString username;
    QString password;
    bool can;
  };
  for (const Row& row :
       {Row{u""_s, u""_s, false}, Row{u"a"_s, u""_s, false}, Row{u""_s, u"b"_s, false},
        Row{u" "_s, u" "_s, true}, Row{u"a"_s, u"b"_s, true}}) {
    type(row.username, row.password);
    EXPECT_EQ(view->canConnect(), row.can);
  }
  type({}, {});
  view->connectAccount();
  test::settle();
  EXPECT_EQ(transport.open(configFile), 0);
  EXPECT_FALSE(view->working());
}

TEST_F(ConnectViewTest, SignsInToTheServerThatTheServiceNames) {
  type(u"user"_s, u"p w"_s);
  view->connectAccount();
  // At work from the first moment, but not past leaving while only the service is asked.
  EXPECT_TRUE(view->working());
  EXPECT_TRUE(view->closable());
  EXPECT_FALSE(view->canConnect());
  ASSERT_TRUE(test::eventually([&] { return transport.open(configFile) == 1; }));
  transport.answer(configFile, R"({"schemaVersion":1,"serverUrl":"https://named.example"})");
  ASSERT_TRUE(test::eventually([&] { return transport.open(QString()) == 1; }));
  EXPECT_FALSE(view->closable());
  view->close();
  EXPECT_TRUE(app->showingConnect());
  transport.answer(QString(), acceptedSignIn());
  ASSERT_TRUE(test::eventually([&] { return !view->working(); }));
  ASSERT_TRUE(app->account());
  EXPECT_EQ(app->account()->serverText(), u"https://named.example"_s);
  EXPECT_EQ(app->account()->name, u"Vantor TV"_s);
  EXPECT_EQ(app->account()->password, u"p w"_s);
  EXPECT_FALSE(app->showingConnect());
  EXPECT_EQ(view->password(), QString());
  EXPECT_EQ(view->error(), QString());
}

TEST_F(ConnectViewTest, AFailureIsASentenceAndKeepsWhatWasTyped) {
  type(u"user"_s, u"wrong"_s);
  attempt();
  ASSERT_TRUE(transport.fail(QString(), std::make_exception_ptr(HTTPFailure(401))));
  ASSERT_TRUE(test::eventually([&] { return !view->working(); }));
  EXPECT_EQ(view->error(), readableError(std::make_exception_ptr(HTTPFailure(401))));
  EXPECT_EQ(view->username(), u"user"_s);
  EXPECT_EQ(view->password(), u"wrong"_s);
  EXPECT_FALSE(app->account());

  attempt();
  EXPECT_EQ(view->error(), QString());
  transport.answer(QString(), acceptedSignIn());
  ASSERT_TRUE(test::eventually([&] { return app->account().has_value(); }));
}

TEST_F(ConnectViewTest, ClosingWhileTheServiceIsAskedEndsTheAttempt) {
  type(u"user"_s, u"secret"_s);
  view->connectAccount();
  ASSERT_TRUE(test::eventually([&] { return transport.open(configFile) == 1; }));
  view->close();
  EXPECT_FALSE(app->showingConnect());
  EXPECT_FALSE(view->working());
  test::settle();
  transport.answer(configFile, R"({"schemaVersion":1,"serverUrl":"https://named.example"})");
  test::settle();
  EXPECT_EQ(transport.requests(QString()), 0);
  EXPECT_EQ(view->error(), QString());
}

TEST_F(ConnectViewTest, OpensWithTheSavedUserNameAndNoPassword) {
  view->setUsername(u"left over"_s);
  view->close();
  app->setShowingConnect(true);
  EXPECT_EQ(view->username(), QString());
  signIn();
  view->setPassword(u"typed"_s);
  app->setShowingConnect(true);
  EXPECT_EQ(view->username(), u"user"_s);
  EXPECT_EQ(view->password(), QString());
}

TEST_F(ConnectViewTest, CanGoAwayDuringAnAttempt) {
  type(u"user"_s, u"secret"_s);
  attempt();
  view.reset();
  transport.answer(QString(), acceptedSignIn());
  test::settle();
  EXPECT_FALSE(app->busy());
}

}  // namespace
}  // namespace vantor
