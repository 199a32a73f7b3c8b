#include "provider/episodes_parsing.h"

#include <gtest/gtest.h>

#include "json/json_reading.h"
#include "platform/app_error.h"
#include "support/peak_memory.h"

namespace vantor {
namespace {

MediaItem someShow() {
  MediaItem show;
  show.id = QStringLiteral("shows:9");
  show.providerID = QStringLiteral("9");
  show.kind = LibraryKind::shows;
  show.category = QStringLiteral("c");
  show.artwork = QUrl(QStringLiteral("http://h.example/p.png"));
  show.plot = QStringLiteral("plot");
  return show;
}

/// "id/season/episode" of each, "-" for a number that is absent.
std::string summary(const QByteArray& seasons) {
  const auto number = [](std::optional<int> value) {
    return value ? std::to_string(*value) : std::string("-");
  };
  std::string text;
  for (const MediaItem& episode : parseEpisodes("{\"episodes\":" + seasons + "}", someShow()))
    text += (text.empty() ? "" : " ") + episode.providerID.toStdString() + "/" +
            number(episode.season) + "/" + number(episode.episode);
  return text;
}

TEST(Episodes, TakeTheirFieldsFromTheRowAndTheShow) {
  const auto episodes = parseEpisodes(
      R"({"info":{"name":"x"},"episodes":{"1":[
          {"id":"71","episode_num":2,"title":"","container_extension":"","plot":"no"},
          {"id":70,"episode_num":"1","title":"Pilot \u00e9","container_extension":"mp4"}]}})",
      someShow());
  ASSERT_EQ(episodes.size(), 2);
  MediaItem first;
  first.id = QStringLiteral("episode:70");
  first.providerID = QStringLiteral("70");
  first.kind = LibraryKind::shows;
  first.name = QStringLiteral("Pilot \u00e9");
  first.category = QStringLiteral("c");
  first.artwork = someShow().artwork;
  first.fileExtension = QStringLiteral("mp4");
  first.episode = 1;
  first.season = 1;
  EXPECT_EQ(episodes.at(0), first);
  EXPECT_EQ(episodes.at(1).name, QString());
  EXPECT_EQ(episodes.at(1).fileExtension, QStringLiteral("mkv"));
}

TEST(Episodes, ComeInViewingOrder) {
  struct Case {
    const char* seasons;
    const char* expected;
  };
  const Case cases[] = {
      {R"({"10":[{"id":1}],"2":[{"id":2}],"1":[{"id":3}]})", "3/1/- 2/2/- 1/10/-"},
      {R"({"1":[{"id":1}],"S1":[{"id":2}],"-1":[{"id":3}],"+2":[{"id":4}]})",
       "3/-1/- 2/-/- 1/1/- 4/2/-"},
      {R"({"1":[{"id":"a","episode_num":3},{"id":"b","episode_num":"1"},
                {"id":"c","episode_num":1},{"id":"d","episode_num":"x"},{"id":"e"}]})",
       "d/1/- e/1/- b/1/1 c/1/1 a/1/3"},
      {R"({"2":[{"id":"a"},{"id":"b"}],"1":[{"id":"b"},{"id":""},{"title":"no id"},{"id":"b"}]})",
       "b/1/- a/2/-"},
      {R"({"":[{"id":1,"episode_num":1.5}],"9223372036854775807":[{"id":2}],
           "9223372036854775808":[{"id":3}]})",
       "1/-/- 3/-/- 2/-/-"},
      {R"({"1":[]})", ""},
      {"{}", ""},
  };
  for (const Case& example : cases) EXPECT_EQ(summary(example.seasons), example.expected);
}

TEST(Episodes, OnlyTheShapeOfAnAnswerFailsIt) {
  for (const char* shape :
       {"[]", "{}", R"({"episodes":[]})", R"({"episodes":null})", R"({"episodes":{"1":{}}})",
        R"({"episodes":{"1":[{"id":1},2]}})", R"({"episodes":{"1":"x","2":[]}})"}) {
    try {
      parseEpisodes(shape, someShow());
      ADD_FAILURE() << shape;
    } catch (const AppError& error) {
      EXPECT_EQ(error.message, QStringLiteral("This show's episodes could not be read."));
    }
  }
  for (const char* damage : {"", "<html>", "7", R"({"episodes":{"1":[{"id":1})",
                             R"({"episodes":{}} x)", R"({"episodes":{"1":[{"id":01}]}})"})
    EXPECT_THROW(parseEpisodes(damage, someShow()), JSONError) << damage;
}

TEST(Episodes, ManyAndLongOnesAreRead) {
  QByteArray seasons = "{";
  for (int season = 200; season > 0; --season) {
    seasons += '"' + QByteArray::number(season) + "\":[";
    for (int episode = 50; episode > 0; --episode)
      seasons += "{\"id\":" + QByteArray::number(season * 1000 + episode) +
                 ",\"episode_num\":" + QByteArray::number(episode) + ",\"title\":\"" +
                 QByteArray(episode == 1 ? 10'000 : 3, 'x') + "\"}" + (episode > 1 ? "," : "]");
    seasons += season > 1 ? "," : "}";
  }
  const auto episodes = parseEpisodes("{\"episodes\":" + seasons + "}", someShow());
  ASSERT_EQ(episodes.size(), 10'000);
  EXPECT_EQ(episodes.first().providerID, QStringLiteral("1001"));
  EXPECT_EQ(episodes.first().name.size(), 10'000);
  EXPECT_EQ(episodes.last().providerID, QStringLiteral("200050"));
}

QByteArray answerOf(QByteArray row, int rows, const char* before = "{\"episodes\":{\"1\":[",
                    const char* after = "]}}") {
  row += ',';
  QByteArray answer = before + row.repeated(rows);
  answer.chop(1);
  return answer + after;
}

TEST(Episodes, RowsWithoutAnIdTakeNoMemory) {
  const int rows = 500'000;
  const auto peak = [](QByteArray answer) {
    return test::peakMemory([&] { parseEpisodes(std::move(answer), someShow()); });
  };
  const auto unread = peak(answerOf("{}", rows, "{\"episodes\":{},\"x\":[", "]}"));
  EXPECT_LT(peak(answerOf("{}", rows)), 2 * unread + 4'000'000);
  EXPECT_LT(peak(answerOf("{}", rows, "{\"episodes\":{\"1\":[{\"id\":7},")),
            2 * unread + 4'000'000);
}

TEST(Episodes, NoShowHasMoreThanItsRowsCanSay) {
  EXPECT_EQ(parseEpisodes(answerOf("{\"id\":1}", maximumEpisodeRows), someShow()).size(), 1);
  EXPECT_THROW(parseEpisodes(answerOf("{\"id\":1}", maximumEpisodeRows + 1), someShow()), AppError);
}

}  // namespace
}  // namespace vantor
