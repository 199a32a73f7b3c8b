#include "ui/entries/item_list_model.h"

#include <algorithm>

#include "core/browsing.h"
#include "playback/playback.h"
#include "ui/entries/library_wording.h"
#include "ui/entries/shown_text.h"

namespace vantor {

ItemListModel::ItemListModel(const Browsing& browsing, const WatchRecord& record,
                             const Playback& playback, QObject* parent)
    : QAbstractListModel(parent), browsing_(browsing), record_(record), playback_(playback) {
  connect(&browsing, &Browsing::itemsChanged, this, &ItemListModel::reset);
  connect(&browsing, &Browsing::selectedChanged, this, &ItemListModel::updateCurrentRow);
  connect(&record, &WatchRecord::favoritesChanged, this, &ItemListModel::updateFavorites);
  connect(&playback, &Playback::sourceChanged, this, &ItemListModel::updatePlaying);
  reset();
}

int ItemListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant ItemListModel::data(const QModelIndex& index, int role) const {
  const int row = index.row();
  if (row < 0 || row >= rows_) return {};
  if (readRow_ != row) {
    readItem_ = entry(row);
    readRow_ = row;
  }
  switch (role) {
    case ItemIDRole:
      return readItem_.id;
    case NameRole:
      return oneLine(readItem_.name);
    case ArtworkRole:
      return readItem_.artwork.value_or(QUrl());
    case KindSymbolRole:
      return symbol(readItem_.kind);
    case IsExampleRole:
      return readItem_.isExample;
    case IsFavoriteRole:
      return record_.favorites().contains(readItem_.id);
    case IsPlayingRole:
      return playback_.itemID() == readItem_.id;
    case IsSelectedRole:
      return browsing_.selected() && browsing_.selected()->id == readItem_.id;
    default:
      return {};
  }
}

QHash<int, QByteArray> ItemListModel::roleNames() const {
  return {{ItemIDRole, "itemID"},       {NameRole, "name"},
          {ArtworkRole, "artwork"},     {KindSymbolRole, "kindSymbol"},
          {IsExampleRole, "isExample"}, {IsFavoriteRole, "isFavorite"},
          {IsPlayingRole, "isPlaying"}, {IsSelectedRole, "isSelected"}};
}

void ItemListModel::reset() {
  beginResetModel();
  list_ = browsing_.sharedItems();
  rows_ = static_cast<int>(std::min<std::size_t>(list_->size(), rowLimit));
  readRow_ = -1;
  playingID_ = playback_.itemID().value_or(QString());
  endResetModel();
  updateCurrentRow();
}

MediaItem ItemListModel::entry(int row) const {
  return list_->item(static_cast<std::size_t>(row));
}

int ItemListModel::rowOf(const QString& id) const {
  if (id.isEmpty()) return -1;
  const auto index = list_->indexOf(id);
  return index && *index < static_cast<std::size_t>(rows_) ? static_cast<int>(*index) : -1;
}

void ItemListModel::touch(int row, Role role) {
  if (row < 0) return;
  const QModelIndex at = index(row);
  Q_EMIT dataChanged(at, at, {role});
}

void ItemListModel::updateCurrentRow() {
  const int previous =
      std::exchange(currentRow_, browsing_.selected() ? rowOf(browsing_.selected()->id) : -1);
  if (previous == currentRow_) return;
  touch(previous < rows_ ? previous : -1, IsSelectedRole);
  touch(currentRow_, IsSelectedRole);
  Q_EMIT currentRowChanged();
}

void ItemListModel::updatePlaying() {
  const QString previous = std::exchange(playingID_, playback_.itemID().value_or(QString()));
  touch(rowOf(previous), IsPlayingRole);
  touch(rowOf(playingID_), IsPlayingRole);
}

void ItemListModel::updateFavorites() {
  if (rows_ > 0) Q_EMIT dataChanged(index(0), index(rows_ - 1), {IsFavoriteRole});
}

}  // namespace vantor
