#include "provider/guide_parsing.h"

#include <gtest/gtest.h>

#include "json/base64_text.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

const QString channelID = u"live:7"_s;

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
  EXPECT_EQ(entries[0].title, u"The News"_s);
  EXPECT_EQ(entries[0].description, u"\u00e9"_s);
  EXPECT_EQ(entries[0].start.time_since_epoch(), std::chrono::seconds(1'800'000'000));
  EXPECT_EQ(entries[0].end - entries[0].start, std::chrono::milliseconds(60'500));
  EXPECT_EQ(entries[1].title, u"The News"_s) << "a plain text stays";
  EXPECT_EQ(entries[1].description, QString());
  EXPECT_EQ(ids(entries), u"live:7:0 live:7:1"_s) << "the provider's order";
}

TEST(Guide, SkipsRowsWithoutUsableTimesAndCountsThem) {
  const GuideEntries entries = parseGuide(
      R"({"epg_listings":[{"start_timestamp":5,"stop_timestamp":5},
          {"start_timestamp":6,"stop_timestamp":5},{"start_timestamp":"","stop_timestamp":5},
          {"start_timestamp":"1 ","stop_timestamp":5},{"start_timestamp":null,"stop_timestamp":5},
          {"stop_timestamp":5},{},{"start_timestamp":"nan","stop_timestamp":5},
          {"start_timestamp":-1.5,"stop_timestamp":true}]})",
      channelID);
  EXPECT_EQ(ids(entries), u"live:7:8"_s);
}

TEST(Guide, TimesMayLieFarAway) {
  const GuideEntries entries = parseGuide(
      R"({"epg_listings":[{"start_timestamp":-32503680000,"stop_timestamp":32503680000.5},
          {"start_timestamp":-1e300,"stop_timestamp":1e300},
          {"start_timestamp":9223372036.8547755,"stop_timestamp":99999999999999999999}]})",
      channelID);
  ASSERT_EQ(ids(entries), u"live:7:0 live:7:1 live:7:2"_s);
  EXPECT_EQ(entries[0].start.time_since_epoch(), std::chrono::seconds(-32'503'680'000));
  EXPECT_EQ(entries[0].end.time_since_epoch(), std::chrono::milliseconds(32'503'680'000'500));
  for (const GuideEntry& entry : entries)
    EXPECT_GT(entry.end - entry.start, std::chrono::hours(1)) << entry.id.toStdString();
}

TEST(Guide, AnotherShapeIsAnEmptyGuide) {
  for (const char* shape :
       {"[]", "{}", R"({"epg_listings":{}})", R"({"epg_listings":"x"})", R"([{"epg_listings":[]}])",
        R"({"epg_listings":[{"start_timestamp":1,"stop_timestamp":2},7]})"})
    EXPECT_TRUE(parseGuide(shape, channelID).isEmpty()) << shape;
}

TEST(Base64Text, IsDecodedOnlyInItsExactForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"TmV3cw==", "News"}, {"TmV3czE=", "News1"}, {"TmV3", "New"}, {"4pyT", "\u2713"}};
  for (const auto& [encoded, decoded] : cases)
    EXPECT_EQ(textFromBase64(encoded), QString::fromUtf8(decoded)) << encoded;
  // The bytes of "News" are no UTF-8, those of the last two a surrogate and an overlong form.
  for (const char* text : {"News", "abcd", "TmV3cw=", "TmV3cw", "TmV3cw===", "====", "TmV3\ncw==",
                           "TmV3cw==\n", "Tm=3cw==", "TmV3 cw=", "4py-", "/w==", "7aCA", "wIA="})
    EXPECT_EQ(textFromBase64(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vantor::test
