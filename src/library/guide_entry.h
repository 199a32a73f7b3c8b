#pragma once

#include <QList>
#include <QString>

#include "library/provider_time.h"

namespace vantor {

/// One programme of a channel's short guide.
struct GuideEntry {
  QString id;  // the channel's entry id, ":", the position in the provider's list
  QString title;
  QString description;
  ProviderTime start;
  ProviderTime end;  // later than start

  bool operator==(const GuideEntry&) const = default;
};

/// A channel's programmes in the provider's order; copies share them.
using GuideEntries = QList<GuideEntry>;

}  // namespace vantor
