#pragma once

#include <QObject>
#include <QSet>

#include "core/begun_list.h"
#include "core/session.h"
#include "library/media_item.h"
#include "platform/preferences.h"

namespace vantor {

/// What the user made of the account's libraries, "My list", how far entries were watched and which
/// of them are to be gone on with: kept per account in the preferences, and handed on when the same
/// user signs in anew. Main thread only.
class WatchRecord final : public QObject {
  Q_OBJECT

 public:
  struct Listener {
    std::function<void()> favoritesDiffer;
    std::function<void()> begunDiffer;
  };

  /// The listener is called within the change, before anyone is told of it.
  WatchRecord(Preferences& preferences, Announcements& announcements, const Session& session,
              Listener listener);

  const QSet<QString>& favorites() const { return favorites_; }  // entry ids
  /// Movies, and shows with episodes, that were begun and not finished: entry ids, newest first.
  const QStringList& begun() const { return begun_.entryIDs(); }
  /// Where the entry is to be gone on with, in seconds.
  std::optional<double> resumePosition(const QString& id) const;

  /// Puts the entry into "My list", or takes it out.
  void toggle(const QString& id);
  /// The entry or episode is played from now on; what is reported of it may make it a begun one.
  void watch(const MediaItem& item);
  void storeProgress(const QString& id, double seconds, double duration);
  /// Takes an entry out of those begun until it is played again; its positions stay.
  void removeBegun(const QString& entryID);
  /// Reads the account's record.
  void read();
  /// Goes on with the record of the user's last account, and forgets other accounts' files. The id
  /// of that account if it is another one.
  std::optional<QString> begin();
  void forget();

 Q_SIGNALS:
  void favoritesChanged();
  void begunChanged();

 private:
  void setFavorites(QSet<QString> favorites);
  void setBegun(BegunList begun);
  void readBegun(const QString& account);
  void storeBegun(BegunList begun);

  Preferences& preferences_;
  Announcements& announcements_;
  const Session& session_;
  const Listener listener_;
  Announcement favoritesDiffer_;
  Announcement begunDiffer_;
  QSet<QString> favorites_;
  BegunList begun_;
  BegunList::Watched watching_;  // empty: nothing that could become a begun entry
  NumberLists progress_;         // position and length in seconds, by entry id
};

}  // namespace vantor
