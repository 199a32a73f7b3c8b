#include "core/watch_record.h"

#include <algorithm>

#include "playback/playback.h"
#include "storage/catalog_disk_store.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype progressBound = 200;  // entries

QString favoritesKey(const QString& account) {
  return u"favorites-"_s + account;
}

QString progressKey(const QString& account) {
  return u"progress-"_s + account;
}

QString watchedKey(const QString& account) {
  return u"watched-"_s + account;
}

bool isFinished(double seconds, double duration) {
  return !(duration - Playback::finishMargin > seconds);
}

/// Movies whose progress was recorded before the order was; of episodes the shows are not known.
BegunList begunWithoutOrder(const NumberLists& progress) {
  const QString prefix = entryID(LibraryKind::movies, {});
  QList<BegunList::Watched> watched;
  for (auto it = progress.cbegin(); it != progress.cend(); ++it)
    if (it.key().startsWith(prefix) && it.value().value(0) > Playback::shortestResume)
      watched.append({it.key(), it.key()});
  std::ranges::sort(watched, {}, &BegunList::Watched::id);
  return BegunList(std::move(watched));
}

}  // namespace

WatchRecord::WatchRecord(Preferences& preferences, Announcements& announcements,
                         const Session& session, Listener listener)
    : preferences_(preferences),
      announcements_(announcements),
      session_(session),
      listener_(std::move(listener)),
      favoritesDiffer_(announcements, *this, &WatchRecord::favoritesChanged),
      begunDiffer_(announcements, *this, &WatchRecord::begunChanged) {}

std::optional<double> WatchRecord::resumePosition(const QString& id) const {
  const QList<double> record = progress_.value(id);
  if (record.isEmpty()) return std::nullopt;
  return record.first();
}

void WatchRecord::setFavorites(QSet<QString> favorites) {
  if (favorites_ == favorites) return;
  const Announcements::Scope scope(announcements_);
  favorites_ = std::move(favorites);
  favoritesDiffer_.note();
  listener_.favoritesDiffer();
}

void WatchRecord::setBegun(BegunList begun) {
  if (begun_.watched() == begun.watched()) return;
  const Announcements::Scope scope(announcements_);
  begun_ = std::move(begun);
  begunDiffer_.note();
  listener_.begunDiffer();
}

void WatchRecord::read() {
  const Announcements::Scope scope(announcements_);
  const QString account = session_.account()->idText();
  const QStringList favorites = preferences_.textList(favoritesKey(account));
  progress_ = preferences_.numberLists(progressKey(account));
  setFavorites(QSet<QString>(favorites.begin(), favorites.end()));
  readBegun(account);
}

void WatchRecord::readBegun(const QString& account) {
  const QString key = watchedKey(account);
  if (!preferences_.contains(key)) return setBegun(begunWithoutOrder(progress_));
  BegunList begun = BegunList::read(preferences_.textList(key));
  begun.keepOnly([&](const BegunList::Watched& each) { return progress_.contains(each.id); });
  setBegun(std::move(begun));
}

std::optional<QString> WatchRecord::begin() {
  const QString account = session_.account()->idText();
  CatalogDiskStore& disk = *session_.disk();
  // Known by a digest, since preferences are no place for a user name.
  const QString userKey = u"account-"_s + disk.keyedDigest(session_.account()->username);
  const QString last = preferences_.text(userKey).value_or(account);
  preferences_.setText(userKey, account);
  disk.keepOnly(session_.account()->id);
  if (last == account) return {};
  for (const auto& key : {favoritesKey, progressKey, watchedKey})
    preferences_.rename(key(last), key(account));
  read();
  return last;
}

void WatchRecord::forget() {
  const Announcements::Scope scope(announcements_);
  progress_.clear();
  watching_ = {};
  setFavorites({});
  setBegun({});
}

void WatchRecord::toggle(const QString& id) {
  QSet<QString> favorites = favorites_;
  if (!favorites.remove(id)) favorites.insert(id);
  setFavorites(std::move(favorites));
  if (session_.account())
    preferences_.setTextList(favoritesKey(session_.account()->idText()),
                             QStringList(favorites_.begin(), favorites_.end()));
}

void WatchRecord::watch(const MediaItem& item) {
  watching_ = {};
  if (item.kind != LibraryKind::live)
    watching_ = {item.id, item.showID.isEmpty() ? item.id : item.showID};
}

void WatchRecord::storeProgress(const QString& id, double seconds, double duration) {
  if (!session_.account()) return;
  const bool finished = isFinished(seconds, duration);
  const QList<double> progress = {finished ? 0 : seconds, duration};
  progress_.insert(id, progress);
  BegunList begun = begun_;
  if (progress_.size() > progressBound) {
    progress_ = {{id, progress}};
    begun.keepOnly([&](const BegunList::Watched& each) { return each.id == id; });
  }
  preferences_.setNumberLists(progressKey(session_.account()->idText()), progress_);
  if (finished)
    begun.remove(id);
  else if (id == watching_.id && (seconds > Playback::shortestResume || begun.contains(id)))
    begun.putFirst(watching_);
  storeBegun(std::move(begun));
}

void WatchRecord::removeBegun(const QString& entryID) {
  if (watching_.entryID == entryID) watching_ = {};
  BegunList begun = begun_;
  begun.keepOnly([&](const BegunList::Watched& each) { return each.entryID != entryID; });
  storeBegun(std::move(begun));
}

void WatchRecord::storeBegun(BegunList begun) {
  if (!session_.account() || begun_.watched() == begun.watched()) return;
  preferences_.setTextList(watchedKey(session_.account()->idText()), begun.stored());
  setBegun(std::move(begun));
}

}  // namespace vantor
