#pragma once

#include <QByteArray>
#include <QList>

#include "provider/media_item.h"

namespace vantor {

/// Reads a provider's answer to the episodes request of `show`: seasons rising, episodes rising
/// within each; rows without an id, or with one met before, are skipped. Fails with `JSONError`
/// when it is not JSON and with an `AppError` when it is not seasons of episodes. Takes processor
/// time: worker threads only.
QList<MediaItem> parseEpisodes(QByteArray answer, const MediaItem& show);

}  // namespace vantor
