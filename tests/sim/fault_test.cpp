#include <cstdio>
#include <fstream>
#include <future>

#include "sim_fixture.h"

namespace sim {
namespace {

using namespace std::chrono_literals;

class SimFaults : public ::testing::Test {
 protected:
  // The client that follows redirects decodes the Location header, so nothing may need that.
  Server server{Options{.password = "plain", .streams = false}};
  const std::string signIn = target("");
  const std::string categories = target("get_vod_categories");

  static std::string target(const std::string& action) {
    return apiTarget(action, "demo", "plain");
  }
};

TEST_F(SimFaults, EachAnswersAsItsNameSays) {
  const auto proper = get(server, categories)->body;
  // The status is 0 where there is no complete answer.
  const std::tuple<Fault, int, bool> cases[] = {
      {Fault::status401, 401, false},    {Fault::status500, 500, false},
      {Fault::html, 200, false},         {Fault::truncatedJson, 200, false},
      {Fault::deepNesting, 200, false},  {Fault::garbage, 200, false},
      {Fault::empty, 200, false},        {Fault::wrongShape, 200, true},
      {Fault::cutOff, 0, false},         {Fault::notHttp, 0, false},
      {Fault::redirectLoop, 302, false}, {Fault::none, 200, true}};
  for (const auto& [fault, status, parses] : cases) {
    SCOPED_TRACE(faultName(fault));
    server.setFault("get_vod_categories", fault);
    const auto answer = get(server, categories);
    EXPECT_EQ(answer ? answer->status : 0, status);
    if (!answer) continue;
    rapidjson::Document document;
    document.Parse<rapidjson::kParseIterativeFlag>(answer->body.c_str(), answer->body.size());
    EXPECT_EQ(!document.HasParseError(), parses);
    EXPECT_EQ(answer->body == proper, fault == Fault::none);
  }
}

TEST_F(SimFaults, AnswersBreakOffAtTheirMoments) {
  const auto size = get(server, categories)->body.size();
  const std::tuple<Moment, bool, std::size_t> cases[] = {{Moment::beforeHead, false, 0},
                                                         {Moment::inHead, false, 0},
                                                         {Moment::inBody, true, size / 2},
                                                         {Moment::beforeLastByte, true, size - 1}};
  for (const auto ending : {Ending::closed, Ending::silent}) {
    for (const auto& [moment, headComes, bodyComes] : cases) {
      SCOPED_TRACE(static_cast<int>(moment));
      server.breakOff("get_vod_categories", {moment, ending});
      bool head = false;
      std::size_t body = 0;
      auto client = clientOf(server);
      if (ending == Ending::silent) client.set_read_timeout(0, 300'000);
      EXPECT_FALSE(client.Get(
          categories, [&](const httplib::Response&) { return head = true; },
          [&](const char*, std::size_t count) { return (body += count) > 0; }));
      EXPECT_EQ(head, headComes);
      EXPECT_EQ(body, bodyComes);
    }
  }
}

TEST_F(SimFaults, RedirectsLeadToTheAnswerAndStraysAreCounted) {
  const std::pair<Fault, int> cases[] = {
      {Fault::redirectSameOrigin, 0}, {Fault::redirectOtherPort, 1}, {Fault::redirectOtherHost, 1}};
  for (const auto& [fault, strays] : cases) {
    SCOPED_TRACE(faultName(fault));
    server.setFault("", fault);
    server.resetCounters();
    const auto location = get(server, signIn)->get_header_value("Location");
    const auto path = location.find("/player_api");
    ASSERT_NE(path, std::string::npos);
    httplib::Client client(location.substr(0, path));
    client.set_url_encode(false);
    const auto answer = client.Get(location.substr(path));
    ASSERT_TRUE(answer);
    EXPECT_NE(answer->body.find("\"Active\""), std::string::npos);
    EXPECT_EQ(server.counters().strays, strays);
    EXPECT_EQ(server.counters().requests[""], 2);
  }
}

TEST_F(SimFaults, AccountStatesShowInSignInAndBeyond) {
  server.setFault("*", Fault::expiredAccount);
  EXPECT_STREQ(getJson(server, signIn)["user_info"]["status"].GetString(), "Expired");
  EXPECT_TRUE(getJson(server, target("get_series")).IsObject());
  server.setFault("*", Fault::connectionLimit);
  const auto account = getJson(server, signIn);
  EXPECT_STREQ(account["user_info"]["active_cons"].GetString(),
               account["user_info"]["max_connections"].GetString());
}

TEST_F(SimFaults, HeldRequestsWaitForTheirReleaseWhileOthersPass) {
  server.hold("get_series");
  server.setBody("get_series", "[\"set\"]", "text/plain");
  const auto ask = [&] { return get(server, target("get_series"))->body; };
  auto held = std::async(ask);
  auto second = std::async(ask);
  ASSERT_TRUE(server.waitForRequests("get_series", 2));
  EXPECT_EQ(get(server, categories)->status, 200);
  EXPECT_EQ(held.wait_for(0s), std::future_status::timeout);
  server.release("get_series");
  EXPECT_EQ(held.get() + second.get(), "[\"set\"][\"set\"]");

  const auto counters = server.counters();
  EXPECT_EQ(counters.mostAtOnce.at("get_series"), 2);
  EXPECT_EQ(counters.lastTarget.at("get_series"), target("get_series"));
  EXPECT_EQ(counters.connectionsAccepted, 3);
}

TEST_F(SimFaults, DestructionEndsHeldAndSilentRequests) {
  auto ending = std::make_unique<Server>(Options{.streams = false});
  ending->hold("get_series");
  ending->setFault("", Fault::silent);
  const auto ask = [&](const std::string& target) {
    return std::async([client = std::make_shared<httplib::Client>(clientOf(*ending)), target] {
      client->set_keep_alive(true);
      return static_cast<bool>(client->Get(target));
    });
  };
  auto held = ask(apiTarget("get_series"));
  auto silent = ask(apiTarget());
  EXPECT_TRUE(ask("/idle").get());
  ASSERT_TRUE(ending->waitForRequests("get_series", 1) && ending->waitForRequests("", 1));
  ending.reset();
  EXPECT_FALSE(held.get());
  EXPECT_FALSE(silent.get());
}

TEST(SimTls, AnswersUnderItsOwnCertificate) {
  const Server server({.streams = false, .tls = true});
  const auto file = testing::TempDir() + "/sim-certificate-" + std::to_string(server.port());
  std::ofstream(file) << server.certificatePem();
  httplib::SSLClient client("localhost", server.port());
  client.set_ca_cert_path(file.c_str());
  client.set_url_encode(false);
  const auto answer = client.Get(apiTarget());
  ASSERT_TRUE(answer) << httplib::to_string(answer.error());
  EXPECT_NE(answer->body.find("\"Active\""), std::string::npos);
  EXPECT_FALSE(get(server, apiTarget())) << "nothing for plain HTTP on the same port";
  std::remove(file.c_str());
}

}  // namespace
}  // namespace sim
