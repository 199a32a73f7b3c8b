#include "playback/track_choice.h"

#include <QLocale>
#include <algorithm>

#include "playback/media_engine.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestName = 100;
constexpr qsizetype longestCode = 3;

QString nameOf(const EngineTrack& track) {
  const QString name = (track.title.isEmpty() ? track.name : track.title).simplified();
  return name.contains(u"://"_s) ? QString() : name.left(longestName);
}

/// How well a track is what was chosen; 0: it is not.
int likeness(const TrackChoice& choice, const EngineTrack& track) {
  const QString language = languageKey(track.language);
  const bool sameName = !choice.name.isEmpty() && nameOf(track) == choice.name;
  if (!choice.language.isEmpty() && !language.isEmpty())
    return choice.language != language ? 0 : sameName ? 3 : 2;
  return sameName ? 1 : 0;
}

}  // namespace

QString languageKey(const QString& code) {
  const QString primary = code.section(u'-', 0, 0).section(u'_', 0, 0).trimmed().toLower();
  const QLocale::Language language = QLocale::codeToLanguage(primary);
  if (language > QLocale::C) return QLocale::languageToCode(language);
  const bool wellFormed =
      std::ranges::all_of(primary, [](QChar letter) { return letter >= u'a' && letter <= u'z'; });
  return wellFormed && primary.size() == longestCode && primary != u"und"_s ? primary : QString();
}

std::optional<TrackChoice> choiceOf(std::int32_t id, const QList<EngineTrack>& tracks) {
  if (tracks.isEmpty()) return {};
  if (id < 0) return TrackChoice{.off = true};
  const auto track = std::ranges::find(tracks, id, &EngineTrack::id);
  if (track == tracks.end()) return {};
  const QString language = languageKey(track->language);
  return TrackChoice{.language = language,
                     .name = nameOf(*track),
                     .unnamed = language.isEmpty() && track->title.isEmpty()};
}

std::optional<std::int32_t> trackOf(const QList<TrackChoice>& choices,
                                    const QList<EngineTrack>& tracks) {
  if (tracks.isEmpty()) return {};
  for (const TrackChoice& choice : choices) {
    if (choice.off) return -1;
    const auto like = [&choice](const EngineTrack& track) { return likeness(choice, track); };
    const auto best = std::ranges::max_element(tracks, {}, like);
    if (like(*best) > 0) return best->id;
  }
  return {};
}

}  // namespace vantor
