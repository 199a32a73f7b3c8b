#include "provider/catalog_by_category.h"

#include <gtest/gtest.h>

#include "net/http_client.h"
#include "platform/worker.h"
#include "provider/catalog_parsing.h"
#include "provider/error_wording.h"
#include "provider/provider_client.h"
#include "sim/library.h"
#include "sim/server.h"
#include "support/awaited.h"
#include "support/fake_transport.h"

namespace vantor::test {
namespace {

const QString tooLargeForAll =
    u"The provider response is larger than this preview can safely load."_s;
const QString noConnection =
    u"Unable to connect. Check your internet connection and provider details, then try again."_s;
const QString unreadable = u"The provider returned an unreadable library."_s;

/// The ids of the catalogue that comes, or the sentence of what comes instead.
QString idsOrSentence(QCoro::Task<Catalog> loading) {
  try {
    const Catalog catalog = awaited<Catalog>(std::move(loading));
    QStringList ids;
    for (std::size_t i = 0; i < catalog.size(); ++i) {
      ids.append(catalog.item(i).providerID);
      EXPECT_EQ(catalog.indexOf(catalog.id(i)), i);
    }
    return ids.join(u' ');
  } catch (...) {
    return readableError(std::current_exception());
  }
}

class CatalogLoadTest : public ::testing::Test {
 protected:
  using Answer = std::variant<QByteArray, std::exception_ptr>;
  const QString action = u"get_vod_streams"_s;

  /// What comes of these answers to the requests for entries, the first being that for all.
  QString outcomeOf(const std::vector<Answer>& answers, const QByteArray& categories) {
    transport.always(u"get_vod_categories"_s, categories);
    auto loading = client.catalog(LibraryKind::movies, stop.get_token());
    for (const Answer& answer : answers) {
      if (!eventually([&] { return transport.open(action) == 1; })) return u"not asked"_s;
      if (const auto* body = std::get_if<QByteArray>(&answer))
        transport.answer(action, *body);
      else
        transport.fail(action, std::get<std::exception_ptr>(answer));
    }
    return idsOrSentence(std::move(loading));
  }

