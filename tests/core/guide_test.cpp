#include <gtest/gtest.h>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using namespace std::chrono_literals;
using test::eventually;
using test::settle;

const QString shortGuide = QStringLiteral("get_short_epg");

QByteArray programme(const char* title) {
  return QByteArray("{\"epg_listings\":[{\"title\":\"") + title +
         "\",\"start_timestamp\":1,\"stop_timestamp\":2}]}";
}

MediaItem channel(int number) {
  MediaItem item;
  item.providerID = QString::number(number);
  item.id = entryID(LibraryKind::live, item.providerID);
  return item;
}

class GuideTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch();

  void SetUp() override { signIn(rows(LibraryKind::live, 0, 200)); }
  int requests() const { return transport.requests(shortGuide); }
  int open() const { return transport.open(shortGuide); }
  void prefetch(int number) {
    app.guide().prefetchGuide(channel(number));
    settle();
  }
  QString titleOf(int number) const {
    const auto entries = app.guide().guideOf(channel(number).id);
    return !entries             ? QStringLiteral("unknown")
           : entries->isEmpty() ? QStringLiteral("none")
                                : entries->first().title;
  }
  /// Fetches a channel's guide whole, from request to cache.
  void fetch(int number, const char* title = "a b") {
    prefetch(number);
    ASSERT_TRUE(transport.answer(shortGuide, programme(title)));
    ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel(number).id).has_value(); }));
  }
  void failFetch(int number) {
    prefetch(number);
    ASSERT_TRUE(transport.fail(shortGuide, std::make_exception_ptr(HTTPFailure(500))));
    settle();
  }
};

TEST_F(GuideTest, AsksOnceInFiveMinutes) {
  prefetch(1);
  prefetch(1);
  EXPECT_EQ(requests(), 1);
  transport.answer(shortGuide, programme("a b"));
  ASSERT_TRUE(eventually([&] { return titleOf(1) == QStringLiteral("a b"); }));
  for (const auto& [passed, asks] : {std::pair{200s, 1}, {100s, 1}, {1s, 2}}) {
    clock.advance(passed);
    prefetch(1);
    EXPECT_EQ(requests(), asks);
  }
  EXPECT_TRUE(app.guide().guide().isEmpty()) << "another entry's guide is not shown";
}

TEST_F(GuideTest, MarksAFailureUntilTheNextSuccess) {
  failFetch(1);
  EXPECT_TRUE(app.guide().guideFailed(channel(1).id));
  EXPECT_FALSE(app.guide().guideOf(channel(1).id).has_value());
  clock.advance(300s);
  prefetch(1);
  EXPECT_EQ(requests(), 1);
  clock.advance(1s);
  fetch(1);
  EXPECT_FALSE(app.guide().guideFailed(channel(1).id));
}

TEST_F(GuideTest, RunsTwentyFourFetches) {
  for (int number = 0; number < 25; ++number) prefetch(number);
  transport.answer(shortGuide, programme("a b"));
  ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel(0).id).has_value(); }));
  transport.always(shortGuide, programme("x y"));
  transport.answer(shortGuide, programme("x y"));
  for (int number = 1; number < 24; ++number)
    ASSERT_TRUE(eventually([&] {
      clock.advance(100ms);
      return app.guide().guideOf(channel(number).id).has_value();
    })) << number;
  EXPECT_FALSE(app.guide().guideOf(channel(24).id).has_value()) << "dropped, not queued";
  prefetch(24);
  EXPECT_TRUE(eventually([&] { return app.guide().guideOf(channel(24).id).has_value(); }));
}

