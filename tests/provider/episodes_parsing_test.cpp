#include "provider/episodes_parsing.h"

#include <gtest/gtest.h>

#include "support/peak_memory.h"
#include "support/sentence.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

const MediaItem someShow{.id = u"shows:9"_s,
                         .providerID = u"9"_s,
                         .kind = LibraryKind::shows,
                         .name = u"Some Show"_s,
                         .category = u"c"_s,
                         .artwork = QUrl(u"http://h.example/p.png"_s),
                         .plot = u"plot"_s};

/// "id/season/episode" of each, "-" for a number that is absent.
std::string summary(const QByteArray& seasons) {
  const auto number = [](std::optional<int> value) {
    return value ? std::to_string(*value) : std::string("-");
  };
  std::string text;
  for (const MediaItem& episode : parseEpisodes("{\"episodes\":" + seasons + "}", someShow))
    text += (text.empty() ? "" : " ") + episode.providerID.toStdString() + "/" +
            number(episode.season) + "/" + number(episode.episode);
  return text;
}

TEST(Episodes, TakeTheirFieldsFromTheRowAndTheShow) {
  const auto episodes = parseEpisodes(
      R"({"info":{"name":"x"},"episodes":{"1":[
          {"id":"71","episode_num":2,"title":"","container_extension":"","plot":"no"},
          {"id":70,"episode_num":"1","title":"Pilot \u00e9","container_extension":"mp4"}]}})",
      someShow);
  ASSERT_EQ(episodes.size(), 2);
  EXPECT_EQ(episodes.at(0), (MediaItem{.id = u"episode:70"_s,
                                       .providerID = u"70"_s,
                                       .kind = LibraryKind::shows,
                                       .name = u"Pilot \u00e9"_s,
                                       .category = u"c"_s,
                                       .artwork = someShow.artwork,
                                       .fileExtension = u"mp4"_s,
                                       .episode = 1,
                                       .season = 1,
                                       .show = someShow.name,
                                       .showID = someShow.id}));
  EXPECT_EQ(episodes.at(1).name, QString());
  EXPECT_EQ(episodes.at(1).fileExtension, u"mkv"_s);
}

TEST(Episodes, ComeInViewingOrder) {
  const std::pair<const char*, const char*> cases[] = {
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
  for (const auto& [seasons, expected] : cases) EXPECT_EQ(summary(seasons), expected);
}

TEST(Episodes, OnlyTheShapeOfAnAnswerFailsIt) {
  for (const char* shape :
       {"[]", "{}", R"({"episodes":[]})", R"({"episodes":null})", R"({"episodes":{"1":{}}})",
        R"({"episodes":{"1":[{"id":1},2]}})", R"({"episodes":{"1":"x","2":[]}})"})
    EXPECT_EQ(sentence([&] { parseEpisodes(shape, someShow); }),
              u"This show's episodes could not be read."_s)
        << shape;
}

QByteArray answerOf(QByteArray row, int rows, const char* before = "{\"episodes\":{\"1\":[",
                    const char* after = "]}}") {
  row += ',';
  QByteArray answer = before + row.repeated(rows);
  answer.chop(1);
  return answer + after;
}

TEST(Episodes, RowsAreCountedAndThoseWithoutAnIdTakeNoMemory) {
  const int rows = 500'000;
  const auto peak = [](QByteArray answer) {
    return peakMemory([&] { parseEpisodes(std::move(answer), someShow); });
  };
  const auto unread = peak(answerOf("{}", rows, "{\"episodes\":{},\"x\":[", "]}"));
  EXPECT_LT(peak(answerOf("{}", rows)), 2 * unread + 4'000'000);
  EXPECT_LT(peak(answerOf("{}", rows, "{\"episodes\":{\"1\":[{\"id\":7},")),
            2 * unread + 4'000'000);
  EXPECT_EQ(parseEpisodes(answerOf("{\"id\":1}", maximumEpisodeRows), someShow).size(), 1);
  EXPECT_THROW(parseEpisodes(answerOf("{\"id\":1}", maximumEpisodeRows + 1), someShow), AppError);
}

}  // namespace
}  // namespace vantor::test
