#include <cstdio>
#include <fstream>
#include <future>

#include "sim_fixture.h"

namespace sim {
namespace {

using namespace std::chrono_literals;

TEST(SimFaults, EachAnswersAsItsNameSays) {
  Server server({.streams = false});
  const auto proper = clientOf(server).Get(apiTarget("get_vod_categories"))->body;
  // The status is 0 where there is no complete answer.
  const std::tuple<Fault, int, bool> cases[] = {
      {Fault::status401, 401, false},    {Fault::status500, 500, false},
      {Fault::html, 200, false},         {Fault::truncatedJson, 200, false},
      {Fault::deepNesting, 200, false},  {Fault::garbage, 200, false},
      {Fault::empty, 200, false},        {Fault::wrongShape, 200, true},
      {Fault::cutOff, 0, false},         {Fault::notHttp, 0, false},
      {Fault::redirectLoop, 302, false}, {Fault::none, 200, true}};
  for (const auto& [fault, status, parses] : cases) {
    server.setFault("get_vod_categories", fault);
    const auto answer = clientOf(server).Get(apiTarget("get_vod_categories"));
    EXPECT_EQ(answer ? answer->status : 0, status) << faultName(fault);
    if (!answer) continue;
    rapidjson::Document document;
    document.Parse<rapidjson::kParseIterativeFlag>(answer->body.c_str(), answer->body.size());
    EXPECT_EQ(!document.HasParseError(), parses) << faultName(fault);
    EXPECT_EQ(answer->body == proper, fault == Fault::none) << faultName(fault);
  }
}

TEST(SimFaults, AnswersBreakOffAtTheirMoments) {
  Server server({.streams = false});
  const auto target = apiTarget("get_vod_categories");
  const auto size = clientOf(server).Get(target)->body.size();
  const struct {
    Moment moment;
    bool headComes;
    std::size_t bodyComes;
  } cases[] = {{Moment::beforeHead, false, 0},
               {Moment::inHead, false, 0},
               {Moment::inBody, true, size / 2},
               {Moment::beforeLastByte, true, size - 1}};
  for (const auto ending : {Ending::closed, Ending::silent}) {
    for (const auto& [moment, headComes, bodyComes] : cases) {
      server.breakOff("get_vod_categories", {moment, ending});
      bool head = false;
      std::size_t body = 0;
      auto client = clientOf(server);
      if (ending == Ending::silent) client.set_read_timeout(0, 300'000);
      const auto answer = client.Get(
          target, [&](const httplib::Response&) { return head = true; },
          [&](const char*, std::size_t count) { return (body += count) > 0; });
      EXPECT_FALSE(answer);
      EXPECT_EQ(head, headComes) << static_cast<int>(moment);
      EXPECT_EQ(body, bodyComes) << static_cast<int>(moment);
    }
  }
}

TEST(SimFaults, RedirectsLeadToTheAnswerAndStraysAreCounted) {
  // The client decodes the Location header, so nothing in it may need that.
  Server server({.password = "plain", .streams = false});
  const auto target = apiTarget("", "demo", "plain");
  const std::pair<Fault, int> cases[] = {
      {Fault::redirectSameOrigin, 0}, {Fault::redirectOtherPort, 1}, {Fault::redirectOtherHost, 1}};
  for (const auto& [fault, strays] : cases) {
    server.setFault("", fault);
    server.resetCounters();
    const auto location = clientOf(server).Get(target)->get_header_value("Location");
    const auto path = location.find("/player_api");
    ASSERT_NE(path, std::string::npos) << faultName(fault);
    httplib::Client client(location.substr(0, path));
    client.set_url_encode(false);
    const auto answer = client.Get(location.substr(path));
    ASSERT_TRUE(answer) << faultName(fault);
    EXPECT_NE(answer->body.find("\"Active\""), std::string::npos) << faultName(fault);
    EXPECT_EQ(server.counters().strays, strays) << faultName(fault);
    EXPECT_EQ(server.counters().requests[""], 2) << faultName(fault);
  }
}

TEST(SimFaults, AccountStatesShowInSignInAndBeyond) {
  Server server({.streams = false});
  server.setFault("*", Fault::expiredAccount);
  EXPECT_STREQ(getJson(server, apiTarget())["user_info"]["status"].GetString(), "Expired");
  EXPECT_TRUE(getJson(server, apiTarget("get_series")).IsObject());
  server.setFault("*", Fault::connectionLimit);
  const auto account = getJson(server, apiTarget());
  EXPECT_STREQ(account["user_info"]["active_cons"].GetString(),
               account["user_info"]["max_connections"].GetString());
}

TEST(SimFaults, HeldRequestsWaitForTheirReleaseWhileOthersPass) {
  Server server({.streams = false});
  server.hold("get_series");
  server.setBody("get_series", "[\"set\"]", "text/plain");
  auto held = std::async([&] { return clientOf(server).Get(apiTarget("get_series"))->body; });
  auto second = std::async([&] { return clientOf(server).Get(apiTarget("get_series"))->body; });
  ASSERT_TRUE(server.waitForRequests("get_series", 2));
  EXPECT_EQ(clientOf(server).Get(apiTarget("get_vod_categories"))->status, 200);
  EXPECT_EQ(held.wait_for(0s), std::future_status::timeout);
  server.release("get_series");
  EXPECT_EQ(held.get() + second.get(), "[\"set\"][\"set\"]");

  const auto counters = server.counters();
  EXPECT_EQ(counters.mostAtOnce.at("get_series"), 2);
  EXPECT_EQ(counters.lastTarget.at("get_series"), apiTarget("get_series"));
  EXPECT_EQ(counters.connectionsAccepted, 3);
}

TEST(SimFaults, DestructionEndsHeldAndSilentRequests) {
  std::vector<std::future<bool>> clients;
  {
    Server server({.streams = false});
    server.hold("get_series");
    server.setFault("", Fault::silent);
    const int port = server.port();
    for (const auto& target : {apiTarget("get_series"), apiTarget(), std::string("/idle")}) {
      clients.push_back(std::async([=] {
        httplib::Client client("127.0.0.1", port);
        client.set_url_encode(false);
        client.set_keep_alive(true);
        client.set_read_timeout(60);
        return static_cast<bool>(client.Get(target));
      }));
    }
    ASSERT_TRUE(server.waitForRequests("get_series", 1));
    ASSERT_TRUE(server.waitForRequests("", 1));
    EXPECT_TRUE(clients[2].get());
  }
  EXPECT_FALSE(clients[0].get());
  EXPECT_FALSE(clients[1].get());
}

TEST(SimFaults, TlsAnswersUnderItsOwnCertificate) {
  Server server({.streams = false, .tls = true});
  const auto file = testing::TempDir() + "/sim-certificate-" + std::to_string(server.port());
  std::ofstream(file) << server.certificatePem();
  httplib::SSLClient client("localhost", server.port());
  client.set_ca_cert_path(file.c_str());
  client.set_url_encode(false);
  const auto answer = client.Get(apiTarget());
  ASSERT_TRUE(answer) << httplib::to_string(answer.error());
  EXPECT_NE(answer->body.find("\"Active\""), std::string::npos);
  // Plain HTTP on the same port gets nothing.
  EXPECT_FALSE(clientOf(server).Get(apiTarget()));
  std::remove(file.c_str());
}

}  // namespace
}  // namespace sim
