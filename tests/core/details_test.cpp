#include <QSemaphore>
#include <atomic>

#include "support/model_fixture.h"

namespace vantor::test {
namespace {

MediaItem show(int number) {
  return ModelFixture::entry(LibraryKind::shows, number);
}

QByteArray seasons(const char* title) {
  return QByteArray("{\"1\":[{\"id\":7,\"title\":\"") + title + "\"}]}";
}

QByteArray episode(const char* title) {
  return "{\"episodes\":" + seasons(title) + '}';
}

class DetailsTest : public ModelTest {
 protected:
  AppModel& app = launch();

  void SetUp() override { signIn(); }
  void select(const MediaItem& item) {
    app.select(item);
    settle();
  }
  bool loaded() {
    return eventually([&] { return !app.details().detailsLoading(); });
  }
  void selectWhole(int number) {
    select(show(number));
    answerEpisodes(seasons("one"));
  }
  QString firstTitle() const {
    return app.details().episodes().isEmpty() ? QString() : app.details().episodes().first().name;
  }
};

TEST_F(DetailsTest, AShowIsAskedForOnceMoviesAndSamplesNever) {
  const auto before = transport.exchanges().size();
  MediaItem sample = show(1);
  sample.isExample = true;
  for (const MediaItem& plain : {entry(LibraryKind::movies, 1), sample}) {
    select(plain);
    EXPECT_FALSE(app.details().detailsLoading());
  }
  EXPECT_EQ(transport.exchanges().size(), before);
  select(show(1));
  EXPECT_TRUE(app.details().detailsLoading());
  EXPECT_EQ(transport.exchanges().back()->request.address.query(),
            u"username=user&password=secret&action=get_series_info&series_id=1"_s);
  answerEpisodes(seasons("one"));
  EXPECT_EQ(firstTitle(), u"one"_s);
  select(entry(LibraryKind::movies, 1));
  EXPECT_TRUE(app.details().episodes().isEmpty());
  app.select(show(1));
  EXPECT_EQ(firstTitle(), u"one"_s) << "at once";
  EXPECT_FALSE(app.details().detailsLoading());
  EXPECT_EQ(transport.requests(episodesRequest), 1);
}

TEST_F(DetailsTest, TheThirtyFirstShowStartsTheCacheAfresh) {
  for (int number = 1; number <= 31; ++number) selectWhole(number);
  app.select(show(31));
  EXPECT_EQ(firstTitle(), u"one"_s);
  app.select(show(30));
  EXPECT_TRUE(app.details().detailsLoading());
}

TEST_F(DetailsTest, AFailureIsShownAndTheNextSelectionTriesAgain) {
  const std::pair<std::function<void()>, QString> failures[] = {
      {[&] { answerEpisodes("[]"); }, u"This show's episodes could not be read."_s},
      {[&] { transport.fail(episodesRequest, HTTPFailure(500)); },
       u"Unable to connect. Check your internet connection and provider details, then try again."_s}};
  for (const auto& [fail, sentence] : failures) {
    select(show(1));
    fail();
    ASSERT_TRUE(loaded());
    EXPECT_EQ(app.details().detailsError(), sentence);
    EXPECT_TRUE(app.details().episodes().isEmpty());
  }
  app.select(entry(LibraryKind::movies, 1));
  EXPECT_EQ(app.details().detailsError(), std::nullopt);
}

TEST_F(DetailsTest, AChannelsGuideIsUsedForFiveMinutes) {
  const MediaItem channel = entry(LibraryKind::live, 1);
  app.guide().prefetchGuide(channel);
  settle();
  transport.answer(guideRequest, guide({{"News", 0s, 1h}}));
  ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel.id).has_value(); }));
  clock.advance(10s);
  app.select(channel);
  EXPECT_EQ(app.guide().guide().size(), 1);
  EXPECT_FALSE(app.details().detailsLoading());
  clock.advance(290s);
  select(channel);
  EXPECT_TRUE(app.guide().guide().isEmpty() && app.details().detailsLoading());
  EXPECT_EQ(transport.requests(guideRequest), 2);
  transport.fail(guideRequest, HTTPFailure(500));
  ASSERT_TRUE(loaded());
  EXPECT_TRUE(app.details().detailsError().has_value());
  EXPECT_FALSE(app.guide().guideFailed(channel.id));
  clock.advance(1s);
  app.guide().prefetchGuide(channel);
  settle();
  EXPECT_EQ(transport.requests(guideRequest), 3) << "the failed selection set no time";
}

