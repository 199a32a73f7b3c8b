#pragma once

#include <QByteArray>
#include <stop_token>

#include "library/guide_entry.h"

namespace vantor {

/// Programmes that are kept of a channel, and characters of their texts: far more than the few that
/// are asked for, and bounds for those who send what they like.
inline constexpr qsizetype maximumProgrammes = 2'000;
inline constexpr qsizetype maximumProgrammeText = 250'000;

/// Reads a provider's answer to the short guide request of the channel with the entry id
/// `channelID`, in the provider's order. JSON of another shape gives no entries, rows without
/// usable times are skipped, what is beyond the bounds is left out; fails with `JSONError` when it
/// is not JSON, with `Cancelled` soon after `stop` is requested. Takes processor time: worker
/// threads only.
GuideEntries parseGuide(QByteArray answer, const QString& channelID,
                        const std::stop_token& stop = {});

}  // namespace vantor
