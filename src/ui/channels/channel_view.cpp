#include "ui/channels/channel_view.h"

#include <algorithm>

#include "core/app_model.h"
#include "ui/channels/programme_times.h"
#include "ui/channels/upcoming_entries.h"
#include "ui/entries/item_list_model.h"
#include "ui/entries/one_line.h"

namespace vantor {

using namespace Qt::StringLiterals;

ChannelView::ChannelView(AppModel& model, Clock& clock, ItemListModel& items, QObject* parent)
    : QObject(parent),
      model_(model),
      clock_(clock),
      items_(items),
      rows_(model.guide(), clock, items) {
  const ProgrammeGuide& guide = model.guide();
  connect(&guide, &ProgrammeGuide::guideChanged, this, &ChannelView::programmeChanged);
  for (const auto signal : {&ShowDetails::detailsLoadingChanged, &ShowDetails::detailsErrorChanged})
    connect(&model.details(), signal, this, &ChannelView::programmeChanged);
  connect(&model.browsing(), &Browsing::selectedChanged, this, &ChannelView::programmeChanged);
  connect(&model.record(), &WatchRecord::favoritesChanged, this, &ChannelView::programmeChanged);
  connect(&model.libraries(), &Libraries::catalogsChanged, this, &ChannelView::updateGroups);
  connect(&model.browsing(), &Browsing::categoryChanged, this, &ChannelView::groupChanged);
  // A fetch that ends makes room for one that was turned away.
  for (const auto signal :
       {&ProgrammeGuide::guideCacheChanged, &ProgrammeGuide::guideFailuresChanged})
    connect(&guide, signal, this, [this] { fetch(false); });
  connect(&items, &ItemListModel::modelReset, this, [this] { fetch(false); });
  updateGroups();
  waitForNextMinute();
}

ChannelView::~ChannelView() = default;

void ChannelView::updateGroups() {
  QStringList groups = {u"All channels"_s};
  const Catalog catalog = model_.libraries().catalog(LibraryKind::live);
  for (const MediaCategory& category : catalog.categories()) groups.append(oneLine(category.name));
  if (groups != groups_) {
    groups_ = groups;
    Q_EMIT groupsChanged();
  }
  Q_EMIT groupChanged();
}

int ChannelView::group() const {
  if (model_.browsing().category().isEmpty()) return 0;
  const Catalog catalog = model_.libraries().catalog(LibraryKind::live);
  const auto& categories = catalog.categories();
  const auto found =
      std::find_if(categories.begin(), categories.end(), [this](const MediaCategory& category) {
        return category.id == model_.browsing().category();
      });
  return found == categories.end() ? -1 : 1 + static_cast<int>(found - categories.begin());
}

QString ChannelView::groupName() const {
  return groups_.value(group());
}

void ChannelView::chooseGroup(int group) {
  if (group == 0) return model_.setCategory(QString());
  const Catalog catalog = model_.libraries().catalog(LibraryKind::live);
  const auto& categories = catalog.categories();
  const auto index = static_cast<std::size_t>(group) - 1;
  if (group > 0 && index < categories.size()) model_.setCategory(categories[index].id);
}

QString ChannelView::channelName() const {
  return channelSelected() ? model_.browsing().selected()->name : u"Live TV"_s;
}

std::optional<GuideEntry> ChannelView::programme() const {
  const GuideEntries upcoming = upcomingEntries(model_.guide().guide(), clock_.now());
  if (upcoming.isEmpty()) return std::nullopt;
  return upcoming.first();
}

QString ChannelView::programmeTitle() const {
  const auto current = programme();
  return current ? current->title : QString();
}

QString ChannelView::programmeTimes() const {
  const auto current = programme();
  return current ? vantor::programmeTimes(*current) : QString();
}

QString ChannelView::programmeDescription() const {
  const auto current = programme();
  return current ? current->description : QString();
}

QString ChannelView::programmeHint() const {
  if (programme()) return {};
  return model_.details().detailsLoading()
             ? u"Loading programme information…"_s
             : u"Select a channel to see its programme information."_s;
}

bool ChannelView::channelSelected() const {
  return model_.browsing().selected().has_value();
}

QString ChannelView::bookmarkSymbol() const {
  return channelSelected() && model_.record().favorites().contains(model_.browsing().selected()->id)
             ? u"bookmark.fill"_s
             : u"bookmark"_s;
}

QString ChannelView::error() const {
  return model_.details().detailsError().value_or(QString());
}

void ChannelView::watch() {
  if (channelSelected()) model_.play(*model_.browsing().selected());
}

void ChannelView::toggleBookmark() {
  if (channelSelected()) model_.favorite(*model_.browsing().selected());
}

void ChannelView::showRows(int first, int last) {
  firstRow_ = first;
  lastRow_ = last;
  fetch(false);
}

void ChannelView::fetch(bool onlyRunningOut) {
  if (model_.browsing().kind() != LibraryKind::live) return;
  const int last = std::min(lastRow_, items_.rowCount() - 1);
  for (int row = std::max(firstRow_, 0); row <= last; ++row) {
    const MediaItem channel = items_.entry(row);
    if (onlyRunningOut) {
      const GuideEntries known = model_.guide().guideOf(channel.id).value_or(GuideEntries());
      if (upcomingEntries(known, clock_.now()).size() >= 2) continue;
    }
    model_.guide().prefetchGuide(channel);
  }
}

void ChannelView::waitForNextMinute() {
  // Programmes begin and end on whole minutes.
  const auto now = clock_.now();
  const auto next = std::chrono::floor<std::chrono::minutes>(now) + std::chrono::minutes(1);
  nextMinute_ = clock_.callAfter(std::chrono::ceil<std::chrono::milliseconds>(next - now),
                                 [this] { minutePassed(); });
}

void ChannelView::minutePassed() {
  rows_.timePassed();
  Q_EMIT programmeChanged();
  fetch(true);
  waitForNextMinute();
}

}  // namespace vantor
