#include "playback/track_choice.h"

#include <gtest/gtest.h>

#include "playback/media_engine.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

TEST(TrackChoices, FindTheTrackByLanguageThenByName) {
  const QString names = u"Kommentar"_s;
  const std::tuple<EngineTrack, QList<EngineTrack>, std::optional<std::int32_t>> cases[] = {
      {{9, {}, u"ger"_s}, {{1, {}, u"eng"_s}, {2, {}, u"deu"_s}}, 2},
      {{9, {}, u"de-AT"_s}, {{1, {}, u"DE"_s}}, 1},
      {{9, {}, u"fre"_s}, {{1, {}, u"fra"_s}, {2, {}, u"fr"_s}}, 1},
      {{9, {}, u"qaa"_s}, {{1, {}, u"qab"_s}, {2, {}, u"qaa"_s}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"de"_s}, {2, {}, u"de"_s, names}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"eng"_s, names}, {2, {}, u"und"_s, names}}, 2},
      {{9, {}, u"deu"_s, names}, {{1, {}, u"eng"_s, names}}, {}},
      {{9, {}, {}, names}, {{1}, {2, {}, u"eng"_s, u" Kommentar "_s}}, 2},
      {{9, u"Track 2"_s}, {{1, u"Track 1"_s}, {2, u"Track 2"_s}}, 2},
      {{9, {}, u"??"_s}, {{1, {}, u"und"_s}, {2}, {3, {}, u"\u00e4\u00e4\u00e4"_s}}, {}},
  };
  for (const auto& [chosen, tracks, found] : cases)
    EXPECT_EQ(trackOf({*choiceOf(9, {chosen})}, tracks), found)
        << (chosen.language + u' ' + chosen.title).toStdString();
}

}  // namespace
}  // namespace vantor::test
