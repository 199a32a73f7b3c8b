#include "ui/channels/upcoming_entries.h"

#include <QCoreApplication>

#include "core/programme_guide.h"

namespace vantor {

GuideEntries upcomingEntries(const GuideEntries& entries, WallTime now) {
  GuideEntries upcoming;
  const auto time = std::chrono::floor<ProviderTime::duration>(now);
  for (const GuideEntry& entry : entries) {
    if (entry.end > time) upcoming.append(entry);
    if (upcoming.size() == 2) break;
  }
  return upcoming;
}

GuideEntries upcomingEntries(const ProgrammeGuide& guide, const QString& channelID, WallTime now) {
  return upcomingEntries(guide.guideOf(channelID).value_or(GuideEntries()), now);
}

QString absentProgramme(const ProgrammeGuide& guide, const QString& channelID) {
  if (guide.guideFailed(channelID))
    return QCoreApplication::translate("Guide", "Guide unavailable");
  return guide.guideOf(channelID) ? QCoreApplication::translate("Guide", "No programme information")
                                  : QCoreApplication::translate("Guide", "Loading guide…");
}

}  // namespace vantor
