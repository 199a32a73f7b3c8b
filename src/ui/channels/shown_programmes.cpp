#include "ui/channels/shown_programmes.h"

#include <algorithm>

#include "core/browsing.h"
#include "core/programme_guide.h"
#include "ui/channels/guide_list_model.h"
#include "ui/channels/upcoming_entries.h"
#include "ui/entries/item_list_model.h"

namespace vantor {

ShownProgrammes::ShownProgrammes(ProgrammeGuide& guide, Clock& clock, const Browsing& browsing,
                                 const ItemListModel& items, GuideListModel& rows)
    : guide_(guide), clock_(clock), browsing_(browsing), items_(items), rows_(rows) {
  // A fetch that ends makes room for one that was turned away.
  for (const auto signal :
       {&ProgrammeGuide::guideCacheChanged, &ProgrammeGuide::guideFailuresChanged})
    connect(&guide, signal, this, [this] { fetch(false); });
  connect(&items, &ItemListModel::modelReset, this, [this] { fetch(false); });
  waitForNextMinute();
}

ShownProgrammes::~ShownProgrammes() = default;

void ShownProgrammes::show(int first, int last) {
  first_ = first;
  last_ = last;
  fetch(false);
}

void ShownProgrammes::fetch(bool onlyRunningOut) {
  if (browsing_.kind() != LibraryKind::live) return;
  const auto now = std::chrono::floor<ProviderTime::duration>(clock_.now());
  const int last = std::min(last_, items_.rowCount() - 1);
  for (int row = std::max(first_, 0); row <= last; ++row) {
    const MediaItem channel = items_.entry(row);
    if (onlyRunningOut) {
      const GuideEntries upcoming = upcomingEntries(guide_, channel.id, clock_.now());
      // What is known begins too late where the clock has been set back.
      if (upcoming.size() >= 2 && upcoming.first().start <= now) continue;
    }
    guide_.prefetchGuide(channel);
  }
}

void ShownProgrammes::waitForNextMinute() {
  // Programmes begin and end on whole minutes.
  const auto now = clock_.now();
  const auto next = std::chrono::floor<std::chrono::minutes>(now) + std::chrono::minutes(1);
  nextMinute_ = clock_.callAfter(std::chrono::ceil<std::chrono::milliseconds>(next - now), [this] {
    rows_.timePassed();
    Q_EMIT minutePassed();
    fetch(true);
    waitForNextMinute();
  });
}

}  // namespace vantor
