#include "support/model_fixture.h"

namespace vantor::test {
namespace {

MediaItem channel(int number) {
  return ModelFixture::entry(LibraryKind::live, number);
}

class GuideTest : public ModelTest {
 protected:
  AppModel& app = launch();

  void SetUp() override { signIn(rows(LibraryKind::live, 0, 200)); }
  int requests() const { return transport.requests(guideRequest); }
  QByteArray programme(const QString& title = u"a b"_s) const {
    return guide({{title.toUtf8(), 0s, 1h}});
  }
  void prefetch(int number) {
    app.guide().prefetchGuide(channel(number));
    settle();
  }
  bool fails(int number) const { return app.guide().guideFailed(channel(number).id); }
  QString titleOf(int number) const {
    const auto entries = app.guide().guideOf(channel(number).id);
    return !entries ? u"unknown"_s : entries->isEmpty() ? u"none"_s : entries->first().title;
  }
  bool becomes(int number, const QString& title = u"a b"_s) {
    return eventually([&] {
      clock.advance(10ms);
      return titleOf(number) == title;
    });
  }
  /// Fetches a channel's guide whole, from request to cache.
  void fetch(int number, const QString& title = u"a b"_s) {
    prefetch(number);
    ASSERT_TRUE(transport.answer(guideRequest, programme(title)));
    ASSERT_TRUE(eventually([&] { return titleOf(number) == title; }));
  }
  /// As many as are kept.
  void fillCache() {
    transport.always(guideRequest, programme());
    for (int number = 0; number < 128; ++number) {
      prefetch(number);
      ASSERT_TRUE(eventually([&] { return titleOf(number) == u"a b"_s; }));
    }
  }
  void failFetch(int number) {
    prefetch(number);
    ASSERT_TRUE(transport.fail(guideRequest, HTTPFailure(500)));
    settle();
  }
};

TEST_F(GuideTest, AsksOnceInFiveMinutes) {
  prefetch(1);
  prefetch(1);
  EXPECT_EQ(requests(), 1);
  transport.answer(guideRequest, programme());
  ASSERT_TRUE(eventually([&] { return titleOf(1) == u"a b"_s; }));
  for (const auto& [passed, asks] : {std::pair{200s, 1}, {100s, 1}, {1s, 2}}) {
    clock.advance(passed);
    prefetch(1);
    EXPECT_EQ(requests(), asks);
  }
  EXPECT_TRUE(app.guide().guide().isEmpty()) << "another entry's guide is not shown";
  transport.answer(guideRequest, programme());

  failFetch(2);
  EXPECT_TRUE(fails(2));
  EXPECT_EQ(titleOf(2), u"unknown"_s);
  clock.advance(300s);
  prefetch(2);
  EXPECT_EQ(requests(), 3) << "not after a failure either";
  clock.advance(1s);
  fetch(2);
  EXPECT_FALSE(fails(2)) << "marked until the next success";
}

TEST_F(GuideTest, RunsTwentyFourFetches) {
  for (int number = 0; number < 25; ++number) prefetch(number);
  transport.always(guideRequest, programme());
  transport.answer(guideRequest, programme());
  transport.answer(guideRequest, programme());
  for (int number = 0; number < 24; ++number) ASSERT_TRUE(becomes(number)) << number;
  EXPECT_EQ(titleOf(24), u"unknown"_s) << "dropped, not queued";
  prefetch(24);
  EXPECT_TRUE(becomes(24));
}

TEST_F(GuideTest, TheChannelCheckedLongestAgoMakesRoom) {
  failFetch(500);
  clock.advance(1s);
  for (int number = 0; number < 128; ++number) {
    fetch(number);
    clock.advance(10ms);
  }
  fetch(128);
  EXPECT_EQ(titleOf(0), u"a b"_s) << "the failed channel was the oldest";
  clock.advance(10ms);
  fetch(129);
  EXPECT_EQ(titleOf(0), u"unknown"_s);
  EXPECT_EQ(titleOf(1), u"a b"_s);
  EXPECT_EQ(titleOf(129), u"a b"_s);
}

TEST_F(GuideTest, AClockThatIsSetAsksOnceMoreAndNoMore) {
  fillCache();
  for (const auto set : {std::chrono::seconds(-3h), std::chrono::seconds(7h), -7h - 300s}) {
    clock.set(set);
    const int before = requests();
    const QString title = u"set %1"_s.arg(set.count());
    transport.always(guideRequest, programme(title));
    for (int round = 0; round < 3; ++round) {
      for (const int number : {3, 200, 201, 202}) prefetch(number);
      for (const int number : {3, 200, 201, 202}) EXPECT_TRUE(becomes(number, title)) << round;
    }
    EXPECT_EQ(requests(), before + 4) << set.count();
  }
}

TEST_F(GuideTest, AGuideTooManyLetsTheOthersBeAskedForAgain) {
  fillCache();
  app.select(channel(150));
  ASSERT_TRUE(becomes(150));
  EXPECT_EQ(titleOf(7), u"unknown"_s);
  const int before = requests();
  prefetch(7);
  EXPECT_TRUE(becomes(7)) << "the loader still has it";
  EXPECT_EQ(requests(), before);
}

/// The selection runs through more channels than may wait for their guides.
TEST_F(GuideTest, TheChannelThatAHeldKeyStopsAtGetsItsGuide) {
  for (int number = 0; number < 40; ++number) {
    app.select(channel(number));
    settle();
  }
  prefetch(41);
  EXPECT_FALSE(app.details().detailsError().has_value());
  EXPECT_TRUE(app.details().detailsLoading());
  transport.always(guideRequest, programme());
  while (transport.answer(guideRequest, programme())) settle();
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return !app.guide().guide().isEmpty() && app.guide().guideOf(channel(41).id).has_value();
  }));
  EXPECT_FALSE(app.details().detailsError() || app.details().detailsLoading());
  EXPECT_FALSE(fails(41));
}

