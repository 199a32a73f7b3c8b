#include "provider/guide_parsing.h"

#include <gtest/gtest.h>

#include "json/base64_text.h"
#include "json/json_reading.h"

namespace vantor {
namespace {

const QString channelID = QStringLiteral("live:7");

QString ids(const GuideEntries& entries) {
  QStringList list;
  for (const GuideEntry& entry : entries) list.append(entry.id);
  return list.join(QLatin1Char(' '));
}

TEST(Guide, ReadsTimesAndTexts) {
  const GuideEntries entries = parseGuide(
      R"({"more":[1],"epg_listings":[
          {"title":"VGhlIE5ld3M=","description":"w6k=","start_timestamp":"1800000000",
           "stop_timestamp":1800000060.5},
          {"title":"The News","start_timestamp":1700000000,"stop_timestamp":"1700000001"}]})",
      channelID);
  ASSERT_EQ(entries.size(), 2);
  EXPECT_EQ(entries[0].title, QStringLiteral("The News"));
  EXPECT_EQ(entries[0].description, QStringLiteral("\u00e9"));
  EXPECT_EQ(entries[0].start.time_since_epoch(), std::chrono::seconds(1'800'000'000));
  EXPECT_EQ(entries[0].end - entries[0].start, std::chrono::milliseconds(60'500));
  EXPECT_EQ(entries[1].title, QStringLiteral("The News")) << "a plain text stays";
  EXPECT_EQ(entries[1].description, QString());
  EXPECT_EQ(ids(entries), QStringLiteral("live:7:0 live:7:1")) << "the provider's order";
}

TEST(Guide, SkipsRowsWithoutUsableTimesAndCountsThem) {
  const GuideEntries entries = parseGuide(
      R"({"epg_listings":[{"start_timestamp":5,"stop_timestamp":5},
          {"start_timestamp":6,"stop_timestamp":5},{"start_timestamp":"","stop_timestamp":5},
          {"start_timestamp":"1 ","stop_timestamp":5},{"start_timestamp":null,"stop_timestamp":5},
          {"stop_timestamp":5},{},{"start_timestamp":"nan","stop_timestamp":5},
          {"start_timestamp":-1.5,"stop_timestamp":true}]})",
      channelID);
  EXPECT_EQ(ids(entries), QStringLiteral("live:7:8"));
}

TEST(Guide, TimesMayLieFarAway) {
  const GuideEntries entries = parseGuide(
      R"({"epg_listings":[{"start_timestamp":-32503680000,"stop_timestamp":32503680000.5},
          {"start_timestamp":-1e300,"stop_timestamp":1e300},
          {"start_timestamp":9223372036.8547755,"stop_timestamp":99999999999999999999}]})",
      channelID);
  ASSERT_EQ(ids(entries), QStringLiteral("live:7:0 live:7:1 live:7:2"));
  EXPECT_EQ(entries[0].start.time_since_epoch(), std::chrono::seconds(-32'503'680'000));
  EXPECT_EQ(entries[0].end.time_since_epoch(), std::chrono::milliseconds(32'503'680'000'500));
  for (const GuideEntry& entry : entries)
    EXPECT_GT(entry.end - entry.start, std::chrono::hours(1)) << entry.id.toStdString();
}

TEST(Guide, OnlyWhatIsNotJSONFails) {
  for (const char* shape :
       {"[]", "{}", R"({"epg_listings":{}})", R"({"epg_listings":"x"})", R"([{"epg_listings":[]}])",
        R"({"epg_listings":[{"start_timestamp":1,"stop_timestamp":2},7]})"})
    EXPECT_TRUE(parseGuide(shape, channelID).isEmpty()) << shape;
  for (const char* damage : {"", "no", "7", R"({"epg_listings":[)", R"({"epg_listings":[]}})"})
    EXPECT_THROW(parseGuide(damage, channelID), JSONError) << damage;
}

TEST(Base64Text, IsDecodedOnlyInItsExactForm) {
  struct Case {
    const char* encoded;
    const char* decoded;  // null: not such a text
  };
  const Case cases[] = {
      {"", ""},
      {"TmV3cw==", "News"},
      {"TmV3czE=", "News1"},
      {"News", nullptr},  // its bytes are not UTF-8
      {"abcd", nullptr},
      {"TmV3", "New"},
      {"TmV3cw=", nullptr},
      {"TmV3cw", nullptr},
      {"TmV3cw===", nullptr},
      {"====", nullptr},
      {"TmV3\ncw==", nullptr},
      {"TmV3cw==\n", nullptr},
      {"Tm=3cw==", nullptr},
      {"TmV3 cw=", nullptr},
      {"4pyT", "\u2713"},
      {"4py-", nullptr},
      {"/w==", nullptr},
      {"7aCA", nullptr},  // a surrogate
      {"wIA=", nullptr},  // an overlong form
  };
  for (const Case& example : cases) {
    const auto text = textFromBase64(example.encoded);
    EXPECT_EQ(text.has_value(), example.decoded != nullptr) << example.encoded;
    if (text && example.decoded) {
      EXPECT_EQ(*text, QString::fromUtf8(example.decoded));
    }
  }
}

}  // namespace
}  // namespace vantor
