// What all readers of JSON have in common.
#include "json/json_reading.h"

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <thread>

#include "library/catalog_stored_form.h"
#include "platform/cancelled.h"
#include "provider/catalog_parsing.h"
#include "provider/episodes_parsing.h"
#include "provider/guide_parsing.h"
#include "provider/provider_client.h"
#include "provider/vantor_configuration.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

QString parsedCatalog(const QByteArray& entries, const QByteArray& categories) {
  const Catalog catalog = parseCatalog(entries, categories, LibraryKind::movies, {});
  return (catalog.size() > 0 ? catalog.name(0) : QString()) +
         (catalog.categories().empty() ? QString() : catalog.categories().front().name);
}

struct Reader {
  const char* name;
  /// A whole answer; "@" stands for fields that nobody reads, "<" and ">" around a key that comes
  /// twice enclose its first value.
  const char* answer;
  QString (*read)(const QByteArray&);  // what it makes of the repeated field
};

const Reader readers[] = {
    {"entries", R"([{"stream_id":1,<"name":"first",>"name":"last"@},{"name":7@}])",
     [](const QByteArray& json) { return parsedCatalog(json, "[]"); }},
    {"categories", R"([{"category_id":1,<"category_name":"first",>"category_name":"last"@}])",
     [](const QByteArray& json) { return parsedCatalog("[]", json); }},
    {"episodes", R"({"info":{}@,"episodes":{<"1":[{"id":1,"title":"first"}],>
                     "1":[{"id":2,"title":"last"@},{"title":"no id"@}]}})",
     [](const QByteArray& json) { return parseEpisodes(json, MediaItem()).value(0).name; }},
    {"guide", R"({<"epg_listings":[],>"epg_listings":[{"title":"last","start_timestamp":1,
                  "stop_timestamp":2@}]@})",
     [](const QByteArray& json) { return parseGuide(json, QString()).value(0).title; }},
    {"sign-in", R"({<"user_info":{"auth":0},>"user_info":{"auth":1,"status":"Active",
                    <"max_connections":"first",>"max_connections":"last"@}@,"server_info":{}})",
     [](const QByteArray& json) { return parseSignIn(json).maximumConnections; }},
    {"configuration", R"({<"schemaVersion":2,>"schemaVersion":1,<"serverUrl":7,>
                          "serverUrl":"http://last"@})",
     [](const QByteArray& json) { return VantorConfiguration::decode(json).mid(7); }},
    {"account", R"({"id":"6BA7B810-9DAD-11D1-80B4-00C04FD430C8","name":"n","server":"http://a",
                    <"username":"first",>"username":"last","password":"p","userAgent":"u"@})",
     [](const QByteArray& json) { return ProviderAccount::fromJSON(json).username; }},
    {"stored catalogue", R"({<"items":[],>"items":[{"id":"live:1","providerID":"1","kind":"live",
                             <"name":"first",>"name":"last","category":"","fileExtension":"ts",
                             "isExample":false@}],<"categories":[{"id":"","name":"x"}],>
                             "categories":[]@,"savedAt":1})",
     [](const QByteArray& json) {
       const Catalog catalog = catalogFromJSON(json);
       return catalog.categories().empty() && catalog.size() == 1 ? catalog.name(0) : QString();
     }},
};

QByteArray answer(const Reader& reader, const QByteArray& unread, bool repeated = false) {
  QByteArray json = reader.answer;
  for (auto begin = json.indexOf('<'); !repeated && begin >= 0; begin = json.indexOf('<'))
    json.remove(begin, json.indexOf('>', begin) - begin);
  json.replace('<', "").replace('>', "");
  return json.replace('@', unread.isEmpty() ? QByteArray() : ",\"x\":" + unread);
}

