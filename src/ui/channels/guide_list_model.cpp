#include "ui/channels/guide_list_model.h"

#include "core/programme_guide.h"
#include "ui/channels/upcoming_entries.h"
#include "ui/entries/item_list_model.h"
#include "ui/entries/shown_text.h"

namespace vantor {

using namespace Qt::StringLiterals;

GuideListModel::GuideListModel(const ProgrammeGuide& guide, const Clock& clock,
                               ItemListModel& items, QObject* parent)
    : QIdentityProxyModel(parent), guide_(guide), clock_(clock), items_(items) {
  setSourceModel(&items);
  connect(&guide, &ProgrammeGuide::guideCacheChanged, this, &GuideListModel::guideChanged);
  connect(&guide, &ProgrammeGuide::guideFailuresChanged, this, &GuideListModel::guideChanged);
}

QVariant GuideListModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case NowTextRole:
      return nowText(index);
    case NextTextRole:
      return nextText(index);
    case IsOnRole:
      return !upcoming(index.data(ItemListModel::ItemIDRole).toString()).isEmpty();
    default:
      return QIdentityProxyModel::data(index, role);
  }
}

QHash<int, QByteArray> GuideListModel::roleNames() const {
  QHash<int, QByteArray> names = QIdentityProxyModel::roleNames();
  names.insert(NowTextRole, "nowText");
  names.insert(NextTextRole, "nextText");
  names.insert(IsOnRole, "isOn");
  return names;
}

GuideEntries GuideListModel::upcoming(const QString& channelID) const {
  return upcomingEntries(guide_, channelID, clock_.now());
}

QString GuideListModel::nowText(const QModelIndex& index) const {
  const QString id = index.data(ItemListModel::ItemIDRole).toString();
  const GuideEntries entries = upcoming(id);
  if (!entries.isEmpty()) return oneLine(entries.first().title);
  if (index.data(ItemListModel::IsExampleRole).toBool()) return tr("Preview channel");
  return absentProgramme(guide_, id);
}

QString GuideListModel::nextText(const QModelIndex& index) const {
  const GuideEntries entries = upcoming(index.data(ItemListModel::ItemIDRole).toString());
  return entries.size() < 2 ? u"—"_s : oneLine(entries[1].title);
}

void GuideListModel::updateTexts(int first, int last) {
  if (first >= 0 && last >= first)
    Q_EMIT dataChanged(index(first, 0), index(last, 0), {NowTextRole, NextTextRole, IsOnRole});
}

void GuideListModel::guideChanged(const QString& channelID) {
  if (channelID.isEmpty()) return timePassed();
  const int row = items_.rowOf(channelID);
  updateTexts(row, row);
}

void GuideListModel::timePassed() {
  updateTexts(0, rowCount() - 1);
}

}  // namespace vantor
