// The transport against a real server on the loopback interface.
#include "net/http_client.h"

#include <gtest/gtest.h>

#include <ctime>

#include "net/redirect_rule.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"
#include "sim/packing.h"
#include "sim/server.h"
#include "support/awaited.h"

namespace vantor {
namespace {

using test::awaited;
using test::eventually;

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
  QByteArray fetch(std::int64_t limit = defaultBodyLimit) {
    return awaited<QByteArray>(client.fetch(request(), limit, stop.get_token()));
  }
  /// The sentence of the `AppError` that `limit` leads to, or what else happened.
  QString sentence(std::int64_t limit) {
    try {
      return QStringLiteral("%1 bytes").arg(fetch(limit).size());
    } catch (const AppError& error) {
      return error.message;
    }
  }
};

const QString tooLargeAnnounced =
    QStringLiteral("The provider response is larger than this preview can safely load.");
const QString tooLarge = QStringLiteral("The provider response is too large.");

TEST_F(HTTPClientTest, AcceptsABodyOfExactlyTheLimit) {
  server.setBody(config, std::string(1000, 'x'));
  EXPECT_EQ(sentence(1000), QStringLiteral("1000 bytes"));
  EXPECT_EQ(sentence(999), tooLargeAnnounced);
  EXPECT_TRUE(server.counters().userAgents.contains("Agent/1"));
}

TEST_F(HTTPClientTest, RefusesBodiesOverTheLimit) {
  server.setFault(config, sim::Fault::oversizeAnnounced);
  EXPECT_EQ(sentence(defaultBodyLimit), tooLargeAnnounced);
  server.setFault(config, sim::Fault::oversizeUnannounced);
  EXPECT_EQ(sentence(defaultBodyLimit), tooLarge);
}

TEST_F(HTTPClientTest, UnpacksNoMoreThanTheLimit) {
  constexpr std::int64_t limit = 8 * 1024 * 1024;
  // So little of it can be packed that size beside length does not give away what follows.
  std::string noise;
  for (std::uint32_t x = 1; noise.size() < 3'000'000; x = x * 1'664'525 + 1'013'904'223)
    noise += static_cast<char>(x >> 24);
  using enum sim::Fault;
  const std::pair<const char*, sim::Fault> bombs[] = {{"gzip", oversizeGzip},
                                                      {"deflate", oversizeDeflate},
                                                      {"br", oversizeBrotli},
                                                      {"zstd", oversizeZstd}};
  for (const auto& [encoding, fault] : bombs) {
    SCOPED_TRACE(encoding);
    const auto processorTime = [this](const QString& outcome) {
      const std::clock_t before = std::clock();
      EXPECT_EQ(sentence(limit), outcome);
      return std::clock() - before;
    };
    server.setFault(config, fault);
    EXPECT_EQ(sentence(limit), tooLarge) << "and the simulator has made it";
    const std::clock_t spent = processorTime(tooLarge);
    server.setFault(config, none);
    server.setBody(config, sim::packed(encoding, std::string(limit, ' ')), "text/plain", encoding);
    const std::clock_t harmless = processorTime(QStringLiteral("8388608 bytes"));
    EXPECT_LT(spent, 100 * harmless) << "whatever more it would have become";
    if (fault == oversizeGzip || fault == oversizeZstd) {
      // Both may have several parts.
      server.setBody(config, sim::packed(encoding, noise) + sim::bomb(encoding), "text/plain",
                     encoding);
      EXPECT_LT(processorTime(tooLarge), 100 * harmless);
    }
    server.reset();
  }
}

TEST_F(HTTPClientTest, ReadsCompressedAnswers) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += std::to_string(i);
  const std::string gzip = sim::packed("gzip", text);
  const std::string deflate = sim::packed("deflate", text);
  struct Case {
    const char* encoding;
    std::string body;
    std::optional<std::string> read;  // absent when it fails
  };
  const Case cases[] = {
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
  for (const Case& example : cases) {
    SCOPED_TRACE(example.encoding + std::to_string(&example - cases));
    server.setBody(config, example.body, "application/json", example.encoding);
    try {
      EXPECT_TRUE(fetch().toStdString() == example.read);
    } catch (const URLError& error) {
      EXPECT_FALSE(example.read);
      EXPECT_EQ(error.code, URLError::Code::unreachable);
    }
  }
}

TEST_F(HTTPClientTest, FollowsARedirectToTheSameOriginOnly) {
  const std::pair<sim::Fault, bool> cases[] = {
      {sim::Fault::redirectSameOrigin, true},   {sim::Fault::redirectOversize, true},
      {sim::Fault::redirectOtherPort, false},   {sim::Fault::redirectOtherHost, false},
      {sim::Fault::redirectOtherScheme, false}, {sim::Fault::redirectLoop, false}};
  for (const auto& [fault, followed] : cases) {
    server.setFault(config, fault);
    try {
      EXPECT_FALSE(fetch().isEmpty());
      EXPECT_TRUE(followed) << static_cast<int>(fault);
    } catch (const HTTPFailure& failure) {
      EXPECT_FALSE(followed) << static_cast<int>(fault);
      EXPECT_EQ(failure.status / 100, 3);
    }
  }
  EXPECT_EQ(server.counters().strays, 0) << "no request may reach the other origin";
}

TEST_F(HTTPClientTest, ReportsTheStatusOfEveryOtherAnswer) {
  const std::pair<sim::Fault, int> cases[] = {
      {sim::Fault::status401, 401}, {sim::Fault::status403, 403}, {sim::Fault::status500, 500}};
  for (const auto& [fault, status] : cases) {
    server.setFault(config, fault);
    try {
      fetch();
      ADD_FAILURE() << status;
    } catch (const HTTPFailure& failure) {
      EXPECT_EQ(failure.status, status);
    }
  }
}

TEST_F(HTTPClientTest, ACutOffBodyIsNoSuccess) {
  server.setFault(config, sim::Fault::cutOff);
  EXPECT_THROW(fetch(), URLError);
}

TEST_F(HTTPClientTest, HasClosedItsConnectionWhenItTellsWhatCameOfIt) {
  server.setBody("live", std::string(8 * 1024 * 1024, 'x'));
  for (int times = 0; times < 30; ++times) {
    EXPECT_THROW(
        awaited<QByteArray>(client.fetch(request("/live/a/b/1.ts"), times, stop.get_token())),
        AppError);
  }
  EXPECT_EQ(server.counters().requests["live"], 30);
  EXPECT_EQ(server.counters().mostStreamsAtOnce, 1);
}

TEST_F(HTTPClientTest, RefusesWhatIsNotHTTP) {
  HTTPRequest local;
  local.address = QUrl(QStringLiteral("file:///etc/hostname"));
  EXPECT_THROW(awaited<QByteArray>(client.fetch(local, 100, stop.get_token())), AppError);
}

TEST_F(HTTPClientTest, AnUnreachableServerFails) {
  HTTPRequest nowhere;
  nowhere.address = QUrl(QStringLiteral("http://127.0.0.1:1/"));
  try {
    awaited<QByteArray>(client.fetch(nowhere, 100, stop.get_token()));
    ADD_FAILURE();
  } catch (const URLError& error) {
    EXPECT_EQ(error.code, URLError::Code::unreachable);
  }
}

TEST_F(HTTPClientTest, CancelledBeforeItStartsSendsNothing) {
  stop.request_stop();
  EXPECT_THROW(fetch(), Cancelled);
  EXPECT_EQ(server.counters().requests["config"], 0);
}

TEST_F(HTTPClientTest, CancellingClosesTheConnection) {
  server.hold(config);
  auto fetching = client.fetch(request(), defaultBodyLimit, stop.get_token());
  ASSERT_TRUE(eventually([&] { return server.counters().requests["config"] == 1; }));
  stop.request_stop();
  stop.request_stop();
  try {
    awaited<QByteArray>(std::move(fetching));
    ADD_FAILURE();
  } catch (const URLError& error) {
    EXPECT_EQ(error.code, URLError::Code::cancelled);
  }
  EXPECT_TRUE(eventually([&] { return server.counters().connectionsOpen == 0; }))
      << "while the server still holds the request";
}

TEST_F(HTTPClientTest, DestroyingTheClientEndsItsTransfers) {
  auto shortLived = std::make_unique<HTTPClient>();
  server.hold(config);
  auto fetching = shortLived->fetch(request(), defaultBodyLimit, stop.get_token());
  ASSERT_TRUE(eventually([&] { return server.counters().requests["config"] == 1; }));
  shortLived.reset();
  EXPECT_THROW(awaited<QByteArray>(std::move(fetching)), URLError);
  // Also those that its thread has not heard of yet.
  for (int i = 0; i < 100; ++i) {
    shortLived = std::make_unique<HTTPClient>();
    fetching = shortLived->fetch(request(), defaultBodyLimit, stop.get_token());
    shortLived.reset();
    try {
      awaited<QByteArray>(std::move(fetching));
      ADD_FAILURE();
    } catch (const URLError& error) {
      EXPECT_EQ(error.code, URLError::Code::cancelled);
    } catch (const Cancelled&) {
      // As well.
    }
  }
}

TEST_F(HTTPClientTest, EndsWhenNoDataComesOrAllTakesTooLong) {
  using namespace std::chrono_literals;
  const std::pair<sim::Fault, TransferTimes> cases[] = {
      {sim::Fault::silent, {.withoutData = 50ms, .inAll = 1h}},
      {sim::Fault::slow, {.withoutData = 1h, .inAll = 50ms}}};
  for (const auto& [fault, times] : cases) {
    HTTPClient hasty(times);
    server.setFault(config, fault);
    try {
      awaited<QByteArray>(hasty.fetch(request(), defaultBodyLimit, stop.get_token()));
      ADD_FAILURE() << static_cast<int>(fault);
    } catch (const URLError& error) {
      EXPECT_EQ(error.code, URLError::Code::timedOut);
    }
  }
}

TEST(RedirectRule, ComparesSchemeHostAndPortAsTexts) {
  struct Case {
    const char* original;
    const char* location;
    bool allowed;
  };
  const Case cases[] = {
      {"http://h:80/a", "http://h:80/b", true},
      {"http://h/a", "http://h/b?c", true},
      {"http://h/a", "/b", true},
      {"http://h/a", "b:c", false},
      {"http://h/a", "?x", true},
      {"http://h/a", "/b?at=12:30", true},
      {"http://h/a", "b?from=http://other/c", true},
      {"http://h/a", "?:", true},
      {"http://h/a", "#a:b", true},
      {"http://h/a", "b/c:d//e", true},
      {"http://h/a", ":b", true},
      {"http://h/a", "//h/b", true},
      {"http://h/a", "//other/b", false},
      {"http://h/a", "http://h:80/b", false},
      {"http://h:80/a", "http://h/b", false},
      {"http://h/a", "https://h/b", false},
      {"http://h/a", "http://H/b", false},
      {"http://h/a", "HTTP://h/b", false},
      {"http://h/a", "http://u@h/b", false},
      {"http://h/a", "http://h.evil/b", false},
      {"http://h/a", "http://h\\@evil/b", false},
      {"http://h/a", "http:/b", false},
      {"http://h:8080/a", "http://h:8081/", false},
      {"http://[::1]:8/a", "http://[::1]:8/b", true},
      {"http://h/a", "file:///etc/passwd", false},
  };
  for (const Case& example : cases)
    EXPECT_EQ(redirectIsAllowed(QUrl(QString::fromUtf8(example.original)), example.location),
              example.allowed)
        << example.original << " -> " << example.location;
}

}  // namespace
}  // namespace vantor
