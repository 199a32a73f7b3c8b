#include "provider/stream_extension.h"

namespace vantor {

using namespace Qt::StringLiterals;

QString streamExtension(const MediaItem& item, const std::optional<ProviderDetails>& subscription) {
  const bool transportStreamOnly = subscription &&
                                   subscription->formats.contains(QLatin1String("ts")) &&
                                   !subscription->formats.contains(QLatin1String(liveExtension));
  return item.kind == LibraryKind::live && transportStreamOnly ? u"ts"_s : item.fileExtension;
}

}  // namespace vantor
