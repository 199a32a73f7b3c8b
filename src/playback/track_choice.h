#pragma once

#include <QList>
#include <QString>
#include <cstdint>
#include <optional>

namespace vantor {

struct EngineTrack;

/// What somebody wants to hear or to read, as other sources may have it too.
struct TrackChoice {
  QString language;      // as `languageKey` writes it; empty: unknown
  QString name;          // bounded, without addresses
  bool off = false;      // no track at all; nothing else is set
  bool unnamed = false;  // the name is only a number, which means nothing in other sources
  bool operator==(const TrackChoice&) const = default;
};

/// The most wanted first.
struct TrackChoices {
  QList<TrackChoice> audio;
  QList<TrackChoice> subtitles;
  bool operator==(const TrackChoices&) const = default;
};

/// One code for all those of a language: "de" for "deu", "ger" and "de-AT". Empty for what names
/// none.
QString languageKey(const QString& code);

/// The choice that somebody makes with the track; "off" for -1, unless there is nothing to turn
/// off.
std::optional<TrackChoice> choiceOf(std::int32_t id, const QList<EngineTrack>& tracks);

/// The track that the first of the choices means which means any: by language, then by name. -1:
/// none is to be in force. Absent as well while there are no tracks.
std::optional<std::int32_t> trackOf(const QList<TrackChoice>& choices,
                                    const QList<EngineTrack>& tracks);

}  // namespace vantor
