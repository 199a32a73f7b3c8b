#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class DetailsTest : public ModelTest {
 protected:
  AppModel& app = launch();
  const MediaItem movie = entry(LibraryKind::movies, 1);

  void SetUp() override { signIn(); }
  static MediaItem show(int number) { return entry(LibraryKind::shows, number); }
  void select(const MediaItem& item) {
    app.select(item);
    settle();
  }
  void selectWhole(int number) {
    select(show(number));
    answerEpisodes(R"({"1":[{"id":7,"title":"one"}]})");
  }
  bool loaded() {
    return eventually([&] { return !app.details().detailsLoading(); });
  }
};

TEST_F(DetailsTest, AShowIsAskedForOnceUntilThirtyOthersWere) {
  const auto firstTitle = [&] { return app.details().episodes().value(0).name; };
  selectWhole(1);
  EXPECT_EQ(transport.exchanges().back()->request.address.query(),
            u"username=user&password=secret&action=get_series_info&series_id=1"_s);
  EXPECT_EQ(firstTitle(), u"one"_s);
  select(movie);
  EXPECT_EQ(firstTitle(), QString());
  for (int number = 2; number <= 30; ++number) selectWhole(number);
  app.select(show(1));
  EXPECT_EQ(firstTitle(), u"one"_s) << "at once";
  EXPECT_FALSE(app.details().detailsLoading());
  selectWhole(31);
  app.select(show(1));
  EXPECT_TRUE(app.details().detailsLoading()) << "all were forgotten";
  app.select(show(31));
  EXPECT_EQ(firstTitle(), u"one"_s) << "but the last";
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
  app.select(movie);
  EXPECT_EQ(app.details().detailsError(), std::nullopt);
}

TEST_F(DetailsTest, AChannelsGuideIsUsedForFiveMinutes) {
  const MediaItem channel = entry(LibraryKind::live, 1);
  app.guide().prefetchGuide(channel);
  settle();
  transport.answer(guideRequest, guide({{"News", 0s, 1h}}));
  ASSERT_TRUE(eventually([&] { return app.guide().guideOf(channel.id).has_value(); }));
  clock.advance(299s);
  app.select(channel);
  EXPECT_EQ(app.guide().guide().size(), 1);
  EXPECT_FALSE(app.details().detailsLoading());
  clock.advance(1s);
  select(channel);
  EXPECT_TRUE(app.guide().guide().isEmpty() && app.details().detailsLoading());
  transport.fail(guideRequest, HTTPFailure(500));
  ASSERT_TRUE(loaded());
  EXPECT_TRUE(app.details().detailsError().has_value());
  EXPECT_FALSE(app.guide().guideFailed(channel.id));
  clock.advance(1s);
  app.guide().prefetchGuide(channel);
  settle();
  EXPECT_EQ(transport.requests(guideRequest), 3) << "the failed selection set no time";
}

}  // namespace
}  // namespace vantor::test
