#include "provider/provider_account.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "json/json_reading.h"
#include "platform/app_error.h"

namespace vantor {
namespace {

const QString addressMessage = QStringLiteral(
    "Enter a provider address beginning with https:// or http://, without account details in the "
    "address.");

QString refusal(const QString& server, const QString& username = QStringLiteral("u"),
                const QString& password = QStringLiteral("p")) {
  try {
    ProviderAccount::validated(QString(), server, username, password);
  } catch (const AppError& error) {
    return error.message;
  }
  return {};
}

ProviderAccount account(const QString& server = QStringLiteral("http://tv.example:8080")) {
  return ProviderAccount::validated(QString(), server, QString::fromUtf8("a b/ü"),
                                    QStringLiteral("p&=#+%/ @"));
}

TEST(ProviderAccount, TidiesWhatWasTyped) {
  const ProviderAccount made = ProviderAccount::validated(
      QStringLiteral("  "), QStringLiteral(" HTTP://tv.example:8080//base/x/ \n"),
      QStringLiteral(" me "), QStringLiteral(" pass "));
  EXPECT_EQ(made.name, QStringLiteral("My provider"));
  EXPECT_EQ(made.serverText(), QStringLiteral("http://tv.example:8080/base/x"));
  EXPECT_EQ(made.username, QStringLiteral("me"));
  EXPECT_EQ(made.password, QStringLiteral(" pass "));
  EXPECT_EQ(made.userAgent, QStringLiteral("VantorPlayerMac/0.1.0"));
  EXPECT_EQ(account(QStringLiteral("https://tv.example/")).serverText(),
            QStringLiteral("https://tv.example"));
  EXPECT_NE(account().id, account().id);
}

TEST(ProviderAccount, RefusesOtherAddressesBeforeItLooksAtTheCredentials) {
  for (const char* server :
       {"", "tv.example", "ftp://tv.example", "http://", "http:///x", "http://me@tv.example",
        "http://me:pw@tv.example", "http://@tv.example", "http://tv.example?",
        "http://tv.example/?a=b", "http://tv.example#f", "http://tv.example/#", "http://tv example",
        "http://tv.example:99999", "javascript:alert(1)", "http://[::1"})
    EXPECT_EQ(refusal(QString::fromUtf8(server), QString(), QString()), addressMessage) << server;
  const QString credentials = QStringLiteral("Enter your provider username and password.");
  const QString server = QStringLiteral("https://tv.example");
  EXPECT_EQ(refusal(server, QStringLiteral(" \n")), credentials);
  EXPECT_EQ(refusal(server, QStringLiteral("u"), QString()), credentials);
  EXPECT_EQ(refusal(server, QStringLiteral("u"), QStringLiteral(" ")), QString());
}

TEST(ProviderAccount, ApiAddressCarriesEveryCharacterAsTyped) {
  const QByteArray login = "username=a%20b%2F%C3%BC&password=p%26%3D%23%2B%25%2F%20%40";
  EXPECT_EQ(account().api().toEncoded(), "http://tv.example:8080/player_api.php?" + login);
  EXPECT_EQ(
      account(QStringLiteral("http://tv.example/base"))
          .api(QStringLiteral("get_short_epg"), {{QStringLiteral("stream_id"), QStringLiteral("7")},
                                                 {QStringLiteral("limit"), QStringLiteral("8")}})
          .toEncoded(),
      "http://tv.example/base/player_api.php?" + login +
          "&action=get_short_epg&stream_id=7&limit=8");
}

TEST(ProviderAccount, StreamAddressEncodesEachSegment) {
  const QByteArray login = "/a%20b%2F%C3%BC/p%26%3D%23%2B%25%2F%20%40/";
  const auto stream = [](const char* server, LibraryKind kind, const char* id,
                         const char* extension) {
    return account(QString::fromUtf8(server))
        .stream(QString::fromUtf8(id), kind, QString::fromUtf8(extension))
        .toEncoded();
  };
  EXPECT_EQ(stream("http://tv.example:8080", LibraryKind::live, "1234", "m3u8"),
            "http://tv.example:8080/live" + login + "1234.m3u8");
  EXPECT_EQ(stream("http://tv.example/base", LibraryKind::movies, "77", "mkv"),
            "http://tv.example/base/movie" + login + "77.mkv");
  EXPECT_EQ(stream("http://tv.example", LibraryKind::shows, "5", "mp4"),
            "http://tv.example/series" + login + "5.mp4");
  EXPECT_EQ(stream("http://tv.example", LibraryKind::shows, "\xD9\xA1\xD9\xA2", "mp4"),
            "http://tv.example/series" + login + "%D9%A1%D9%A2.mp4");
  for (const char* numerals : {"\u4E00\u4E8C\u4E09", "\u2167", "\u00BD", "\U0001F10B", "\uF96B"})
    EXPECT_NO_THROW(stream("http://tv.example", LibraryKind::live, numerals, "ts")) << numerals;
  const std::pair<const char*, const char*> refused[] = {{"\u4EBA", "ts"},  {"\u4E00\u0301", "ts"},
                                                         {"", "ts"},        {"12a", "ts"},
                                                         {"1/../2", "ts"},  {"1", ""},
                                                         {"1", "m3u8?x=1"}, {"1", "toolongext"},
                                                         {"1", "t s"},      {"1", "ts\n"}};
  for (const auto& [id, extension] : refused) {
    try {
      stream("http://tv.example", LibraryKind::live, id, extension);
      ADD_FAILURE() << id << '.' << extension;
    } catch (const AppError& error) {
      EXPECT_EQ(error.message,
                QStringLiteral("This provider item has an invalid playback address."));
    }
  }
}

TEST(ProviderAccount, StoredFormIsReadBackAndStrict) {
  const ProviderAccount original = account();
  const QByteArray json = original.toJSON();
  EXPECT_EQ(ProviderAccount::fromJSON(json), original);
  EXPECT_TRUE(
      QRegularExpression(
          QStringLiteral("^\\{\"id\":\"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\",\"name\":"
                         ".*,\"server\":.*,\"username\":.*,\"password\":.*,\"userAgent\":"))
          .match(QString::fromUtf8(json))
          .hasMatch());
  for (const char* key : {"id", "name", "server", "username", "password", "userAgent"})
    EXPECT_THROW(ProviderAccount::fromJSON(
                     QByteArray(json).replace(QByteArray("\"") + key + "\"", "\"other\"")),
                 JSONError)
        << key;
  for (const char* damage : {"", "[]", "{", "{\"id\":7}", "null"})
    EXPECT_THROW(ProviderAccount::fromJSON(damage), JSONError) << damage;
}

}  // namespace
}  // namespace vantor
