#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class DetailsTest : public ModelTest {
 protected:
  AppModel& app = launch();
  const MediaItem movie = entry(LibraryKind::movies, 1);

  void SetUp() override { signIn(); }
  void select(int show) {
    app.select(entry(LibraryKind::shows, show));
    settle();
  }
  void selectWhole(int show) {
    select(show);
    answerEpisodes(R"({"1":[{"id":7,"title":"one"}]})");
  }
  QString firstTitle() const { return app.details().episodes().value(0).name; }
};

TEST_F(DetailsTest, AShowIsAskedForOnceUntilThirtyOthersWere) {
  selectWhole(1);
  EXPECT_EQ(transport.exchanges().back()->request.address.query(),
            u"username=user&password=secret&action=get_series_info&series_id=1"_s);
  EXPECT_EQ(firstTitle(), u"one"_s);
  app.select(movie);
  EXPECT_EQ(firstTitle(), QString());
  for (int number = 2; number <= 30; ++number) selectWhole(number);
  select(1);
  EXPECT_EQ(firstTitle(), u"one"_s) << "at once";
  EXPECT_FALSE(app.details().detailsLoading());
  selectWhole(31);
  select(1);
  EXPECT_TRUE(app.details().detailsLoading()) << "all were forgotten";
  select(31);
  EXPECT_EQ(firstTitle(), u"one"_s) << "but the last";
}

TEST_F(DetailsTest, LongShowsCountForMany) {
  QByteArrayList rows;
  for (int id = 1; id <= 50'000; ++id) rows.append("{\"id\":" + QByteArray::number(id) + '}');
  selectWhole(1);
  select(2);
  answerEpisodes("{\"1\":[" + rows.join(',') + "]}");
  select(1);
  EXPECT_TRUE(app.details().detailsLoading());
  select(2);
  EXPECT_EQ(app.details().episodes().size(), 50'000) << "at once";
}

TEST_F(DetailsTest, AFailureIsShownAndTheNextSelectionTriesAgain) {
  const std::pair<std::function<void()>, QString> failures[] = {
      {[&] { answerEpisodes("[]"); }, u"This show's episodes could not be read."_s},
      {[&] { transport.fail(episodesRequest, HTTPFailure(500)); },
       u"Unable to connect. Check your internet connection and provider details, then try again."_s}};
  for (const auto& [fail, sentence] : failures) {
    select(1);
    fail();
    ASSERT_TRUE(eventually([&] { return !app.details().detailsLoading(); }));
    EXPECT_EQ(app.details().detailsError(), sentence);
    EXPECT_TRUE(app.details().episodes().isEmpty());
  }
  app.select(movie);
  EXPECT_EQ(app.details().detailsError(), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