/// What replaces the selection of show 1 while its episodes are on their way; whether they fail.
class StaleDetailsTest : public DetailsTest,
                         public ::testing::WithParamInterface<std::tuple<std::string, bool>> {
 protected:
  const std::string kind = std::get<std::string>(GetParam());
  const bool fails = std::get<bool>(GetParam());
  const std::map<std::string, std::function<void()>> changes = {
      {"OtherShow", [this] { select(show(2)); }},
      {"SameShow", [this] { select(show(1)); }},
      {"Movie", [this] { select(entry(LibraryKind::movies, 1)); }},
      {"Navigate", [this] { app.navigate(Section::favorites); }},
      {"Disconnect", [this] { signOut(); }},
      {"Connect", [this] { connectAccount(account), acceptSignIn(); }},
      {"Destroy", [this] { model.reset(); }}};

  /// Lets the worker finish what it was given.
  bool drainWorker() {
    std::atomic<bool> drained = false;
    worker.post([&drained] { drained = true; });
    const bool ended = eventually([&] { return drained.load(); });
    settle();
    return ended;
  }
  void expectNothingOfShowOne() {
    if (!model) return;
    const bool loadsAnew = kind == "OtherShow" || kind == "SameShow";
    EXPECT_TRUE(app.details().episodes().isEmpty());
    EXPECT_EQ(app.details().detailsError(), std::nullopt);
    EXPECT_EQ(app.details().detailsLoading(), loadsAnew);
    if (loadsAnew) {
      answerEpisodes(seasons("new"));
      EXPECT_EQ(firstTitle(), u"new"_s);
    }
    if (!app.session().account() || kind == "SameShow") return;
    app.select(show(1));
    EXPECT_TRUE(app.details().detailsLoading()) << "the late answer is not in the cache";
  }
};

TEST_P(StaleDetailsTest, ALateResultChangesNothing) {
  select(show(1));
  const auto request = transport.exchanges().back();
  const auto settleRequest = [&] {
    request->over = true;
    if (fails)
      request->answer.fail(std::make_exception_ptr(HTTPFailure(500)));
    else
      request->answer.resolve(episode("late"));
  };
  // What changes at once can come while the answer is under way; the others take turns of their
  // own.
  const bool atOnce = kind != "Connect" && kind != "Disconnect";
  if (atOnce) settleRequest();
  changes.at(kind)();
  if (!atOnce) {
    EXPECT_TRUE(request->cancelled) << "not worth finishing";
    settleRequest();
  }
  settle();
  ASSERT_TRUE(drainWorker());
  expectNothingOfShowOne();
}

TEST_P(StaleDetailsTest, AnAnswerThatIsBeingReadChangesNothing) {
  // A sign-in is itself read on the thread that is held here.
  if (kind == "Connect") return;
  select(show(1));
  QSemaphore gate;
  const auto held = worker.run([&gate] { gate.acquire(); });
  transport.answer(episodesRequest, fails ? QByteArray("{}") : episode("late"));
  settle();
  changes.at(kind)();
  gate.release();
  ASSERT_TRUE(drainWorker());
  expectNothingOfShowOne();
}

INSTANTIATE_TEST_SUITE_P(Departures, StaleDetailsTest,
                         ::testing::Combine(::testing::Values("OtherShow", "SameShow", "Movie",
                                                              "Navigate", "Disconnect", "Connect",
                                                              "Destroy"),
                                            ::testing::Bool()),
                         [](const auto& row) {
                           return std::get<0>(row.param) +
                                  (std::get<1>(row.param) ? "BeforeAFailure" : "BeforeAnAnswer");
                         });

}  // namespace
}  // namespace vantor::test
