#include "provider/provider_account.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "json/json_reading.h"
#include "support/sentence.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

const QString addressMessage =
    u"Enter a provider address beginning with https:// or http://, without account details in the "
    "address."_s;

QString refusal(const QString& server, const QString& username = u"u"_s,
                const QString& password = u"p"_s) {
  return sentence([&] { ProviderAccount::validated(QString(), server, username, password); });
}

ProviderAccount account(const QString& server = u"http://tv.example:8080"_s) {
  return ProviderAccount::validated(QString(), server, QString::fromUtf8("a b/ü"), u"p&=#+%/ @"_s);
}

TEST(ProviderAccount, TidiesWhatWasTyped) {
  const ProviderAccount made = ProviderAccount::validated(
      u"  "_s, u" HTTP://tv.example:8080//base/x/ \n"_s, u" me "_s, u" pass "_s);
  EXPECT_EQ(made.name, u"My provider"_s);
  EXPECT_EQ(made.serverText(), u"http://tv.example:8080/base/x"_s);
  EXPECT_EQ(made.username, u"me"_s);
  EXPECT_EQ(made.password, u" pass "_s);
  EXPECT_EQ(made.userAgent, u"VantorPlayerMac/0.1.0"_s);
  EXPECT_EQ(account(u"https://tv.example/"_s).serverText(), u"https://tv.example"_s);
  EXPECT_NE(account().id, account().id);
}

TEST(ProviderAccount, RefusesOtherAddressesBeforeItLooksAtTheCredentials) {
  for (const char* server :
       {"", "tv.example", "ftp://tv.example", "http://", "http:///x", "http://me@tv.example",
        "http://me:pw@tv.example", "http://@tv.example", "http://tv.example?",
        "http://tv.example/?a=b", "http://tv.example#f", "http://tv.example/#", "http://tv example",
        "http://tv.example:99999", "javascript:alert(1)", "http://[::1"})
    EXPECT_EQ(refusal(QString::fromUtf8(server), QString(), QString()), addressMessage) << server;
  const QString credentials = u"Enter your provider username and password."_s;
  const QString server = u"https://tv.example"_s;
  EXPECT_EQ(refusal(server, u" \n"_s), credentials);
  EXPECT_EQ(refusal(server, u"u"_s, QString()), credentials);
  EXPECT_EQ(refusal(server, u"u"_s, u" "_s), QString());
}

TEST(ProviderAccount, ApiAddressCarriesEveryCharacterAsTyped) {
  const QByteArray login = "username=a%20b%2F%C3%BC&password=p%26%3D%23%2B%25%2F%20%40";
  EXPECT_EQ(account().api().toEncoded(), "http://tv.example:8080/player_api.php?" + login);
  EXPECT_EQ(account(u"http://tv.example/base"_s)
                .api(u"get_short_epg"_s, {{u"stream_id"_s, u"7"_s}, {u"limit"_s, u"8"_s}})
                .toEncoded(),
            "http://tv.example/base/player_api.php?" + login +
                "&action=get_short_epg&stream_id=7&limit=8");
}

TEST(ProviderAccount, StreamAddressEncodesEachSegment) {
  const QByteArray login = "/a%20b%2F%C3%BC/p%26%3D%23%2B%25%2F%20%40/";
  const auto stream = [](const char* id, const char* extension,
                         LibraryKind kind = LibraryKind::live, const char* server = "http://h") {
    return account(QString::fromUtf8(server))
        .stream(QString::fromUtf8(id), kind, QString::fromUtf8(extension))
        .toEncoded();
  };
  EXPECT_EQ(stream("1234", "m3u8", LibraryKind::live, "http://h:8080"),
            "http://h:8080/live" + login + "1234.m3u8");
  EXPECT_EQ(stream("77", "mkv", LibraryKind::movies, "http://h/base"),
            "http://h/base/movie" + login + "77.mkv");
  EXPECT_EQ(stream("\u0661", "mp4", LibraryKind::shows), "http://h/series" + login + "%D9%A1.mp4");
  for (const char* numerals : {"\u4E00\u4E8C\u4E09", "\u2167", "\u00BD", "\U0001F10B", "\uF96B"})
    EXPECT_NO_THROW(stream(numerals, "ts")) << numerals;
  const std::pair<const char*, const char*> refused[] = {{"\u4EBA", "ts"},  {"\u4E00\u0301", "ts"},
                                                         {"", "ts"},        {"12a", "ts"},
                                                         {"1/../2", "ts"},  {"1", ""},
                                                         {"1", "m3u8?x=1"}, {"1", "toolongext"},
                                                         {"1", "t s"},      {"1", "ts\n"}};
  for (const auto& [id, extension] : refused)
    EXPECT_EQ(sentence([&] { stream(id, extension); }),
              u"This provider item has an invalid playback address."_s)
        << id << '.' << extension;
}

TEST(ProviderAccount, StoredFormIsReadBackAndStrict) {
  const ProviderAccount original = account();
  const QByteArray json = original.toJSON();
  EXPECT_EQ(ProviderAccount::fromJSON(json), original);
  const QRegularExpression form(
      u"^\\{\"id\":\"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\",\"name\":.*,\"server\":.*,"
      "\"username\":.*,\"password\":.*,\"userAgent\":"_s);
  EXPECT_TRUE(form.match(QString::fromUtf8(json)).hasMatch());
  for (const char* key : {"id", "name", "server", "username", "password", "userAgent"})
    EXPECT_THROW(ProviderAccount::fromJSON(
                     QByteArray(json).replace(QByteArray("\"") + key + "\"", "\"other\"")),
                 JSONError)
        << key;
}

}  // namespace
}  // namespace vantor::test
