#pragma once

#include "library/guide_entry.h"
#include "platform/clock.h"

namespace vantor {

class ProgrammeGuide;

/// The first two programmes that have not ended yet, in their stored order: what is on now, then
/// what is next.
GuideEntries upcomingEntries(const GuideEntries& entries, WallTime now);
/// Those of a channel; none while its guide is unknown.
GuideEntries upcomingEntries(const ProgrammeGuide& guide, const QString& channelID, WallTime now);

/// What is said of a channel without such a programme.
QString absentProgramme(const ProgrammeGuide& guide, const QString& channelID);

}  // namespace vantor