TEST(JSONReading, ReadsEveryAnswerWholeAndTheLastOfARepeatedKey) {
  QByteArrayList sound =
      QByteArray("true false null 0 -0.5e+3 1E400 123456789012345678901234567890 [[[[[[[[1]]]]]]]]")
          .split(' ');
  sound += QByteArrayList{"", R"("\"\\\/\b\f\n\r\t\u00e9\ud83d")", "[ ]", "{ }",
                          R"({"a":[{"b\u0041\ud800":[null,1.5,"x"]},[]],"":{}})"};
  QByteArrayList damaged =
      QByteArray(R"(tru truer nul falsé 01 -01 1. .5 - 1e 1e+ -inf 1x 0x1 +1 1"a" "\q" "\u12g4")"
                 R"( "\u12" [1,] [,1] [1 [} {] {"a":1,} {"a":} {1:2} {"\q":1} @)")
          .split(' ');
  damaged +=
      QByteArrayList{" ",        "[1 2]",    R"({"a" 1})",
                     "\"\n\"",   "\"\xff\"", "1\x01",
                     "true\x01", "null\x01", QByteArray(300'000, '[') + QByteArray(300'000, ']')};
  for (const Reader& reader : readers) {
    for (const QByteArray& unread : sound)
      EXPECT_EQ(reader.read(answer(reader, unread)), u"last"_s)
          << reader.name << ' ' << unread.toStdString();
    for (const QByteArray& unread : damaged)
      EXPECT_THROW(reader.read(answer(reader, unread)), JSONError)
          << reader.name << ' ' << unread.left(20).toStdString();
    EXPECT_EQ(reader.read(answer(reader, "", true)), u"last"_s)
        << reader.name << ": the last of a repeated key counts";
  }
}

TEST(JSONReading, AnAnswerCutOffAnywhereIsRefused) {
  for (const Reader& reader : readers) {
    const QByteArray whole = answer(reader, R"({"a":[1,"b"]})");
    for (qsizetype size = 0; size < whole.size(); ++size)
      EXPECT_THROW(reader.read(whole.left(size)), JSONError)
          << reader.name << ' ' << whole.left(size).toStdString();
    for (const char* more : {" x", "}"})
      EXPECT_THROW(reader.read(whole + more), JSONError) << reader.name << more;
    EXPECT_NO_THROW(reader.read("\xEF\xBB\xBF \n" + whole + "\n ")) << reader.name;
  }
}

TEST(JSONReading, StopsWhileItReads) {
  const auto many = [](const char* before, QByteArray row, const char* after) {
    return before + (row + ',').repeated(1'000'000) + row + after;
  };
  const QByteArray rows = many("[", "{}", "]");
  const QByteArray episodes = many(R"({"episodes":{"1":[)", "{}", "]}}");
  const QByteArray seasons = many(R"({"episodes":{)", R"("":[])", "}}");
  const QByteArray programmes = many(R"({"epg_listings":[)", "{}", "]}");
  const std::function<void(std::stop_token)> readings[] = {
      [&](auto stop) { parseCatalog(rows, "[]", LibraryKind::live, {}, stop); },
      [&](auto stop) { parseCatalog("[]", rows, LibraryKind::live, {}, stop); },
      [&](auto stop) { parseEpisodes(episodes, MediaItem(), stop); },
      [&](auto stop) { parseEpisodes(seasons, MediaItem(), stop); },
      [&](auto stop) { parseGuide(programmes, QString(), stop); },
  };
  for (const auto& reading : readings) {
    bool stopped = false;
    // The request may come too late where threads wait for a processor.
    for (int attempt = 0; attempt < 10 && !stopped; ++attempt) {
      std::stop_source stop;
      std::latch begun(1);
      std::jthread stopper([&] {
        begun.wait();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        stop.request_stop();
      });
      begun.count_down();
      try {
        reading(stop.get_token());
      } catch (const Cancelled&) {
        stopped = true;
      }
    }
    EXPECT_TRUE(stopped) << &reading - readings;
  }
}

}  // namespace
}  // namespace vantor::test
