#include "ui/player/channel_chooser.h"

#include <QGuiApplication>
#include <algorithm>

#include "core/app_model.h"
#include "core/zapping.h"
#include "ui/channels/channel_groups.h"

namespace vantor {

using namespace Qt::StringLiterals;

ChannelChooser::ChannelChooser(AppModel& model, Zapping& zapping, Clock& clock)
    : model_(model),
      zapping_(zapping),
      announcements_([] {}),
      browsing_(announcements_, model.libraries(), model.record()),
      items_(browsing_, model.record(), model.playback()),
      rows_(model.guide(), clock, items_),
      shown_(model.guide(), clock, browsing_, items_, rows_) {
  const Browsing& browsed = model.browsing();
  if (browsed.section() != Section::live || !begin(browsed.category(), browsed.search()))
    begin(QString(), QString());
  connect(&items_, &ItemListModel::currentRowChanged, this, &ChannelChooser::currentRowChanged);
  connect(&browsing_, &Browsing::categoryChanged, this, &ChannelChooser::groupChanged);
  connect(&model.libraries(), &Libraries::catalogsChanged, this,
          &ChannelChooser::onCatalogsChanged);
}

bool ChannelChooser::begin(const QString& category, const QString& search) {
  {
    const Announcements::Scope scope(announcements_);
    browsing_.choose(category);
    browsing_.setSearch(search);
  }
  const int row = items_.rowOf(zapping_.channel() ? zapping_.channel()->id : QString());
  highlight(std::max(row, 0));
  return row >= 0;
}

void ChannelChooser::onCatalogsChanged() {
  const int row = currentRow();
  browsing_.itemsDiffer();
  if (currentRow() < 0) highlight(row);
  Q_EMIT groupChanged();
}

void ChannelChooser::highlight(int row) {
  const int last = items_.rowCount() - 1;
  browsing_.setSelected(last < 0 ? std::nullopt
                                 : std::optional(items_.entry(std::clamp(row, 0, last))));
}

QString ChannelChooser::group() const {
  const ChannelGroups groups(browsing_.catalog());
  const QString name = groups.names().value(groups.place(browsing_.category()));
  return browsing_.search().isEmpty() ? name : tr("%1 · “%2”").arg(name, browsing_.search());
}

void ChannelChooser::changeGroup(int by) {
  const ChannelGroups groups(browsing_.catalog());
  const int place = std::max(groups.place(browsing_.category()), 0);
  const int next = (place + by + groups.count()) % groups.count();
  begin(groups.category(next).value_or(QString()), QString());
}

bool ChannelChooser::press(int key) {
  const int row = currentRow();
  switch (key) {
    case Qt::Key_Up:
      highlight(row - 1);
      return true;
    case Qt::Key_Down:
      highlight(row + 1);
      return true;
    case Qt::Key_PageUp:
      highlight(row - page_);
      return true;
    case Qt::Key_PageDown:
      highlight(row + page_);
      return true;
    case Qt::Key_Home:
      highlight(0);
      return true;
    case Qt::Key_End:
      highlight(items_.rowCount() - 1);
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
      // The next one is where reading goes.
      changeGroup((key == Qt::Key_Left) == QGuiApplication::isRightToLeft() ? 1 : -1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      choose(row);
      return true;
    default:
      return false;
  }
}

void ChannelChooser::choose(int row) {
  if (row < 0 || row >= items_.rowCount()) return;
  zapping_.open(browsing_.sharedItems(), static_cast<std::size_t>(row));
  Q_EMIT done();
}

void ChannelChooser::showRows(int first, int last) {
  page_ = std::max(1, last - first);
  shown_.show(first, last);
}

}  // namespace vantor
