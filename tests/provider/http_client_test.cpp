// The transport against a real server on the loopback interface.
#include "provider/http_client.h"

#include <gtest/gtest.h>

#include "platform/cancelled.h"
#include "provider/error_wording.h"
#include "provider/redirect_rule.h"
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
  server.setFault(config, sim::Fault::oversizeCompressed);
  EXPECT_EQ(sentence(defaultBodyLimit), tooLarge);
}

TEST_F(HTTPClientTest, FollowsARedirectToTheSameOriginOnly) {
  const std::pair<sim::Fault, bool> cases[] = {{sim::Fault::redirectSameOrigin, true},
                                               {sim::Fault::redirectOtherPort, false},
                                               {sim::Fault::redirectOtherHost, false},
                                               {sim::Fault::redirectOtherScheme, false},
                                               {sim::Fault::redirectLoop, false}};
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
