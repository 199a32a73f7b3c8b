#include "platform/trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;

QStringList* lines = nullptr;

void collect(QtMsgType, const QMessageLogContext& context, const QString& text) {
  if (QByteArrayView(context.category).startsWith("vantor.")) lines->append(text);
}

/// A model whose account, libraries and answers are full of what no log may hold.
class TraceTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void SetUp() override {
    lines = &log;
    QLoggingCategory::setFilterRules(QStringLiteral("vantor.*=true"));
    previous = qInstallMessageHandler(collect);
    account = ProviderAccount::validated(
        QStringLiteral("Vantor TV"), QStringLiteral("http://mark-host.example/mark-base"),
        QStringLiteral("mark user+1"), QStringLiteral("mark/p\u00e4ss&1"));
  }
  void TearDown() override {
    quit();
    qInstallMessageHandler(previous);
    QLoggingCategory::setFilterRules(QString());
  }
  bool says(const char* tried, const char* kind) const {
    return std::any_of(log.begin(), log.end(), [&](const QString& line) {
      return line.startsWith(QLatin1String(tried)) && line.contains(QLatin1String(kind));
    });
  }
  /// Answers the request for live entries.
  void answer(const QByteArray& entries) {
    ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
    transport.answer(action(LibraryKind::live), entries);
    transport.answer(categoryAction(LibraryKind::live), "[]");
    ASSERT_TRUE(eventually([&] { return model->libraries().loading().empty(); }));
  }
  /// Each of these texts as it is, and as an address, a form or a sign-in may carry it.
  void expectNone(const QStringList& secrets) const {
    const QString all = log.join(QLatin1Char('\n'));
    for (const QString& secret : secrets)
      for (const QString& form :
           {secret, QString::fromLatin1(secret.toUtf8().toPercentEncoding()),
            QString::fromLatin1(secret.toUtf8().toPercentEncoding()).toLower(),
            QString::fromLatin1(QUrl::toPercentEncoding(secret, QByteArray(), "+")),
            QString(secret).replace(QLatin1Char(' '), QLatin1Char('+')),
            QString::fromLatin1(secret.toUtf8().toBase64()),
            QString::fromLatin1(secret.toUtf8().toHex())})
        EXPECT_FALSE(all.contains(form, Qt::CaseInsensitive)) << form.toStdString();
  }

  QStringList log;
  QtMessageHandler previous = nullptr;
};

TEST_F(TraceTest, EveryFailureLeavesALineAndNoSecret) {
  const auto refused = std::make_exception_ptr(HTTPFailure(503));
  const auto unreachable = std::make_exception_ptr(URLError(URLError::Code::unreachable));
  const QByteArray damaged = R"({"name":"mark entry","url":"http://mark-host.example/mark-base)";
  credentials.put(providerItem, "mark-host.example is no account");
  launch();
  EXPECT_TRUE(says("reading the saved account", "JSONError"));

  connectAccount(account);
  transport.fail(QString(), refused);
  EXPECT_TRUE(eventually([&] { return signInOver; }));
  EXPECT_TRUE(says("signing in", "HTTPFailure 503, failure 1"));
  connectAccount(account);
  transport.answer(QString(), damaged);
  EXPECT_TRUE(eventually([&] { return signInOver; }));
  EXPECT_TRUE(says("signing in", "failure 2"));

  const QByteArray channels = R"([{"stream_id":1,"name":"mark entry"}])";
  signIn(channels);
  const QString folder = home.filePath(QStringLiteral("data/Vantor Player Mac Preview/Catalog"));
  for (const QFileInfo& copy : QDir(folder).entryInfoList(QDir::Files)) {
    QFile damagedCopy(copy.filePath());
    ASSERT_TRUE(damagedCopy.open(QFile::WriteOnly));
    damagedCopy.write(damaged);
  }
  launch();
  transport.fail(QStringLiteral("vantor-config.json"), unreachable);
  EXPECT_TRUE(eventually([&] { return says("reading the service configuration", "URLError"); }));
  answer(channels);
  EXPECT_TRUE(says("reading the copy of a library", "Failure"));

  // Where the folder of the copies was is a file.
  ASSERT_TRUE(QDir(folder).removeRecursively());
  QFile obstacle(folder);
  ASSERT_TRUE(obstacle.open(QFile::WriteOnly));
  AppModel& app = *model;
  app.load(LibraryKind::live, LoadMode::refresh);
  answer(channels);
  EXPECT_TRUE(says("saving the copy of a library", "system_error"));

  const MediaItem channel = app.browsing().items().item(0);
  for (const LibraryKind kind : {LibraryKind::movies, LibraryKind::shows}) {
    app.load(kind, LoadMode::copyFirst);
    ASSERT_TRUE(eventually([&] { return transport.open(action(kind)) == 1; }));
    transport.fail(action(kind), unreachable);
    ASSERT_TRUE(eventually([&] { return app.libraries().loading().empty(); }));
  }
  EXPECT_TRUE(says("loading a library", "URLError 2, failure 2"));
  app.load(LibraryKind::movies, LoadMode::refresh);
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::movies)) == 1; }));
  transport.fail(action(LibraryKind::movies),
                 std::make_exception_ptr(URLError(URLError::Code::cancelled)));
  ASSERT_TRUE(eventually([&] { return app.libraries().loading().empty(); }));
  EXPECT_FALSE(says("loading a library", "failure 3"));
  app.guide().prefetchGuide(channel);
  settle();
  transport.answer(QStringLiteral("get_short_epg"), damaged);
  EXPECT_TRUE(eventually([&] { return says("loading the guide of a row", "JSONError"); }));
  app.select(channel);
  settle();
  transport.fail(QStringLiteral("get_short_epg"), refused);
  EXPECT_TRUE(eventually([&] { return says("loading episodes or a guide", "HTTPFailure"); }));

  app.play(channel);
  settle();
  engine.now.state = EngineState::error;
  clock.advance(std::chrono::seconds(1));
  EXPECT_TRUE(says("playing a source", "failure 1"));

  credentials.fail(test::FakeCredentialStore::Operation::remove);
  disconnectAccount();
  ASSERT_TRUE(eventually([&] { return !app.session().signingInOrOut(); }));
  EXPECT_TRUE(says("removing the saved account", "Error"));
  credentials.work(test::FakeCredentialStore::Operation::remove);
  disconnectAccount();
  ASSERT_TRUE(
      eventually([&] { return !app.session().account() && !app.session().signingInOrOut(); }));
  EXPECT_TRUE(says("removing the account's libraries", "system_error"));

  credentials.put(providerItem, account.toJSON());
  launch();
  transport.answer(QStringLiteral("vantor-config.json"),
                   R"({"schemaVersion":1,"serverUrl":"http://mark-new.example"})");
  EXPECT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
  transport.fail(QString(), refused);
  EXPECT_TRUE(eventually([&] { return says("following the service to another server", "503"); }));

  expectNone({QStringLiteral("mark-host"), QStringLiteral("mark-base"), QStringLiteral("mark-new"),
              account.username, account.password, QStringLiteral("mark entry"),
              QStringLiteral("mark"), home.path()});
}

TEST_F(TraceTest, NothingIsSaidUnlessItIsAskedFor) {
  QLoggingCategory::setFilterRules(QString());
  launch();
  connectAccount(account);
  transport.fail(QString(), std::make_exception_ptr(HTTPFailure(500)));
  EXPECT_TRUE(eventually([&] { return signInOver; }));
  EXPECT_THAT(log, ::testing::IsEmpty());
}

}  // namespace
}  // namespace vantor