  FakeTransport transport;
  Worker worker;
  const ProviderClient client{
      ProviderAccount::validated(QString(), u"http://tv.example"_s, u"u"_s, u"p"_s), transport,
      worker};
  std::stop_source stop;
};

TEST_F(CatalogLoadTest, AsksForBothAtOnceAndTakesTheEntriesFailureFirst) {
  auto loading = client.catalog(LibraryKind::shows, stop.get_token());
  settle();
  transport.fail(u"get_series_categories"_s, OversizedBody());
  settle();
  transport.fail(u"get_series"_s, HTTPFailure(401));
  EXPECT_THROW(awaited<Catalog>(std::move(loading)), HTTPFailure);
}

TEST_F(CatalogLoadTest, WhatEndsTheEntriesEndsTheCategories) {
  const std::pair<std::function<void()>, QString> ends[] = {
      {[&] { transport.fail(action, HTTPFailure(500)); }, noConnection},
      {[&] { transport.answer(action, "{}"); }, unreadable},
      {[&] { stop.request_stop(); }, u"Canceled."_s}};
  for (const auto& [end, sentence] : ends) {
    auto loading = client.catalog(LibraryKind::movies, stop.get_token());
    settle();
    const auto categories = transport.exchanges().back();
    end();
    EXPECT_EQ(idsOrSentence(std::move(loading)), sentence);
    settle();
    EXPECT_TRUE(categories->cancelled) << sentence.toStdString();
    EXPECT_EQ(transport.open(action), 0) << sentence.toStdString();
  }
}

TEST_F(CatalogLoadTest, AnswersByCategoryAreMergedOrTheirFailureEndsTheLoad) {
  const Answer oversized = std::make_exception_ptr(OversizedBody());
  const Answer tooLarge = std::make_exception_ptr(OversizedBody(u"too large"_s));
  const Answer failed = std::make_exception_ptr(HTTPFailure(500));
  const Answer unreachable = std::make_exception_ptr(URLError(URLError::Code::unreachable));
  const QByteArray one = R"([{"category_id":1}])";
  const QByteArray two = R"([{"category_id":1},{"category_id":"2"}])";
  QByteArray many = "[";
  for (int i = 1; i <= 5001; ++i) many += "{\"category_id\":" + QByteArray::number(i) + "},";
  many.back() = ']';
  const std::tuple<const char*, QByteArray, std::vector<Answer>, QString> cases[] = {
      {"what fits is asked for once", two, {R"([{"stream_id":1}])"}, u"1"_s},
      {"numbers of the library, and none behind the one before",
       two,
       {oversized, R"([{"num":9,"stream_id":9},{"stream_id":"x"},{"num":"2","stream_id":2}])",
        R"([{"num":3,"stream_id":3},{"num":7,"stream_id":9},{"num":1,"stream_id":1}])", "[]"},
       u"1 2 3 9 x"_s},
      {"numbers of each answer",
       two,
       {oversized, R"([{"num":1,"stream_id":7},{"num":2,"stream_id":5}])",
        R"([{"num":1,"stream_id":6},{"num":2,"stream_id":7}])", R"([{"num":1,"stream_id":4}])"},
       u"7 5 6 4"_s},
      {"a category too large", two, {oversized, "[]", oversized}, tooLargeForAll},
      {"a server that knows no categories", two, {oversized, oversized}, tooLargeForAll},
      {"no category is every category",
       one,
       {oversized, R"([{"stream_id":1}])", oversized},
       u"1"_s},
      {"\"0\" is a category", R"([{"category_id":0}])", {oversized, oversized}, tooLargeForAll},
      {"nothing to ask by", "[]", {tooLarge}, u"too large"_s},
      {"nothing readable to ask by", "{}", {tooLarge}, u"too large"_s},
      {"categories without end", many, {tooLarge}, u"too large"_s},
      {"a failure in the middle", two, {oversized, "[]", failed}, noConnection},
      {"a server that knows no category for the rest",
       one,
       {oversized, R"([{"stream_id":1}])", failed},
       u"1"_s},
      {"and says so", one, {oversized, R"([{"stream_id":1}])", "{}"}, u"1"_s},
      {"no connection at the end", one, {oversized, "[]", unreachable}, noConnection},
      {"half an answer", two, {oversized, "[]", R"([{"stream_id":1},)"}, noConnection},
      {"another shape", two, {oversized, "{}"}, unreadable},
  };
  for (const auto& [what, categories, answers, outcome] : cases) {
    ASSERT_EQ(outcomeOf(answers, categories), outcome) << what;
    settle();
    ASSERT_EQ(transport.open(action), 0) << what;
  }
}

TEST_F(CatalogLoadTest, NoAnswerIsAskedForAfterAStop) {
  transport.always(u"get_vod_categories"_s, R"([{"category_id":1},{"category_id":2}])");
  const auto isAsked = [&] { return transport.open(action) == 1; };
  int parts = 0;
  for (const bool whileRead : {false, true}) {
    auto loading =
        client.catalog(LibraryKind::movies, stop.get_token(), [&](const CatalogPart& part) {
          parts += static_cast<int>(part.progress.answers);
          if (whileRead && part.progress.answers > 0) stop.request_stop();
        });
    ASSERT_TRUE(eventually(isAsked));
    transport.fail(action, OversizedBody());
    ASSERT_TRUE(eventually(isAsked));
    if (!whileRead) stop.request_stop();
    transport.answer(action, "[]");
    EXPECT_EQ(idsOrSentence(std::move(loading)), u"Canceled."_s);
    EXPECT_EQ(transport.open(action), 0);
    EXPECT_EQ(parts, whileRead ? 1 : 0);
    stop = std::stop_source();
  }
}

TEST(CatalogByCategory, WhatItBecomesIsBounded) {
  CatalogByCategory library(LibraryKind::movies);
  const QByteArray text(8'000'000, 'x');
  const auto read = [&](int id) {
    library.readEntries(
        "[{\"stream_id\":" + QByteArray::number(id) + ",\"year\":\"" + text + "\"}]", {});
  };
  for (int i = 0; i < 8; ++i) read(i);
  EXPECT_THROW(for (int i = 8; i < 32; ++i) read(i), OversizedBody);
}

// The answers are as in the whole library, so what comes of them is the same.
TEST(CatalogByCategory, ALibraryBeyondTheLimitIsThatOfOneAnswer) {
  constexpr int rows = 100'000;
  sim::Options options{.movies = rows, .streams = false};
  const sim::Server server(options);
  const QByteArray answer =
      QByteArray::fromStdString(sim::rowsJson(sim::Kind::movie, rows, server.url()));
  ASSERT_GT(answer.size(), defaultBodyLimit);
  const Catalog expected =
      parseCatalog(answer, QByteArray::fromStdString(sim::categoriesJson(sim::Kind::movie)),
                   LibraryKind::movies, std::chrono::system_clock::now());
  HTTPClient transport;
  Worker worker;
  const ProviderClient client(
      ProviderAccount::validated(QString(), QString::fromStdString(server.url()),
                                 QString::fromStdString(options.username),
                                 QString::fromStdString(options.password)),
      transport, worker);
  std::vector<LoadProgress> progress;
  std::vector<std::size_t> shown;
  const Catalog loaded = awaited<Catalog>(
      client.catalog(LibraryKind::movies, std::stop_token(), [&](const CatalogPart& part) {
        progress.push_back(part.progress);
        if (part.soFar) shown.push_back(part.soFar->size());
      }));
  ASSERT_EQ(loaded.size(), expected.size());
  EXPECT_EQ(loaded.categories(), expected.categories());
  for (std::size_t i = 0; i < loaded.size(); ++i) ASSERT_EQ(loaded.item(i), expected.item(i)) << i;
  const auto found = [](const Catalog& in) {
    std::vector<std::uint32_t> matches;
    in.match({u"103"_s, "the"}, matches);
    return matches;
  };
  EXPECT_EQ(found(loaded), found(expected));
  // The one that was refused may still be on its way out.
  EXPECT_LE(server.counters().mostAtOnce.at("get_vod_streams"), 2);
  const std::size_t asked = loaded.categories().size() + 1;
  ASSERT_EQ(progress.size(), 1 + asked);
  EXPECT_EQ(progress.front(), (LoadProgress{0, 0, asked}));
  EXPECT_EQ(progress.back(), (LoadProgress{loaded.size(), asked, asked}));
  ASSERT_GT(shown.size(), 2u);
  for (std::size_t i = 1; i < shown.size(); ++i) EXPECT_GT(shown[i], 2 * shown[i - 1]);
}

}  // namespace
}  // namespace vantor::test
