#include "provider/provider_client.h"

#include <gtest/gtest.h>

#include "json/json_reading.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"
#include "platform/preferences.h"
#include "platform/worker.h"
#include "provider/error_wording.h"
#include "provider/vantor_configuration.h"
#include "support/awaited.h"
#include "support/fake_transport.h"

#include <QTemporaryDir>
#include <future>

namespace vantor {
namespace {

using test::awaited;
using test::FakeTransport;
using test::settle;

const QString rejection = QStringLiteral(
    "Your provider did not accept this account. Check the username, password and subscription "
    "status.");

class ProviderClientTest : public ::testing::Test {
 protected:
  FakeTransport transport;
  Worker worker;
  const ProviderAccount account = ProviderAccount::validated(
      QString(), QStringLiteral("http://tv.example"), QStringLiteral("u"), QStringLiteral("p"));
  ProviderClient client{account, transport, worker};
  std::stop_source stop;
};

TEST_F(ProviderClientTest, SignsInWithTheAgentAndLimit) {
  transport.always(QString(),
                   R"({"user_info":{"auth":1,"status":"Active","exp_date":"1800000000",
                       "max_connections":"2","active_cons":0,
                       "allowed_output_formats":["m3u8","ts"]},"server_info":{}})");
  const auto details = awaited<ProviderDetails>(client.authenticate(stop.get_token()));
  EXPECT_EQ(details.expires->time_since_epoch(), std::chrono::seconds(1'800'000'000));
  EXPECT_EQ(details.maximumConnections, QStringLiteral("2"));
  EXPECT_EQ(details.activeConnections, QStringLiteral("0"));
  EXPECT_EQ(details.formats, (QStringList{QStringLiteral("m3u8"), QStringLiteral("ts")}));
  const auto& exchange = *transport.exchanges().front();
  EXPECT_EQ(exchange.request.userAgent, "VantorPlayerMac/0.1.0");
  EXPECT_EQ(exchange.request.timeout, std::chrono::seconds(60));
  EXPECT_EQ(exchange.limit, 33'554'432);
}

TEST(SignInAnswer, IsReadLeniently) {
  struct Case {
    const char* info;
    bool accepted;
    double expires;  // seconds since 1970; 0: absent
  };
  const Case cases[] = {
      {R"("auth":"1","status":"ACTIVE","exp_date":1800000000)", true, 1.8e9},
      {R"("auth":true,"status":"active","exp_date":null)", true, 0},
      {R"("auth":1,"status":"Active","exp_date":"null")", true, 0},
      {R"("auth":1,"status":"Active","exp_date":"-5")", true, 0},
      {R"("auth":1,"status":"Active","exp_date":"")", true, 0},
      {R"("auth":1,"status":"Active","exp_date":"1.5x")", true, 0},
      {R"("auth":1,"status":"Active","exp_date":32503680000)", true, 32'503'680'000.0},
      {R"("auth":1,"status":"Active","exp_date":"9223372036.8547755")", true, 9'223'372'036.85477},
      {R"("auth":"0","status":"Active")", false, 0},
      {R"("auth":1.5,"status":"Active")", false, 0},
      {R"("auth":1,"status":"Expired")", false, 0},
      {R"("auth":1)", false, 0},
      {R"("status":"Active")", false, 0},
  };
  for (const Case& example : cases) {
    const QByteArray answer = QByteArray("{\"user_info\":{") + example.info + "}}";
    if (!example.accepted) {
      EXPECT_THROW(parseSignIn(answer), AppError) << example.info;
      continue;
    }
    const ProviderDetails details = parseSignIn(answer);
    EXPECT_EQ(details.expires.has_value(), example.expires > 0) << example.info;
    if (details.expires) {
      const std::chrono::duration<double> expires = details.expires->time_since_epoch();
      EXPECT_NEAR(expires.count(), example.expires, 1e-4) << example.info;
    }
  }
  for (const char* answer : {"[]", "{}", "{\"user_info\":[]}", "{\"user_info\":null}"}) {
    try {
      parseSignIn(answer);
      ADD_FAILURE() << answer;
    } catch (const AppError& error) {
      EXPECT_EQ(error.message, rejection);
    }
  }
  EXPECT_THROW(parseSignIn("<html>"), JSONError);
  EXPECT_TRUE(parseSignIn(R"({"user_info":{"auth":1,"status":"Active",
                              "allowed_output_formats":["m3u8",7]}})")
                  .formats.isEmpty());
  EXPECT_NO_THROW(parseSignIn(R"({"user_info":{"auth":1,"status":"Active","exp_date":1e300}})"));
}

TEST_F(ProviderClientTest, CatalogAsksForBothAtOnceAndTakesTheEntriesFailureFirst) {
  auto loading = client.catalog(LibraryKind::shows, stop.get_token());
  settle();
  EXPECT_EQ(transport.open(QStringLiteral("get_series")), 1);
  EXPECT_EQ(transport.open(QStringLiteral("get_series_categories")), 1);
  transport.fail(QStringLiteral("get_series_categories"),
                 std::make_exception_ptr(HTTPFailure(500)));
  settle();
  transport.fail(QStringLiteral("get_series"), std::make_exception_ptr(HTTPFailure(401)));
  try {
    awaited<Catalog>(std::move(loading));
    ADD_FAILURE();
  } catch (const HTTPFailure& failure) {
    EXPECT_EQ(failure.status, 401);
  }
}

TEST_F(ProviderClientTest, FailedEntriesCancelTheCategories) {
  auto loading = client.catalog(LibraryKind::live, stop.get_token());
  settle();
  transport.fail(QStringLiteral("get_live_streams"), std::make_exception_ptr(HTTPFailure(500)));
  EXPECT_THROW(awaited<Catalog>(std::move(loading)), HTTPFailure);
  settle();
  EXPECT_TRUE(transport.exchanges().at(1)->cancelled);
}

TEST_F(ProviderClientTest, EntriesOfAnotherShapeDoNotWaitForTheCategories) {
  auto loading = client.catalog(LibraryKind::live, stop.get_token());
  settle();
  transport.answer(QStringLiteral("get_live_streams"), "{}");
  EXPECT_THROW(awaited<Catalog>(std::move(loading)), AppError);
  settle();
  EXPECT_TRUE(transport.exchanges().at(1)->cancelled);
}

TEST_F(ProviderClientTest, CancellingTheCallerCancelsBothRequests) {
  auto loading = client.catalog(LibraryKind::live, stop.get_token());
  settle();
  stop.request_stop();
  EXPECT_THROW(awaited<Catalog>(std::move(loading)), URLError);
  EXPECT_TRUE(transport.exchanges().at(0)->cancelled);
  EXPECT_TRUE(transport.exchanges().at(1)->cancelled);
}

TEST_F(ProviderClientTest, CancellingTheCallerEndsTheReadingOfItsAnswers) {
  const auto expectCancelled = [&]<class Value>(QCoro::Task<Value> operation, const char* action,
                                                const QByteArray& answer) {
    std::promise<void> gate;
    worker.post([opened = gate.get_future().share()] { opened.wait(); });
    settle();
    transport.answer(QString::fromLatin1(action), answer);
    settle();
    stop.request_stop();
    gate.set_value();
    EXPECT_THROW(awaited<Value>(std::move(operation)), Cancelled) << action;
    stop = std::stop_source();
  };
  const MediaItem item;
  transport.always(QStringLiteral("get_live_categories"), "[]");
  expectCancelled(client.catalog(LibraryKind::live, stop.get_token()), "get_live_streams", "[]");
  transport.always(QStringLiteral("get_vod_streams"), "[]");
  expectCancelled(client.catalog(LibraryKind::movies, stop.get_token()), "get_vod_categories",
                  "[]");
  expectCancelled(client.episodes(item, stop.get_token()), "get_series_info", R"({"episodes":{}})");
  expectCancelled(client.guide(item, stop.get_token()), "get_short_epg", "{}");
}

class ConfigurationTest : public ::testing::Test {
 protected:
  QTemporaryDir folder;
  FakeTransport transport;
  Preferences preferences{folder.filePath(QStringLiteral("p.ini"))};
  VantorConfiguration configuration{
      transport, preferences, QUrl(QStringLiteral("https://support.example/vantor-config.json")),
      QStringLiteral("http://fallback.example:25461")};
  const QString document = QStringLiteral("vantor-config.json");
  QString resolve() { return awaited<QString>(configuration.resolve(std::stop_token())); }
};

TEST_F(ConfigurationTest, TakesTheServerThatTheDocumentNames) {
  transport.always(document, R"({"schemaVersion":1,"serverUrl":"http://new.example:80/","x":1})");
  EXPECT_EQ(resolve(), QStringLiteral("http://new.example:80"));
  EXPECT_EQ(configuration.currentServer(), QStringLiteral("http://fallback.example:25461"))
      << "resolving stores nothing";
  const auto& exchange = *transport.exchanges().front();
  EXPECT_EQ(exchange.limit, 16'384);
  EXPECT_EQ(exchange.request.timeout, std::chrono::seconds(8));
}

TEST_F(ConfigurationTest, FallsBackToTheLastAcceptedServer) {
  transport.always(document, "{");
  EXPECT_EQ(resolve(), QStringLiteral("http://fallback.example:25461"));
  configuration.accept(QStringLiteral("http://accepted.example"));
  EXPECT_EQ(resolve(), QStringLiteral("http://accepted.example"));
  transport.onDemand(document);
  auto pending = configuration.resolve(std::stop_token());
  settle();
  transport.fail(document, std::make_exception_ptr(HTTPFailure(404)));
  EXPECT_EQ(awaited<QString>(std::move(pending)), QStringLiteral("http://accepted.example"));
}

TEST(ConfigurationDocument, IsCheckedStrictly) {
  for (const char* refused : {R"({"schemaVersion":"1","serverUrl":"http://a.example"})",
                              R"({"schemaVersion":2,"serverUrl":"http://a.example"})",
                              R"({"serverUrl":"http://a.example"})", R"({"schemaVersion":1})",
                              R"({"schemaVersion":1,"serverUrl":7})", R"([])",
                              R"({"schemaVersion":1,"serverUrl":"HTTP://a.example"})",
                              R"({"schemaVersion":1,"serverUrl":"ftp://a.example"})",
                              R"({"schemaVersion":1,"serverUrl":"http://a.example?"})",
                              R"({"schemaVersion":1,"serverUrl":"http://a.example#x"})",
                              R"({"schemaVersion":1,"serverUrl":"http://u@a.example"})",
                              R"({"schemaVersion":1,"serverUrl":"http://@a.example"})",
                              R"({"schemaVersion":1,"serverUrl":" http://a.example"})",
                              R"({"schemaVersion":1,"serverUrl":"http://"})"})
    EXPECT_THROW(VantorConfiguration::decode(refused), AppError) << refused;
  EXPECT_THROW(VantorConfiguration::decode("nonsense"), JSONError);
  EXPECT_EQ(
      VantorConfiguration::decode(R"({"serverUrl":"https://a.example/base/","schemaVersion":1})"),
      QStringLiteral("https://a.example/base"));
}

TEST(ReadableError, IsOneSentenceForEveryFailure) {
  const QString general = QStringLiteral(
      "Unable to connect. Check your internet connection and provider details, then try again.");
  const QString cancelled = QStringLiteral("Canceled.");
  EXPECT_EQ(readableError(std::make_exception_ptr(AppError(QString()))), QString());
  EXPECT_EQ(readableError(std::make_exception_ptr(URLError(URLError::Code::cancelled))), cancelled);
  EXPECT_EQ(readableError(std::make_exception_ptr(Cancelled())), cancelled);
  EXPECT_EQ(readableError(std::make_exception_ptr(URLError(URLError::Code::timedOut))), general);
  EXPECT_EQ(readableError(std::make_exception_ptr(HTTPFailure(401))), general);
  EXPECT_EQ(readableError(std::make_exception_ptr(JSONError())), general);
  EXPECT_EQ(readableError(std::make_exception_ptr(7)), general);
}

}  // namespace
}  // namespace vantor
