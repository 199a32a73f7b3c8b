#pragma once

#include <QList>
#include <QString>
#include <chrono>

namespace vantor {

/// One programme of a channel's short guide.
struct GuideEntry {
  QString id;  // the channel's entry id, ":", the position in the provider's list
  QString title;
  QString description;
  std::chrono::system_clock::time_point start;
  std::chrono::system_clock::time_point end;  // later than start

  bool operator==(const GuideEntry&) const = default;
};

/// A channel's programmes in the provider's order; copies share them.
using GuideEntries = QList<GuideEntry>;

}  // namespace vantor
