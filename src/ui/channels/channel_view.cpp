#include "ui/channels/channel_view.h"

#include "core/app_model.h"
#include "ui/channels/channel_groups.h"
#include "ui/channels/programme_times.h"
#include "ui/channels/upcoming_entries.h"
#include "ui/entries/shown_text.h"

namespace vantor {

using namespace Qt::StringLiterals;

ChannelView::ChannelView(AppModel& model, Clock& clock, ItemListModel& items, QObject* parent)
    : QObject(parent),
      model_(model),
      clock_(clock),
      rows_(model.guide(), clock, items),
      shown_(model.guide(), clock, model.browsing(), items, rows_) {
  connect(&model.guide(), &ProgrammeGuide::guideChanged, this, &ChannelView::programmeChanged);
  for (const auto signal : {&ShowDetails::detailsLoadingChanged, &ShowDetails::detailsErrorChanged})
    connect(&model.details(), signal, this, &ChannelView::programmeChanged);
  connect(&model.browsing(), &Browsing::selectedChanged, this, &ChannelView::programmeChanged);
  connect(&model.record(), &WatchRecord::favoritesChanged, this, &ChannelView::programmeChanged);
  connect(&model.libraries(), &Libraries::catalogsChanged, this, &ChannelView::updateGroups);
  connect(&model.browsing(), &Browsing::categoryChanged, this, &ChannelView::groupChanged);
  connect(&shown_, &ShownProgrammes::minutePassed, this, &ChannelView::programmeChanged);
  updateGroups();
}

ChannelGroups ChannelView::channelGroups() const {
  return ChannelGroups(model_.libraries().catalog(LibraryKind::live));
}

void ChannelView::updateGroups() {
  const QStringList names = channelGroups().names();
  if (std::exchange(groups_, names) != names) Q_EMIT groupsChanged();
  Q_EMIT groupChanged();
}

int ChannelView::group() const {
  return channelGroups().place(model_.browsing().category());
}

QString ChannelView::groupName() const {
  return groups_.value(group());
}

void ChannelView::chooseGroup(int group) {
  if (const auto category = channelGroups().category(group)) model_.setCategory(*category);
}

QString ChannelView::channelName() const {
  return channelSelected() ? oneLine(model_.browsing().selected()->name) : tr("Live TV");
}

std::optional<GuideEntry> ChannelView::programme() const {
  const GuideEntries upcoming = upcomingEntries(model_.guide().guide(), clock_.now());
  if (upcoming.isEmpty()) return std::nullopt;
  return upcoming.first();
}

QString ChannelView::programmeTitle() const {
  const auto current = programme();
  return current ? oneLine(current->title) : QString();
}

QString ChannelView::programmeTimes() const {
  const auto current = programme();
  return current ? vantor::programmeTimes(*current) : QString();
}

QString ChannelView::programmeDescription() const {
  const auto current = programme();
  return current ? paragraph(current->description) : QString();
}

QString ChannelView::programmeHint() const {
  if (programme()) return {};
  return model_.details().detailsLoading()
             ? tr("Loading programme information…")
             : tr("Select a channel to see its programme information.");
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

}  // namespace vantor