TEST_F(GuideTest, TheChannelCheckedLongestAgoMakesRoom) {
  failFetch(500);
  clock.advance(1s);
  for (int number = 0; number < 128; ++number) {
    fetch(number);
    clock.advance(10ms);
  }
  fetch(128);
  EXPECT_EQ(titleOf(0), QStringLiteral("a b")) << "the failed channel was the oldest";
  clock.advance(10ms);
  fetch(129);
  EXPECT_EQ(titleOf(0), QStringLiteral("unknown"));
  EXPECT_EQ(titleOf(1), QStringLiteral("a b"));
  EXPECT_EQ(titleOf(129), QStringLiteral("a b"));
}

TEST_F(GuideTest, AClockThatIsSetAsksOnceMoreAndNoMore) {
  transport.always(shortGuide, programme("a b"));
  for (int number = 0; number < 128; ++number) {
    prefetch(number);
    ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel(number).id).has_value(); }));
  }
  for (const auto set : {std::chrono::seconds(-3h), std::chrono::seconds(7h), -7h - 300s}) {
    clock.set(set);
    const int before = requests();
    const QString title = QStringLiteral("set %1").arg(set.count());
    transport.always(shortGuide, programme(qPrintable(title)));
    for (int round = 0; round < 3; ++round) {
      for (const int number : {3, 200, 201, 202}) prefetch(number);
      EXPECT_TRUE(eventually([&] {
        clock.advance(1ms);
        return titleOf(3) == title && titleOf(200) == title && titleOf(201) == title &&
               titleOf(202) == title;
      })) << round;
    }
    EXPECT_EQ(requests(), before + 4) << set.count();
  }
}

TEST_F(GuideTest, AGuideTooManyLetsTheOthersBeAskedForAgain) {
  transport.always(shortGuide, programme("a b"));
  for (int number = 0; number < 128; ++number) {
    prefetch(number);
    ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel(number).id).has_value(); }));
  }
  app.select(channel(150));
  ASSERT_TRUE(eventually([&] { return titleOf(150) == QStringLiteral("a b"); }));
  EXPECT_EQ(titleOf(7), QStringLiteral("unknown"));
  const int before = requests();
  prefetch(7);
  // The loader still has it.
  EXPECT_TRUE(eventually([&] { return titleOf(7) == QStringLiteral("a b"); }));
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
  transport.always(shortGuide, programme("a b"));
  while (transport.answer(shortGuide, programme("a b"))) settle();
  EXPECT_TRUE(eventually([&] {
    clock.advance(100ms);
    return !app.guide().guide().isEmpty() && app.guide().guideOf(channel(41).id).has_value();
  }));
  EXPECT_FALSE(app.details().detailsError() || app.details().detailsLoading());
  EXPECT_FALSE(app.guide().guideFailed(channel(41).id));
}

TEST_F(GuideTest, ALaterSuccessTakesTheErrorAway) {
  app.select(channel(1));
  settle();
  transport.fail(shortGuide, std::make_exception_ptr(HTTPFailure(500)));
  ASSERT_TRUE(eventually([&] { return app.details().detailsError().has_value(); }));
  fetch(1);
  EXPECT_FALSE(app.details().detailsError().has_value());
  EXPECT_EQ(app.guide().guide().size(), 1);
}

TEST_F(GuideTest, ReachesTheSelectedChannel) {
  app.select(channel(1));
  settle();
  prefetch(1);
  EXPECT_EQ(requests(), 1) << "both wait for one request";
  transport.answer(shortGuide, programme("a b"));
  ASSERT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
  ASSERT_EQ(app.guide().guide().size(), 1);
  EXPECT_EQ(app.guide().guide().at(0).title, QStringLiteral("a b"));
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
  EXPECT_EQ(titleOf(1), QStringLiteral("unknown"));
  EXPECT_FALSE(app.guide().guideFailed(channel(2).id));
  EXPECT_TRUE(app.guide().guide().isEmpty());
  EXPECT_TRUE(app.details().detailsLoading());
  transport.answer(shortGuide, programme("c d"));
  ASSERT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
  EXPECT_EQ(titleOf(1), QStringLiteral("c d"));
  fetch(3);
  EXPECT_FALSE(app.guide().guideFailed(channel(3).id)) << "the cancelled fetch left no trace";

  MediaItem movie = channel(1);
  movie.kind = LibraryKind::movies;
  movie.id = QStringLiteral("movies:1");
  app.select(movie);
  const int before = requests();
  app.refreshGuide();
  settle();
  EXPECT_EQ(requests(), before);
  EXPECT_EQ(titleOf(1), QStringLiteral("unknown"));
}

