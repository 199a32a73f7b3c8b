#include "core/track_memory.h"

#include <algorithm>
#include <utility>

#include "core/session.h"
#include "platform/preferences.h"
#include "playback/playback.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString soundTopic = u"sound-"_s;
const QString subtitlesTopic = u"subtitles-"_s;
const QString offMark = u"-"_s;
constexpr QChar separator = u'\t';
constexpr qsizetype choiceBound = 300;  // shows, and the choice in general

/// Each row is the language or the mark, the name and the show's id, which is empty for the choice
/// in general; the one chosen last stands first.
QString rowOf(const TrackChoice& choice, const QString& showID) {
  return (choice.off ? offMark : choice.language) + separator + choice.name + separator + showID;
}

bool concerns(const QString& row, const QString& showID) {
  return row.count(separator) >= 2 && row.section(separator, 2) == showID;
}

TrackChoice choiceIn(const QString& row) {
  const QString language = row.section(separator, 0, 0);
  if (language == offMark) return {.off = true};
  return {.language = language, .name = row.section(separator, 1, 1)};
}

void put(QStringList& rows, const TrackChoice& choice, const QString& showID) {
  rows.removeIf([&showID](const QString& row) { return concerns(row, showID); });
  rows.prepend(rowOf(choice, showID));
}

}  // namespace

TrackMemory::TrackMemory(Preferences& preferences, const Session& session, Playback& playback,
                         std::function<QString()> showPlaying)
    : preferences_(preferences),
      session_(session),
      playback_(playback),
      showPlaying_(std::move(showPlaying)) {
  connect(&playback, &Playback::audioTrackChosen, this,
          [this] { store(soundTopic, playback_.tracks().audio); });
  connect(&playback, &Playback::subtitleTrackChosen, this,
          [this] { store(subtitlesTopic, playback_.tracks().subtitles); });
}

TrackChoices TrackMemory::choicesFor(const QString& showID) const {
  if (!session_.account()) return {};
  return {.audio = choices(soundTopic, showID), .subtitles = choices(subtitlesTopic, showID)};
}

QList<TrackChoice> TrackMemory::choices(const QString& topic, const QString& showID) const {
  QList<TrackChoice> found;
  const QStringList rows = preferences_.textList(key(topic)).mid(0, choiceBound);
  const auto append = [&](const QString& id) {
    const auto row =
        std::ranges::find_if(rows, [&id](const QString& each) { return concerns(each, id); });
    if (row != rows.end()) found.append(choiceIn(*row));
  };
  if (!showID.isEmpty()) append(showID);
  append({});
  return found;
}

void TrackMemory::store(const QString& topic, const QList<TrackChoice>& chosen) {
  if (!session_.account() || chosen.isEmpty()) return;
  const TrackChoice& choice = chosen.constFirst();
  QStringList rows = preferences_.textList(key(topic)).mid(0, choiceBound);
  const QString showID = showPlaying_();
  if (!showID.isEmpty()) put(rows, choice, showID);
  if (!choice.unnamed) put(rows, choice, {});
  preferences_.setTextList(key(topic), rows.mid(0, choiceBound));
}

QString TrackMemory::key(const QString& topic) const {
  return topic + session_.account()->idText();
}

void TrackMemory::takeOver(Preferences& preferences, const QString& from, const QString& to) {
  for (const QString& topic : {soundTopic, subtitlesTopic})
    preferences.rename(topic + from, topic + to);
}

}  // namespace vantor
