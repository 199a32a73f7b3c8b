#include <ctime>
#include <set>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "sim_fixture.h"

namespace sim {
namespace {

/// An id or a time, which are numbers in some rows and texts in others.
std::string textOf(const rapidjson::Value& row, const char* name) {
  if (!row.HasMember(name)) return {};
  return row[name].IsString() ? row[name].GetString() : std::to_string(row[name].GetInt64());
}

std::string written(const rapidjson::Value& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return buffer.GetString();
}

TEST(SimApi, LogInMustBeExactAfterDecoding) {
  const Server server({.streams = false});
  const Options given;
  const auto account = getJson(server, apiTarget());
  ASSERT_TRUE(account.IsObject() && account["user_info"].HasMember("status"));
  EXPECT_STREQ(account["user_info"]["status"].GetString(), "Active");

  const std::string plusLeftAlone =
      "/player_api.php?username=demo&password=p%26ss%20w%2Frd%3D1+%25%C3%A9%23";
  for (const auto& target :
       {apiTarget("", "demo", ""), apiTarget("", "Demo", given.password),
        apiTarget("", "demo", given.password + " "), std::string("/player_api.php"), plusLeftAlone,
        apiTarget("get_live_streams", "demo", "wrong")})
    EXPECT_EQ(written(getJson(server, target)), R"({"user_info":{"auth":0}})") << target;
}

TEST(SimApi, LibrariesHoldTheDistinctEntriesAskedForAmongRepeatedOnes) {
  const Server server({.channels = 30, .movies = 7, .shows = 12, .streams = false});
  const std::tuple<const char*, const char*, std::size_t> libraries[] = {
      {"get_live_streams", "stream_id", 30},
      {"get_vod_streams", "stream_id", 7},
      {"get_series", "series_id", 12}};
  for (const auto& [action, id, distinct] : libraries) {
    const auto rows = getJson(server, apiTarget(action));
    ASSERT_TRUE(rows.IsArray()) << action;
    std::set<std::string> ids;
    for (const auto& row : rows.GetArray()) ids.insert(textOf(row, id));
    ids.erase("");
    EXPECT_EQ(ids.size(), distinct) << action;
    EXPECT_EQ(rows.Size() > distinct, distinct > 10) << action;
  }
}

TEST(SimApi, ACategoryHoldsItsRowsAsTheWholeLibraryHasThem) {
  Server server({.movies = 500, .streams = false});
  const auto rowsOf = [&](const std::string& category) {
    std::multiset<std::string> rows;
    const auto answer = getJson(server, apiTarget("get_vod_streams" + category));
    for (const auto& row : answer.GetArray())
      if (row.HasMember("stream_id")) rows.insert(written(row));
    return rows;
  };
  const auto whole = rowsOf("");
  std::multiset<std::string> parts;
  for (int category = 100; category < 113; ++category)
    parts.merge(rowsOf("&category_id=" + std::to_string(category == 100 ? 0 : category)));
  const auto distinct = [](const auto& rows) {
    return std::set<std::string>(rows.begin(), rows.end());
  };
  EXPECT_EQ(distinct(parts), distinct(whole));
  EXPECT_GT(parts.size(), distinct(whole).size()) << "some are in two";
  server.setFault("get_vod_streams/102", Fault::status500);
  EXPECT_EQ(get(server, apiTarget("get_vod_streams&category_id=102"))->status, 500);
  EXPECT_EQ(get(server, apiTarget("get_vod_streams&category_id=103"))->status, 200);
  server.setFault("get_vod_streams", Fault::ignoresCategory);
  EXPECT_EQ(rowsOf("&category_id=103"), whole);
}

TEST(SimApi, NinetyThousandMoviesComeCloseToThirtyTwoMebibytesButFit) {
  const Server server({.movies = 90'000, .streams = false});
  const auto answer = get(server, apiTarget("get_vod_streams"));
  ASSERT_TRUE(answer);
  EXPECT_GT(answer->body.size(), 32'000'000u);
  EXPECT_LT(answer->body.size(), 33'554'432u);
}

TEST(SimApi, GuideBeginsWithWhatIsOnNowAndHasNoGaps) {
  const Server server({.streams = false});
  const auto guide = getJson(server, apiTarget("get_short_epg&stream_id=1001&limit=8"));
  const auto& listings = guide["epg_listings"];
  ASSERT_EQ(listings.Size(), 8u);
  const auto now = std::time(nullptr);
  EXPECT_LE(std::stoll(textOf(listings[0], "start_timestamp")), now);
  EXPECT_GT(std::stoll(textOf(listings[0], "stop_timestamp")), now);
  for (rapidjson::SizeType i = 1; i < listings.Size(); ++i)
    EXPECT_EQ(textOf(listings[i], "start_timestamp"), textOf(listings[i - 1], "stop_timestamp"));
}

TEST(SimApi, ConfigurationPostersAndBasePathLeadWhereTheyShould) {
  const Server server({.streams = false, .basePath = "/base/two"});
  EXPECT_STREQ(getJson(server, "/vantor-config.json")["serverUrl"].GetString(),
               server.url().c_str());
  EXPECT_EQ(get(server, apiTarget())->status, 404);
  const auto shows = getJson(server, "/base/two" + apiTarget("get_series"));
  std::set<std::string> images;
  for (rapidjson::SizeType i = 0; i < 3; ++i) {
    const std::string cover = shows[i]["cover"].GetString();
    ASSERT_TRUE(cover.starts_with(server.url() + "/poster/series/"));
    const auto image = get(server, cover.substr(cover.find("/base")));
    EXPECT_TRUE(image->body.starts_with("\x89PNG"));
    images.insert(image->body);
  }
  EXPECT_EQ(images.size(), 3u);
}

}  // namespace
}  // namespace sim
