// The transport against a real server on the loopback interface.
#include "net/http_client.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>

#include "net/redirect_rule.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"
#include "sim/packing.h"
#include "sim/server.h"
#include "support/awaited.h"

namespace vantor::test {
namespace {

sim::Options withoutStreams() {
  sim::Options options;
  options.streams = false;
  return options;
}

class HTTPClientTest : public ::testing::Test {
 protected:
  sim::Server server{withoutStreams()};
  HTTPClient client;
  std::stop_source stop;
  const std::string config = "config";

  HTTPRequest request(const std::string& path = "/vantor-config.json") {
    HTTPRequest made;
    made.address = QUrl(QString::fromStdString(server.url() + path));
    made.userAgent = "Agent/1";
    return made;
  }
  QCoro::Task<QByteArray> begin(std::int64_t limit = defaultBodyLimit) {
    return client.fetch(request(), limit, stop.get_token());
  }
  /// How large the body is, or the sentence or the kind of the failure.
  static QString outcome(QCoro::Task<QByteArray> fetching) {
    try {
      return u"%1 bytes"_s.arg(awaited<QByteArray>(std::move(fetching)).size());
    } catch (const AppError& error) {
      return error.message;
    } catch (const HTTPFailure& failure) {
      return u"status %1"_s.arg(failure.status);
    } catch (const URLError& error) {
      return error.code == URLError::Code::cancelled  ? u"cancelled"_s
             : error.code == URLError::Code::timedOut ? u"timed out"_s
                                                      : u"unreachable"_s;
    } catch (const Cancelled&) {
      return u"never began"_s;
    }
  }
};

const QString tooLargeAnnounced =
    u"The provider response is larger than this preview can safely load."_s;
const QString tooLarge = u"The provider response is too large."_s;

TEST_F(HTTPClientTest, AcceptsABodyOfExactlyTheLimit) {
  server.setBody(config, std::string(1000, 'x'));
  EXPECT_EQ(outcome(begin(1000)), u"1000 bytes"_s);
  EXPECT_EQ(outcome(begin(999)), tooLargeAnnounced);
  EXPECT_TRUE(server.counters().userAgents.contains("Agent/1"));
}

TEST_F(HTTPClientTest, UnpacksNoMoreThanTheLimit) {
  constexpr std::int64_t limit = 8 * 1024 * 1024;
  // So little of it can be packed that size beside length does not give away what follows.
  std::string noise;
  for (std::uint32_t x = 1; noise.size() < 3'000'000; x = x * 1'664'525 + 1'013'904'223)
    noise += static_cast<char>(x >> 24);
  const auto processorTime = [&](const char* encoding, const std::string& body,
                                 const QString& expected) {
    server.setBody(config, body, "text/plain", encoding);
    const std::clock_t before = std::clock();
    EXPECT_EQ(outcome(begin(limit)), expected) << encoding;
    return std::clock() - before;
  };
  for (const char* encoding : {"gzip", "deflate", "br", "zstd"}) {
    const std::string bomb = sim::bomb(encoding);
    const std::clock_t most =
        100 *
        processorTime(encoding, sim::packed(encoding, std::string(limit, ' ')), u"8388608 bytes"_s);
    EXPECT_LT(processorTime(encoding, bomb, tooLarge), most) << "whatever more it would become";
  }
  // These may have several parts.
  for (const char* encoding : {"gzip", "zstd"})
    EXPECT_LT(processorTime(encoding, sim::packed(encoding, noise) + sim::bomb(encoding), tooLarge),
              100 * processorTime(encoding, sim::packed(encoding, noise), u"3000000 bytes"_s));
}

TEST_F(HTTPClientTest, ReadsCompressedAnswers) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += std::to_string(i);
  const std::string gzip = sim::packed("gzip", text);
  const std::string deflate = sim::packed("deflate", text);
  // Encoding, body and what is read, or nothing when that fails.
  const std::tuple<const char*, std::string, std::optional<std::string>> cases[] = {
      {"gzip", gzip, text},
      {"GZip", gzip, text},
      {"x-gzip", gzip, text},
      {"deflate", deflate, text},
      {"deflate", deflate.substr(2, deflate.size() - 6), text},  // without header and sum
      {"br", sim::packed("br", text), text},
      {"zstd", sim::packed("zstd", text), text},
      {"gzip", sim::packed("gzip", "a") + sim::packed("gzip", "b"), "ab"},
      {"zstd", sim::packed("zstd", "a") + sim::packed("zstd", "b"), "ab"},
      {"gzip", sim::packed("gzip", "a") + std::string(16, '\0'), "a"},
      {"br", sim::packed("br", "a") + "\n", "a"},
      {"gzip", sim::packed("gzip", ""), ""},
      {"gzip", "", ""},
      {"identity", text, text},
      {"rot13", "{}", "{}"},
      {"gzip", gzip.substr(0, gzip.size() / 2), std::nullopt},
      {"gzip", gzip.substr(0, gzip.size() - 1), std::nullopt},
      {"br", sim::packed("br", text).substr(0, 1000), std::nullopt},
      {"zstd", sim::packed("zstd", text).substr(0, 1000), std::nullopt},
      {"gzip", std::string(gzip).replace(gzip.size() / 2, 8, 8, '\xFF'), std::nullopt},
      {"br", "{\"user_info\":{}}", std::nullopt},
      {"zstd", "{\"user_info\":{}}", std::nullopt},
  };
  for (const auto& [encoding, body, read] : cases) {
    SCOPED_TRACE(testing::Message() << encoding << ", " << body.size() << " bytes");
    server.setBody(config, body, "application/json", encoding);
    if (read)
      EXPECT_TRUE(awaited<QByteArray>(begin()).toStdString() == *read);
    else
      EXPECT_EQ(outcome(begin()), u"unreachable"_s);
  }
}

TEST_F(HTTPClientTest, TellsFailuresApartAndFollowsARedirectToTheSameOriginOnly) {
  using enum sim::Fault;
  const QString whole = outcome(begin());
  const std::pair<sim::Fault, QString> cases[] = {
      {status401, u"status 401"_s},
      {status403, u"status 403"_s},
      {status500, u"status 500"_s},
      {cutOff, u"unreachable"_s},
      {oversizeAnnounced, tooLargeAnnounced},
      {oversizeUnannounced, tooLarge},
      {redirectSameOrigin, whole},
      {redirectOversize, whole},
      {redirectOtherPort, u"status 302"_s},
      {redirectOtherHost, u"status 302"_s},
      {redirectOtherScheme, u"status 302"_s},
      {redirectLoop, u"status 302"_s},
  };
  for (const auto& [fault, expected] : cases) {
    server.setFault(config, fault);
    EXPECT_EQ(outcome(begin()), expected) << sim::faultName(fault);
  }
  EXPECT_EQ(server.counters().strays, 0) << "no request may reach the other origin";
  const auto at = [&](const QString& address) {
    return outcome(client.fetch({.address = QUrl(address)}, 100, stop.get_token()));
  };
  EXPECT_EQ(at(u"http://127.0.0.1:1/"_s), u"unreachable"_s);
  EXPECT_EQ(
      at(u"file:///etc/hostname"_s),
      u"The provider could not complete the request. Check your account or try again later."_s);
}

TEST_F(HTTPClientTest, HasClosedItsConnectionWhenItTellsWhatCameOfIt) {
  server.setBody("live", std::string(8 * 1024 * 1024, 'x'));
  for (int times = 0; times < 30; ++times)
    EXPECT_EQ(outcome(client.fetch(request("/live/a/b/1.ts"), times, stop.get_token())),
              tooLargeAnnounced);
  EXPECT_EQ(server.counters().requests["live"], 30);
  EXPECT_EQ(server.counters().mostStreamsAtOnce, 1);
}

TEST_F(HTTPClientTest, CancellingClosesTheConnectionOrSendsNothing) {
  server.hold(config);
  auto fetching = begin();
  ASSERT_TRUE(eventually([&] { return server.counters().requests["config"] == 1; }));
  stop.request_stop();
  stop.request_stop();
  EXPECT_EQ(outcome(std::move(fetching)), u"cancelled"_s);
  EXPECT_TRUE(eventually([&] { return server.counters().connectionsOpen == 0; }))
      << "while the server still holds the request";
  EXPECT_EQ(outcome(begin()), u"never began"_s) << "being cancelled before";
  EXPECT_EQ(server.counters().requests["config"], 1);
}

TEST_F(HTTPClientTest, DestroyingTheClientEndsItsTransfers) {
  auto shortLived = std::make_unique<HTTPClient>();
  server.hold(config);
  auto fetching = shortLived->fetch(request(), defaultBodyLimit, stop.get_token());
  ASSERT_TRUE(eventually([&] { return server.counters().requests["config"] == 1; }));
  shortLived.reset();
  EXPECT_EQ(outcome(std::move(fetching)), u"cancelled"_s);
  // Also those that its thread has not heard of yet.
  for (int i = 0; i < 100; ++i) {
    shortLived = std::make_unique<HTTPClient>();
    fetching = shortLived->fetch(request(), defaultBodyLimit, stop.get_token());
    shortLived.reset();
    EXPECT_THAT(outcome(std::move(fetching)), testing::AnyOf(u"cancelled"_s, u"never began"_s));
  }
}

TEST_F(HTTPClientTest, EndsWhenNoDataComesOrAllTakesTooLong) {
  const std::pair<sim::Fault, TransferTimes> cases[] = {
      {sim::Fault::silent, {.withoutData = 50ms, .inAll = 1h}},
      {sim::Fault::slow, {.withoutData = 1h, .inAll = 50ms}}};
  for (const auto& [fault, times] : cases) {
    HTTPClient hasty(times);
    server.setFault(config, fault);
    EXPECT_EQ(outcome(hasty.fetch(request(), defaultBodyLimit, stop.get_token())), u"timed out"_s)
        << sim::faultName(fault);
  }
}

TEST(RedirectRule, ComparesSchemeHostAndPortAsTexts) {
  const std::pair<const char*, const char*> allowed[] = {
      {"http://h:80/a", "http://h:80/b"},
      {"http://h/a", "http://h/b?c"},
      {"http://h/a", "/b"},
      {"http://h/a", "?x"},
      {"http://h/a", "/b?at=12:30"},
      {"http://h/a", "b?from=http://other/c"},
      {"http://h/a", "?:"},
      {"http://h/a", "#a:b"},
      {"http://h/a", "b/c:d//e"},
      {"http://h/a", ":b"},
      {"http://h/a", "//h/b"},
      {"http://[::1]:8/a", "http://[::1]:8/b"},
  };
  for (const auto& [original, location] : allowed)
    EXPECT_TRUE(redirectIsAllowed(QUrl(QString::fromUtf8(original)), location)) << location;
  for (const char* location :
       {"b:c", "//other/b", "http://h:80/b", "https://h/b", "http://H/b", "HTTP://h/b",
        "http://u@h/b", "http://h.evil/b", "http://h\\@evil/b", "http:/b", "file:///etc/passwd"})
    EXPECT_FALSE(redirectIsAllowed(QUrl(u"http://h/a"_s), location)) << location;
  for (const char* location : {"http://h/b", "http://h:8081/"})
    EXPECT_FALSE(redirectIsAllowed(QUrl(u"http://h:8080/a"_s), location)) << location;
}

}  // namespace
}  // namespace vantor::test
