#include "platform/trace.h"

#include <QDir>

#include "support/files.h"
#include "support/heard_messages.h"
#include "support/model_fixture.h"

namespace vantor::test {
namespace {

bool isOurs(QtMsgType, const QMessageLogContext& context, const QString&) {
  return QByteArrayView(context.category).startsWith("vantor.");
}

/// A model whose account, libraries and answers are full of what no log may hold.
class TraceTest : public ModelTest {
 protected:
  void SetUp() override {
    QLoggingCategory::setFilterRules(u"vantor.*=true"_s);
    account = ProviderAccount::validated(u"Vantor TV"_s, u"http://mark-host.example/mark-base"_s,
                                         u"mark user+1"_s, u"mark/p\u00e4ss&1"_s);
  }
  void TearDown() override {
    quit();
    QLoggingCategory::setFilterRules(QString());
  }
  const QStringList& log() { return lines += heard.take(); }
  /// Whether the log comes to say this of what was tried.
  bool comesToSay(const char* tried, const char* kind) {
    return eventually([&] {
      return std::ranges::any_of(log(), [&](const QString& line) {
        return line.startsWith(QLatin1String(tried)) && line.contains(QLatin1String(kind));
      });
    });
  }
  /// Each of these texts as it is, and as an address, a form or a sign-in may carry it.
  void expectNone(const QStringList& secrets) {
    const QString all = log().join(QLatin1Char('\n'));
    for (const QString& secret : secrets) {
      const QByteArray bytes = secret.toUtf8();
      for (const QByteArray& form :
           {bytes, bytes.toPercentEncoding(), QUrl::toPercentEncoding(secret, QByteArray(), "+"),
            QByteArray(bytes).replace(' ', '+'), bytes.toBase64(), bytes.toHex()})
        EXPECT_FALSE(all.contains(QString::fromUtf8(form), Qt::CaseInsensitive))
            << form.toStdString();
    }
  }

  HeardMessages heard{isOurs};
  QStringList lines;
};

TEST_F(TraceTest, EveryFailureLeavesALineAndNoSecret) {
  const auto refused = HTTPFailure(503);
  const auto unreachable = URLError(URLError::Code::unreachable);
  const QByteArray damaged = R"({"name":"mark entry","url":"http://mark-host.example/mark-base)";
  credentials.put(providerItem, "mark-host.example is no account");
  launch();
  EXPECT_TRUE(comesToSay("reading the saved account", "JSONError"));

  connectAccount(account);
  transport.fail(QString(), refused);
  EXPECT_TRUE(comesToSay("signing in", "HTTPFailure 503, failure 1"));
  connectAccount(account);
  transport.answer(QString(), damaged);
  EXPECT_TRUE(comesToSay("signing in", "failure 2"));

  const QByteArray channels = R"([{"stream_id":1,"name":"mark entry"}])";
  signIn(channels);
  const QString folder = home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s);
  for (const QFileInfo& copy : QDir(folder).entryInfoList(QDir::Files))
    writeFile(copy.filePath(), damaged);
  launch();
  transport.fail(serviceDocument, unreachable);
  EXPECT_TRUE(comesToSay("reading the service configuration", "URLError"));
  answer(LibraryKind::live, channels);
  EXPECT_TRUE(comesToSay("reading the copy of a library", "Failure"));

  // Where the folder of the copies was is a file.
  ASSERT_TRUE(QDir(folder).removeRecursively());
  writeFile(folder);
  AppModel& app = *model;
  app.load(LibraryKind::live, LoadMode::refresh);
  answer(LibraryKind::live, channels);
  EXPECT_TRUE(comesToSay("saving the copy of a library", "system_error"));

  const auto failMovies = [&](const URLError& failure) {
    app.load(LibraryKind::movies, LoadMode::refresh);
    ASSERT_TRUE(isAskedFor(LibraryKind::movies));
    transport.fail(action(LibraryKind::movies), failure);
    ASSERT_TRUE(idle());
  };
  failMovies(URLError(URLError::Code::cancelled));
  failMovies(unreachable);
  EXPECT_TRUE(comesToSay("loading a library", "URLError 2, failure 1"))
      << "and of no cancelled one";
  const MediaItem channel = item(0);
  app.guide().prefetchGuide(channel);
  settle();
  transport.answer(guideRequest, damaged);
  EXPECT_TRUE(comesToSay("loading the guide of a row", "JSONError"));
  app.select(channel);
  settle();
  transport.fail(guideRequest, refused);
  EXPECT_TRUE(comesToSay("loading episodes or a guide", "HTTPFailure"));

  play(channel);
  engine.now.state = EngineState::error;
  clock.advance(1s);
  EXPECT_TRUE(comesToSay("playing a source", "failure 1"));

  credentials.fail(FakeCredentialStore::Operation::remove);
  disconnectAccount();
  EXPECT_TRUE(comesToSay("removing the saved account", "Error"));
  credentials.work(FakeCredentialStore::Operation::remove);
  ASSERT_TRUE(idle());
  signOut();
  EXPECT_TRUE(comesToSay("removing the account's libraries", "system_error"));

  credentials.put(providerItem, account.toJSON());
  launch();
  nameServer("http://mark-new.example");
  EXPECT_TRUE(eventually([&] { return transport.open(QString()) == 1; }));
  transport.fail(QString(), refused);
  EXPECT_TRUE(comesToSay("following the service to another server", "503"));

  expectNone({u"mark-host"_s, u"mark-base"_s, u"mark-new"_s, account.username, account.password,
              u"mark entry"_s, u"mark"_s, home.path()});
}

}  // namespace
}  // namespace vantor::test
