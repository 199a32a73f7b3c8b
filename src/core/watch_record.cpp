// What the user made of a library, "My list" and how far entries were watched: per account in the
// preferences, and handed on when the same user signs in anew.
#include "core/app_model.h"
#include "playback/playback.h"
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

void AppModel::readRecord() {
  const QStringList favorites = services_.preferences.textList(favoritesKey(account_->idText()));
  setFavorites(QSet<QString>(favorites.begin(), favorites.end()));
  progress_ = services_.preferences.numberLists(progressKey(account_->idText()));
}

void AppModel::beginRecord() {
  Preferences& preferences = services_.preferences;
  const QString account = account_->idText();
  // Known by a digest, since preferences are no place for a user name.
  const QString userKey = QStringLiteral("account-") + disk_->keyedDigest(account_->username);
  const QString last = preferences.text(userKey).value_or(account);
  preferences.setText(userKey, account);
  disk_->keepOnly(account_->id);
  if (last == account) return;
  preferences.setTextList(favoritesKey(account), preferences.textList(favoritesKey(last)));
  preferences.setNumberLists(progressKey(account), preferences.numberLists(progressKey(last)));
  preferences.remove(favoritesKey(last));
  preferences.remove(progressKey(last));
  readRecord();
}

void AppModel::favorite(MediaItem item) {
  const Operation operation(announcements_);
  QSet<QString> favorites = favorites_;
  if (!favorites.remove(item.id)) favorites.insert(item.id);
  setFavorites(std::move(favorites));
  if (account_)
    services_.preferences.setTextList(favoritesKey(account_->idText()),
                                      QStringList(favorites_.begin(), favorites_.end()));
}

void AppModel::storeProgress(const QString& id, double seconds, double duration) {
  if (!account_ || playback_->isLocal()) return;
  const double position = duration - finishMargin > seconds ? seconds : 0;
  progress_.insert(id, {position, duration});
  if (progress_.size() > progressBound) progress_ = {{id, {position, duration}}};
  services_.preferences.setNumberLists(progressKey(account_->idText()), progress_);
}

}  // namespace vantor
