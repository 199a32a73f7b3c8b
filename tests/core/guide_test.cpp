#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class GuideTest : public ModelTest {
 protected:
  AppModel& app = launch();

  void SetUp() override { signIn(rows(LibraryKind::live, 0, 200)); }
  static MediaItem channel(int number) { return entry(LibraryKind::live, number); }
  int requests() const { return transport.requests(guideRequest); }
  QByteArray programme(const QString& title = u"a b"_s) const {
    return guide({{title.toUtf8(), 0s, 1h}});
  }
  void prefetch(int number) {
    app.guide().prefetchGuide(channel(number));
    settle();
  }
  void select(int number) {
    app.select(channel(number));
    settle();
  }
  bool fails(int number) const { return app.guide().guideFailed(channel(number).id); }
  QString titleOf(int number) const {
    const auto entries = app.guide().guideOf(channel(number).id);
    return entries ? entries->value(0).title : u"unknown"_s;
  }
  bool becomes(int number, const QString& title = u"a b"_s) {
    return eventually([&] {
      clock.advance(10ms);
      return titleOf(number) == title;
    });
  }
  bool detailsLoaded() {
    return eventually([&] { return !app.details().detailsLoading(); });
  }
  /// Fetches a channel's guide whole, from request to cache.
  void fetch(int number) {
    prefetch(number);
    ASSERT_TRUE(transport.answer(guideRequest, programme()));
    ASSERT_TRUE(eventually([&] { return titleOf(number) == u"a b"_s; }));
  }
  /// As many as are kept.
  void fillCache() {
    for (int number = 0; number < 128; ++number) {
      fetch(number);
      clock.advance(10ms);
    }
    transport.always(guideRequest, programme());
  }
  void failFetch(int number) {
    prefetch(number);
    ASSERT_TRUE(transport.fail(guideRequest, HTTPFailure(500)));
    settle();
  }
  void selectAndFail(int number) {
    select(number);
    EXPECT_TRUE(app.details().detailsLoading());
    ASSERT_TRUE(transport.fail(guideRequest, HTTPFailure(500)));
    ASSERT_TRUE(detailsLoaded());
    EXPECT_TRUE(app.details().detailsError().has_value());
  }
};

TEST_F(GuideTest, AsksOnceInFiveMinutes) {
  fetch(1);
  failFetch(2);
  EXPECT_TRUE(fails(2));
  EXPECT_EQ(titleOf(2), u"unknown"_s);
  for (const auto& [passed, asked] : {std::pair{200s, 2}, {100s, 2}, {1s, 4}}) {
    clock.advance(passed);
    for (const int number : {1, 1, 2, 2}) prefetch(number);
    EXPECT_EQ(requests(), asked) << "not after a failure either";
  }
  EXPECT_TRUE(fails(2)) << "until the next success";
  while (transport.answer(guideRequest, programme())) settle();
  EXPECT_TRUE(becomes(2));
  EXPECT_FALSE(fails(2));
  EXPECT_TRUE(app.guide().guide().isEmpty()) << "another entry's guide is not shown";
}

TEST_F(GuideTest, RunsTwentyFourFetches) {
  for (int number = 0; number < 25; ++number) prefetch(number);
  transport.always(guideRequest, programme());
  while (transport.answer(guideRequest, programme())) settle();
  for (int number = 0; number < 24; ++number) ASSERT_TRUE(becomes(number)) << number;
  EXPECT_EQ(titleOf(24), u"unknown"_s) << "dropped, not queued";
  prefetch(24);
  EXPECT_TRUE(becomes(24));
}

TEST_F(GuideTest, TheChannelCheckedLongestAgoMakesRoom) {
  failFetch(500);
  clock.advance(1s);
  fillCache();
  prefetch(128);
  ASSERT_TRUE(becomes(128));
  EXPECT_EQ(titleOf(0), u"a b"_s) << "the failed channel was the oldest";
  prefetch(129);
  ASSERT_TRUE(becomes(129));
  EXPECT_EQ(titleOf(0), u"unknown"_s);
  EXPECT_EQ(titleOf(1), u"a b"_s);
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
  select(150);
  ASSERT_TRUE(becomes(150));
  EXPECT_EQ(titleOf(7), u"unknown"_s);
  const int before = requests();
  prefetch(7);
  EXPECT_TRUE(becomes(7)) << "the loader still has it";
  EXPECT_EQ(requests(), before);
}

/// The selection runs through more channels than may wait for their guides.
TEST_F(GuideTest, TheChannelThatAHeldKeyStopsAtGetsItsGuide) {
  for (int number = 0; number < 40; ++number) select(number);
  prefetch(41);
  EXPECT_FALSE(app.details().detailsError().has_value());
  EXPECT_TRUE(app.details().detailsLoading());
  transport.always(guideRequest, programme());
  while (transport.answer(guideRequest, programme())) settle();
  EXPECT_TRUE(becomes(39) && becomes(41));
  EXPECT_EQ(app.guide().guide().size(), 1);
  EXPECT_FALSE(app.details().detailsError() || app.details().detailsLoading());
  EXPECT_FALSE(fails(41));
}

TEST_F(GuideTest, ReachesTheSelectedChannelAndTakesItsErrorAway) {
  select(1);
  prefetch(1);
  EXPECT_EQ(requests(), 1) << "both wait for one request";
  transport.answer(guideRequest, programme());
  ASSERT_TRUE(detailsLoaded());
  EXPECT_EQ(app.guide().guide().value(0).title, u"a b"_s);

  selectAndFail(2);
  fetch(2);
  EXPECT_FALSE(app.details().detailsError().has_value());
  EXPECT_EQ(app.guide().guide().size(), 1);
}

TEST_F(GuideTest, IsShownForFiveMinutes) {
  fetch(1);
  clock.advance(299s);
  select(1);
  EXPECT_EQ(app.guide().guide().size(), 1);
  EXPECT_FALSE(app.details().detailsLoading());
  clock.advance(1s);
  selectAndFail(1);
  EXPECT_TRUE(app.guide().guide().isEmpty());
  EXPECT_FALSE(fails(1));
  clock.advance(1s);
  prefetch(1);
  EXPECT_EQ(requests(), 3) << "the failed selection set no time";
}

TEST_F(GuideTest, RefreshForgetsEverythingAndAsksForTheSelectedChannel) {
  fetch(1);
  failFetch(2);
  prefetch(3);
  app.select(channel(1));
  const auto running = transport.exchanges().back();
  app.refreshGuide();
  settle();
  EXPECT_TRUE(running->cancelled);
  EXPECT_EQ(titleOf(1), u"unknown"_s);
  EXPECT_FALSE(fails(2) || fails(3));
  EXPECT_TRUE(app.guide().guide().isEmpty());
  transport.answer(guideRequest, programme(u"c d"_s));
  ASSERT_TRUE(detailsLoaded());
  EXPECT_EQ(titleOf(1), u"c d"_s);

  app.select(entry(LibraryKind::movies, 1));
  const int before = requests();
  app.refreshGuide();
  settle();
  EXPECT_EQ(requests(), before) << "no channel is selected";
  EXPECT_EQ(titleOf(1), u"unknown"_s);
}

}  // namespace
}  // namespace vantor::test
