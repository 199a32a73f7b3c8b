#pragma once

#include <QObject>
#include <QSet>

#include "core/session.h"
#include "platform/preferences.h"

namespace vantor {

/// What the user made of the account's libraries, "My list" and how far entries were watched: kept
/// per account in the preferences, and handed on when the same user signs in anew. Main thread
/// only.
class WatchRecord final : public QObject {
  Q_OBJECT

 public:
  /// `changed` is called within a change of the favorites, before anyone is told of it.
  WatchRecord(Preferences& preferences, Announcements& announcements, const Session& session,
              std::function<void()> changed);

  const QSet<QString>& favorites() const { return favorites_; }  // entry ids
  /// Where the entry is to be gone on with, in seconds.
  std::optional<double> resumePosition(const QString& id) const;

  /// Puts the entry into "My list", or takes it out.
  void toggle(const QString& id);
  void storeProgress(const QString& id, double seconds, double duration);
  /// Reads the account's record.
  void read();
  /// Goes on with the record of the user's last account, and forgets other accounts' files. The id
  /// of that account if it is another one.
  std::optional<QString> begin();
  void forget();

 Q_SIGNALS:
  void favoritesChanged();

 private:
  void setFavorites(QSet<QString> favorites);

  Preferences& preferences_;
  Announcements& announcements_;
  const Session& session_;
  const std::function<void()> changed_;
  Announcement favoritesDiffer_;
  QSet<QString> favorites_;
  NumberLists progress_;  // position and length in seconds, by entry id
};

}  // namespace vantor
