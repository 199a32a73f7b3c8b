#include "core/viewing_habits.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/session.h"
#include "platform/preferences.h"
#include "playback/playback.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString volumeKey = u"volume"_s;
const QString mutedMark = u"muted"_s;
constexpr qsizetype shapeBound = 300;  // entries
// As they are stored, in the order of `PictureShape`.
const std::array storedShapes{u"fit"_s, u"fill"_s, u"stretch"_s, u"4:3"_s, u"16:9"_s};

QString shapesKey(const QString& account) {
  return u"shapes-"_s + account;
}

QString channelKey(const QString& account) {
  return u"channel-"_s + account;
}

/// Each row is a shape, a space and the entry's id; the one used last stands first. Rows of shapes
/// that are not known here stay.
qsizetype rowOf(const QStringList& rows, const QString& id) {
  const auto found = std::ranges::find_if(rows, [&id](const QString& row) {
    const qsizetype space = row.indexOf(u' ');
    return space >= 0 && QStringView(row).mid(space + 1) == id;
  });
  return found == rows.end() ? -1 : found - rows.begin();
}

PictureShape shapeIn(const QString& row) {
  const auto* found = std::ranges::find(storedShapes, row.section(u' ', 0, 0));
  if (found == storedShapes.end()) return PictureShape::fit;
  return static_cast<PictureShape>(found - storedShapes.begin());
}

}  // namespace

ViewingHabits::ViewingHabits(Preferences& preferences, const Session& session, Playback& playback)
    : preferences_(preferences), session_(session), playback_(playback) {
  restoreVolume();
  for (const auto signal : {&TransportState::volumeChanged, &TransportState::mutedFromChanged})
    connect(playback.transport(), signal, this, &ViewingHabits::storeVolume);
  connect(&playback, &Playback::pictureShapeChosen, this, &ViewingHabits::storeShape);
}

void ViewingHabits::restoreVolume() {
  const QStringList stored = preferences_.textList(volumeKey);
  bool isNumber = false;
  const double volume = stored.value(0).toDouble(&isNumber);
  if (!isNumber || !std::isfinite(volume)) return;
  TransportState& transport = *playback_.transport();
  const double audible = std::clamp(volume, 0.0, 100.0);
  const bool muted = stored.value(1) == mutedMark;
  transport.setVolume(muted ? 0 : audible);
  transport.setMutedFrom(muted ? audible : 0);
}

void ViewingHabits::storeVolume() {
  const TransportState& transport = *playback_.transport();
  if (transport.mutedFrom() > 0)
    preferences_.setTextList(volumeKey, {QString::number(transport.mutedFrom()), mutedMark});
  else
    preferences_.setTextList(volumeKey, {QString::number(transport.volume())});
}

PictureShape ViewingHabits::shapeFor(const QString& id) {
  if (!session_.account() || id.isEmpty()) return PictureShape::fit;
  const QString key = shapesKey(session_.account()->idText());
  QStringList rows = preferences_.textList(key).mid(0, shapeBound);
  const qsizetype row = rowOf(rows, id);
  if (row < 0) return PictureShape::fit;
  rows.move(row, 0);
  preferences_.setTextList(key, rows);
  return shapeIn(rows.constFirst());
}

void ViewingHabits::storeShape() {
  const QString id = playback_.itemID().value_or(QString());
  if (!session_.account() || id.isEmpty() || playback_.isLocal()) return;
  const QString key = shapesKey(session_.account()->idText());
  QStringList rows = preferences_.textList(key).mid(0, shapeBound);
  if (const qsizetype row = rowOf(rows, id); row >= 0) rows.removeAt(row);
  const PictureShape shape = playback_.pictureShape();
  if (shape != PictureShape::fit)
    rows.prepend(storedShapes.at(static_cast<std::size_t>(shape)) + u' ' + id);
  preferences_.setTextList(key, rows.mid(0, shapeBound));
}

QString ViewingHabits::lastChannel() const {
  if (!session_.account()) return {};
  return preferences_.text(channelKey(session_.account()->idText())).value_or(QString());
}

void ViewingHabits::setLastChannel(const QString& id) {
  if (session_.account()) preferences_.setText(channelKey(session_.account()->idText()), id);
}

void ViewingHabits::takeOver(Preferences& preferences, const QString& from, const QString& to) {
  for (const auto& key : {shapesKey, channelKey}) preferences.rename(key(from), key(to));
}

}  // namespace vantor
