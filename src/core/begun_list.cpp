#include "core/begun_list.h"

#include <QSet>
#include <algorithm>

namespace vantor {

BegunList::BegunList(QList<Watched> newestFirst) : watched_(std::move(newestFirst)) {
  listEntries();
}

BegunList BegunList::read(const QStringList& stored) {
  QList<Watched> watched;
  QSet<QString> known;
  for (qsizetype i = 0; i + 1 < stored.size(); i += 2) {
    const qsizetype before = known.size();
    known.insert(stored[i]);
    if (known.size() > before) watched.append({stored[i], stored[i + 1]});
  }
  return BegunList(std::move(watched));
}

QStringList BegunList::stored() const {
  QStringList texts;
  for (const Watched& each : watched_) texts << each.id << each.entryID;
  return texts;
}

bool BegunList::contains(const QString& id) const {
  return std::ranges::find(watched_, id, &Watched::id) != watched_.end();
}

void BegunList::putFirst(const Watched& watched) {
  if (!watched_.isEmpty() && watched_.constFirst() == watched) return;
  watched_.removeIf([&](const Watched& each) { return each.id == watched.id; });
  watched_.prepend(watched);
  listEntries();
}

void BegunList::remove(const QString& id) {
  keepOnly([&](const Watched& each) { return each.id != id; });
}

void BegunList::listEntries() {
  entryIDs_.clear();
  QSet<QString> listed;
  for (const Watched& each : watched_) {
    if (listed.contains(each.entryID)) continue;
    listed.insert(each.entryID);
    entryIDs_.append(each.entryID);
  }
}

}  // namespace vantor
