#pragma once

#include <QList>
#include <QStringList>

namespace vantor {

/// What was begun and not finished, the newest first: movies and episodes, each with the entry of
/// a library that it is found under.
class BegunList {
 public:
  struct Watched {
    QString id;
    QString entryID;  // the movie itself, or the episode's show
    bool operator==(const Watched&) const = default;
  };

  BegunList() = default;
  explicit BegunList(QList<Watched> newestFirst);
  /// Reads what `stored` made; whatever has no entry to it is left out.
  static BegunList read(const QStringList& stored);
  QStringList stored() const;

  const QList<Watched>& watched() const { return watched_; }
  /// The entries in the order of what was watched of them last, each once.
  const QStringList& entryIDs() const { return entryIDs_; }
  bool contains(const QString& id) const;

  void putFirst(const Watched& watched);
  void remove(const QString& id);
  /// Removes what `keeps` says no to.
  template <class Keeps>
  void keepOnly(Keeps keeps) {
    if (watched_.removeIf([&](const Watched& each) { return !keeps(each); }) > 0) listEntries();
  }

 private:
  void listEntries();

  QList<Watched> watched_;
  QStringList entryIDs_;
};

}  // namespace vantor
