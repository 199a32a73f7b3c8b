#include "provider/provider_client.h"

#include <gtest/gtest.h>

#include "platform/cancelled.h"
#include "platform/preferences.h"
#include "platform/worker.h"
#include "provider/vantor_configuration.h"
#include "support/awaited.h"
#include "support/fake_transport.h"
#include "support/sentence.h"

#include <QSemaphore>
#include <QTemporaryDir>

namespace vantor::test {
namespace {

class ProviderClientTest : public ::testing::Test {
 protected:
  FakeTransport transport;
  Worker worker;
  const ProviderAccount account =
      ProviderAccount::validated(QString(), u"http://tv.example"_s, u"u"_s, u"p"_s);
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
  EXPECT_EQ(details.maximumConnections, u"2"_s);
  EXPECT_EQ(details.activeConnections, u"0"_s);
  EXPECT_EQ(details.formats, (QStringList{u"m3u8"_s, u"ts"_s}));
  const auto& exchange = *transport.exchanges().front();
  EXPECT_EQ(exchange.request.userAgent, "VantorPlayerMac/0.1.0");
  EXPECT_EQ(exchange.request.timeout, std::chrono::seconds(60));
  EXPECT_EQ(exchange.limit, 33'554'432);
}

TEST(SignInAnswer, IsReadLeniently) {
  const std::pair<const char*, double> accepted[] = {
      // expires in seconds since 1970, 0: never
      {R"("auth":"1","status":"ACTIVE","exp_date":1800000000)", 1.8e9},
      {R"("auth":true,"status":"active","exp_date":null)", 0},
      {R"("auth":1,"status":"Active","exp_date":"null")", 0},
      {R"("auth":1,"status":"Active","exp_date":"-5")", 0},
      {R"("auth":1,"status":"Active","exp_date":"")", 0},
      {R"("auth":1,"status":"Active","exp_date":"1.5x")", 0},
      {R"("auth":1,"status":"Active","exp_date":32503680000)", 32'503'680'000.0},
      {R"("auth":1,"status":"Active","exp_date":"9223372036.8547755")", 9'223'372'036.85477},
  };
  for (const auto& [info, seconds] : accepted) {
    const auto expires = parseSignIn(QByteArray(R"({"user_info":{)") + info + "}}").expires;
    EXPECT_EQ(expires.has_value(), seconds > 0) << info;
    const std::chrono::duration<double> since = expires.value_or(ProviderTime()).time_since_epoch();
    EXPECT_NEAR(since.count(), seconds, 1e-4) << info;
  }
  for (const char* answer : {R"({"user_info":{"auth":"0","status":"Active"}})",
                             R"({"user_info":{"auth":1.5,"status":"Active"}})",
                             R"({"user_info":{"auth":1,"status":"Expired"}})",
                             R"({"user_info":{"auth":1}})", R"({"user_info":{"status":"Active"}})",
                             "[]", "{}", R"({"user_info":[]})", R"({"user_info":null})"})
    EXPECT_EQ(sentence([&] { parseSignIn(answer); }),
              u"Your provider did not accept this account. Check the username, password and "
              "subscription status."_s)
        << answer;
  const auto formats = [](const QByteArray& list) {
    return parseSignIn(R"({"user_info":{"auth":1,"status":"Active","allowed_output_formats":[)" +
                       list + "]}}")
        .formats.size();
  };
  EXPECT_EQ(formats(R"("m3u8",7)"), 0);
  EXPECT_EQ(formats(R"("ts",)" + QByteArray(R"("",)").repeated(99) + R"("ts")"), 64);
  EXPECT_EQ(formats(R"("ts",)" + QByteArray(R"("",)").repeated(99) + "7"), 0);
  EXPECT_NO_THROW(parseSignIn(R"({"user_info":{"auth":1,"status":"Active","exp_date":1e300}})"));
}

TEST_F(ProviderClientTest, WhoeverStopsReadsNoAnswer) {
  const auto expectCancelled = [&](auto start, const char* action, const QByteArray& answer) {
    // It waits to be read, or AddressSanitizer tells of the worker that is gone.
    for (const bool waits : {true, false}) {
      auto own = std::make_unique<Worker>();
      QSemaphore reading;
      auto operation = start(ProviderClient(account, transport, *own));
      using Value = typename decltype(operation)::value_type;
      settle();
      if (waits) own->post([&reading] { reading.acquire(); });
      transport.answer(QString::fromLatin1(action), answer);
      if (waits) settle();
      stop.request_stop();
      reading.release();
      if (!waits) own.reset();
      EXPECT_THROW(awaited<Value>(std::move(operation)), Cancelled) << action << ' ' << waits;
      stop = std::stop_source();
    }
  };
  const auto catalog = [&](LibraryKind kind) {
    return [this, kind](const ProviderClient& own) { return own.catalog(kind, stop.get_token()); };
  };
  transport.always(u"get_live_categories"_s, "[]");
  transport.always(u"get_vod_streams"_s, "[]");
  expectCancelled(catalog(LibraryKind::live), "get_live_streams", "[]");
  expectCancelled(catalog(LibraryKind::movies), "get_vod_categories", "[]");
  expectCancelled([&](const ProviderClient& own) { return own.episodes({}, stop.get_token()); },
                  "get_series_info", R"({"episodes":{}})");
  expectCancelled([&](const ProviderClient& own) { return own.guide({}, stop.get_token()); },
                  "get_short_epg", "{}");
}

TEST(Configuration, TakesTheServerThatTheDocumentNamesOrTheLastAcceptedOne) {
  const QTemporaryDir folder;
  FakeTransport transport;
  Preferences preferences(folder.filePath(u"p.ini"_s));
  VantorConfiguration configuration(transport, preferences,
                                    QUrl(u"https://support.example/vantor-config.json"_s),
                                    u"http://fallback.example:25461"_s);
  const QString document = u"vantor-config.json"_s;
  const auto resolve = [&] { return awaited<QString>(configuration.resolve(std::stop_token())); };
  transport.always(document, R"({"schemaVersion":1,"serverUrl":"http://new.example:80/","x":1})");
  EXPECT_EQ(resolve(), u"http://new.example:80"_s);
  EXPECT_EQ(configuration.currentServer(), u"http://fallback.example:25461"_s)
      << "resolving stores nothing";
  const auto& exchange = *transport.exchanges().front();
  EXPECT_EQ(exchange.limit, 16'384);
  EXPECT_EQ(exchange.request.timeout, std::chrono::seconds(8));

  transport.always(document, "{");
  EXPECT_EQ(resolve(), u"http://fallback.example:25461"_s);
  configuration.accept(u"http://accepted.example"_s);
  EXPECT_EQ(resolve(), u"http://accepted.example"_s);
  transport.onDemand(document);
  auto pending = configuration.resolve(std::stop_token());
  settle();
  transport.fail(document, HTTPFailure(404));
  EXPECT_EQ(awaited<QString>(std::move(pending)), u"http://accepted.example"_s);
}

TEST(ConfigurationDocument, IsCheckedStrictly) {
  const auto naming = [](const char* server) {
    return QByteArray(R"({"serverUrl":")") + server + R"(","schemaVersion":1})";
  };
  for (const QByteArray& refused :
       {QByteArray(R"({"schemaVersion":"1","serverUrl":"http://a.example"})"),
        QByteArray(R"({"schemaVersion":2,"serverUrl":"http://a.example"})"),
        QByteArray(R"({"serverUrl":"http://a.example"})"), QByteArray(R"({"schemaVersion":1})"),
        QByteArray(R"({"schemaVersion":1,"serverUrl":7})"), QByteArray("[]"),
        naming("HTTP://a.example"), naming("ftp://a.example"), naming("http://a.example?"),
        naming("http://a.example#x"), naming("http://u@a.example"), naming("http://@a.example"),
        naming(" http://a.example"), naming("http://")})
    EXPECT_THROW(VantorConfiguration::decode(refused), AppError) << refused.constData();
  EXPECT_EQ(VantorConfiguration::decode(naming("https://a.example/base/")),
            u"https://a.example/base"_s);
}

}  // namespace
}  // namespace vantor::test
