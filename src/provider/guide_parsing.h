#pragma once

#include <QByteArray>
#include <stop_token>

#include "library/guide_entry.h"

namespace vantor {

/// Reads a provider's answer to the short guide request of the channel with the entry id
/// `channelID`, in the provider's order. JSON of another shape gives no entries, rows without
/// usable times are skipped; fails with `JSONError` when it is not JSON, with `Cancelled` soon
/// after `stop` is requested. Takes processor time: worker threads only.
GuideEntries parseGuide(QByteArray answer, const QString& channelID,
                        const std::stop_token& stop = {});

}  // namespace vantor