TEST_F(GuideTest, NothingIsFetchedWithoutAProvider) {
  MediaItem sample = channel(1);
  sample.isExample = true;
  app.guide().prefetchGuide(sample);
  settle();
  AppModel& preview = launch({QStringLiteral("--demo")});
  preview.guide().prefetchGuide(channel(1));
  preview.refreshGuide();
  settle();
  EXPECT_EQ(requests(), 0);
}

enum class GuideChange { refresh, connect, disconnect, destroy };

/// What ends the world of a guide's fetch; whether that is a selection's; whether its request is
/// open already.
class StaleGuideTest : public GuideTest,
                       public ::testing::WithParamInterface<std::tuple<GuideChange, bool, bool>> {
 protected:
  void makeChange() {
    switch (std::get<GuideChange>(GetParam())) {
      case GuideChange::refresh:
        app.refreshGuide();
        break;
      case GuideChange::connect:
        connectAccount(account);
        transport.answer(QString(), acceptedSignIn());
        ASSERT_TRUE(eventually([&] { return signInOver; }));
        break;
      case GuideChange::disconnect:
        disconnectAccount();
        ASSERT_TRUE(eventually(
            [&] { return !app.session().account() && !app.session().signingInOrOut(); }));
        break;
      case GuideChange::destroy:
        model.reset();
        break;
    }
    settle();
  }
};

TEST_P(StaleGuideTest, AppliesNothing) {
  const auto [change, ofSelection, requested] = GetParam();
  failFetch(9);
  const auto begin = transport.exchanges().size();
  if (ofSelection)
    app.select(channel(1));
  else
    app.guide().prefetchGuide(channel(1));
  if (requested) settle();
  ASSERT_EQ(open(), requested ? 1 : 0);
  makeChange();
  if (requested) {
    const auto request = transport.exchanges().at(begin);
    EXPECT_TRUE(request->cancelled);
    request->answer.resolve(programme("late one"));
  }
  settle();
  if (!model) return;
  EXPECT_EQ(titleOf(1), QStringLiteral("unknown"));
  EXPECT_TRUE(app.guide().guide().isEmpty());
  EXPECT_FALSE(app.guide().guideFailed(channel(1).id) || app.guide().guideFailed(channel(9).id));
  const bool selectedAgain = ofSelection && change == GuideChange::refresh;
  EXPECT_EQ(app.details().detailsLoading(), selectedAgain);
  if (!app.session().account()) return;
  fetch(1, "new one");
  EXPECT_EQ(titleOf(1), QStringLiteral("new one")) << "the new world is not hindered";
}

std::string guideChangeName(const ::testing::TestParamInfo<StaleGuideTest::ParamType>& info) {
  static constexpr const char* changes[] = {"Refresh", "Connect", "Disconnect", "Destroy"};
  const auto [change, ofSelection, requested] = info.param;
  return std::string(changes[static_cast<int>(change)]) +
         (ofSelection ? "OfASelection" : "OfAPrefetch") +
         (requested ? "DuringItsRequest" : "BeforeItBegins");
}

INSTANTIATE_TEST_SUITE_P(
    Changes, StaleGuideTest,
    ::testing::Combine(::testing::Values(GuideChange::refresh, GuideChange::connect,
                                         GuideChange::disconnect, GuideChange::destroy),
                       ::testing::Bool(), ::testing::Bool()),
    guideChangeName);

}  // namespace
}  // namespace vantor