TEST_F(GuideTest, ReachesTheSelectedChannelAndTakesItsErrorAway) {
  app.select(channel(1));
  settle();
  prefetch(1);
  EXPECT_EQ(requests(), 1) << "both wait for one request";
  transport.answer(guideRequest, programme());
  ASSERT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
  ASSERT_EQ(app.guide().guide().size(), 1);
  EXPECT_EQ(app.guide().guide().at(0).title, u"a b"_s);

  app.select(channel(2));
  settle();
  transport.fail(guideRequest, HTTPFailure(500));
  ASSERT_TRUE(eventually([&] { return app.details().detailsError().has_value(); }));
  fetch(2);
  EXPECT_FALSE(app.details().detailsError().has_value());
  EXPECT_EQ(app.guide().guide().size(), 1);
}

TEST_F(GuideTest, RefreshForgetsEverythingAndAsksForTheSelectedChannel) {
  fetch(1);
  failFetch(2);
  prefetch(3);
  app.select(channel(1));
  EXPECT_FALSE(app.details().detailsLoading());
  const auto running = transport.exchanges().back();
  app.refreshGuide();
  settle();
  EXPECT_TRUE(running->cancelled);
  EXPECT_EQ(titleOf(1), u"unknown"_s);
  EXPECT_FALSE(fails(2));
  EXPECT_TRUE(app.guide().guide().isEmpty());
  EXPECT_TRUE(app.details().detailsLoading());
  transport.answer(guideRequest, programme(u"c d"_s));
  ASSERT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
  EXPECT_EQ(titleOf(1), u"c d"_s);
  fetch(3);
  EXPECT_FALSE(fails(3)) << "the cancelled fetch left no trace";

  MediaItem movie = channel(1);
  movie.kind = LibraryKind::movies;
  movie.id = u"movies:1"_s;
  app.select(movie);
  const int before = requests();
  app.refreshGuide();
  settle();
  EXPECT_EQ(requests(), before);
  EXPECT_EQ(titleOf(1), u"unknown"_s);
}

TEST_F(GuideTest, NothingIsFetchedWithoutAProvider) {
  MediaItem sample = channel(1);
  sample.isExample = true;
  app.guide().prefetchGuide(sample);
  settle();
  AppModel& preview = launch({u"--demo"_s});
  preview.guide().prefetchGuide(channel(1));
  preview.refreshGuide();
  settle();
  EXPECT_EQ(requests(), 0);
}

/// What ends the world of a guide's fetch; whether that is a selection's; whether its request is
/// open already.
using StaleGuide = std::tuple<std::string, bool, bool>;

class StaleGuideTest : public GuideTest, public ::testing::WithParamInterface<StaleGuide> {
 protected:
  const std::map<std::string, std::function<void()>> changes = {
      {"Refresh", [this] { app.refreshGuide(); }},
      {"Connect", [this] { connectAccount(account), acceptSignIn(); }},
      {"Disconnect", [this] { signOut(); }},
      {"Destroy", [this] { model.reset(); }}};
};

TEST_P(StaleGuideTest, AppliesNothing) {
  const auto& [change, ofSelection, requested] = GetParam();
  failFetch(9);
  const auto begin = transport.exchanges().size();
  ofSelection ? app.select(channel(1)) : app.guide().prefetchGuide(channel(1));
  if (requested) settle();
  ASSERT_EQ(transport.open(guideRequest), requested ? 1 : 0);
  changes.at(change)();
  settle();
  if (requested) {
    const auto request = transport.exchanges().at(begin);
    EXPECT_TRUE(request->cancelled);
    request->answer.resolve(programme(u"late one"_s));
  }
  settle();
  if (!model) return;
  EXPECT_EQ(titleOf(1), u"unknown"_s);
  EXPECT_TRUE(app.guide().guide().isEmpty());
  EXPECT_FALSE(fails(1) || fails(9));
  EXPECT_EQ(app.details().detailsLoading(), ofSelection && change == "Refresh");
  if (!app.session().account()) return;
  fetch(1, u"new one"_s);
  EXPECT_EQ(titleOf(1), u"new one"_s) << "the new world is not hindered";
}

INSTANTIATE_TEST_SUITE_P(Changes, StaleGuideTest,
                         ::testing::Combine(::testing::Values("Refresh", "Connect", "Disconnect",
                                                              "Destroy"),
                                            ::testing::Bool(), ::testing::Bool()),
                         [](const auto& row) {
                           return std::get<0>(row.param) +
                                  (std::get<1>(row.param) ? "OfASelection" : "OfAPrefetch") +
                                  (std::get<2>(row.param) ? "DuringItsRequest" : "BeforeItBegins");
                         });

}  // namespace
}  // namespace vantor::test
