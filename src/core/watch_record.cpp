#include "core/watch_record.h"

#include "storage/catalog_disk_store.h"

namespace vantor {
namespace {

constexpr double finishMargin = 20;       // seconds
constexpr qsizetype progressBound = 200;  // entries

QString favoritesKey(const QString& account) {
  return QStringLiteral("favorites-") + account;
}

QString progressKey(const QString& account) {
  return QStringLiteral("progress-") + account;
}

}  // namespace

WatchRecord::WatchRecord(Preferences& preferences, Announcements& announcements,
                         const Session& session, std::function<void()> changed)
    : preferences_(preferences),
      announcements_(announcements),
      session_(session),
      changed_(std::move(changed)),
      favoritesDiffer_(announcements, *this, &WatchRecord::favoritesChanged) {}

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
  changed_();
}

void WatchRecord::read() {
  const QString account = session_.account()->idText();
  const QStringList favorites = preferences_.textList(favoritesKey(account));
  setFavorites(QSet<QString>(favorites.begin(), favorites.end()));
  progress_ = preferences_.numberLists(progressKey(account));
}

std::optional<QString> WatchRecord::begin() {
  const QString account = session_.account()->idText();
  CatalogDiskStore& disk = *session_.disk();
  // Known by a digest, since preferences are no place for a user name.
  const QString userKey =
      QStringLiteral("account-") + disk.keyedDigest(session_.account()->username);
  const QString last = preferences_.text(userKey).value_or(account);
  preferences_.setText(userKey, account);
  disk.keepOnly(session_.account()->id);
  if (last == account) return {};
  preferences_.setTextList(favoritesKey(account), preferences_.textList(favoritesKey(last)));
  preferences_.setNumberLists(progressKey(account), preferences_.numberLists(progressKey(last)));
  preferences_.remove(favoritesKey(last));
  preferences_.remove(progressKey(last));
  read();
  return last;
}

void WatchRecord::forget() {
  setFavorites({});
  progress_.clear();
}

void WatchRecord::toggle(const QString& id) {
  QSet<QString> favorites = favorites_;
  if (!favorites.remove(id)) favorites.insert(id);
  setFavorites(std::move(favorites));
  if (session_.account())
    preferences_.setTextList(favoritesKey(session_.account()->idText()),
                             QStringList(favorites_.begin(), favorites_.end()));
}

void WatchRecord::storeProgress(const QString& id, double seconds, double duration) {
  if (!session_.account()) return;
  const double position = duration - finishMargin > seconds ? seconds : 0;
  progress_.insert(id, {position, duration});
  if (progress_.size() > progressBound) progress_ = {{id, {position, duration}}};
  preferences_.setNumberLists(progressKey(session_.account()->idText()), progress_);
}

}  // namespace vantor
