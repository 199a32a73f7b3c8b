#pragma once

#include <QByteArray>
#include <QList>
#include <stop_token>

#include "library/media_item.h"

namespace vantor {

/// Rows with an id that an answer may have: more than fit into one of the largest size once they
/// say anything beside their id.
inline constexpr int maximumEpisodeRows = 200'000;

/// Reads a provider's answer to the episodes request of `show`: seasons rising, episodes rising
/// within each; rows without an id, or with one met before, are skipped. Fails with `JSONError`
/// when it is not JSON, with an `AppError` when it is not seasons of episodes or has too many rows,
/// with `Cancelled` soon after `stop` is requested. Takes processor time: worker threads only.
QList<MediaItem> parseEpisodes(QByteArray answer, const MediaItem& show,
                               const std::stop_token& stop = {});

}  // namespace vantor
