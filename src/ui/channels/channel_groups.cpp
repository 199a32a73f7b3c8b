#include "ui/channels/channel_groups.h"

#include <algorithm>

#include "ui/entries/shown_text.h"

namespace vantor {

QStringList ChannelGroups::names() const {
  QStringList names = {tr("All channels")};
  for (const MediaCategory& category : catalog_.categories()) names.append(oneLine(category.name));
  return names;
}

int ChannelGroups::place(const QString& category) const {
  if (category.isEmpty()) return 0;
  const auto& all = catalog_.categories();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const MediaCategory& each) { return each.id == category; });
  return found == all.end() ? -1 : 1 + static_cast<int>(found - all.begin());
}

std::optional<QString> ChannelGroups::category(int place) const {
  if (place == 0) return QString();
  const auto& all = catalog_.categories();
  const auto index = static_cast<std::size_t>(place) - 1;
  if (place < 0 || index >= all.size()) return std::nullopt;
  return all[index].id;
}

}  // namespace vantor
