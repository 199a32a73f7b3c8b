#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <memory>

#include "library/media_item.h"

namespace vantor {

class Browsing;
class ItemList;
class Playback;
class WatchRecord;

/// The entries that the current section shows, as rows for a list: the first 2,500 of them, read
/// from the model when a row is drawn. Main thread only.
class ItemListModel final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)

 public:
  enum Role {
    ItemIDRole = Qt::UserRole + 1,
    NameRole,
    ArtworkRole,
    KindSymbolRole,
    IsExampleRole,
    IsFavoriteRole,
    IsPlayingRole,
    IsSelectedRole,
  };

  static constexpr int rowLimit = 2500;

  ItemListModel(const Browsing& browsing, const WatchRecord& record, const Playback& playback,
                QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// The row of the selected entry, -1 when it is not among the rows.
  int currentRow() const { return currentRow_; }
  /// The entry of a row that there is.
  MediaItem entry(int row) const;
  /// The row of the entry with that id, -1 likewise.
  int rowOf(const QString& id) const;

 Q_SIGNALS:
  void currentRowChanged();

 private:
  void reset();
  void updateCurrentRow();
  void updatePlaying();
  void updateFavorites();
  void touch(int row, Role role);

  const Browsing& browsing_;
  const WatchRecord& record_;
  const Playback& playback_;
  std::shared_ptr<const ItemList> list_;  // what the rows were announced of
  int rows_ = 0;
  int currentRow_ = -1;
  QString playingID_;
  // A row's roles are read one after the other.
  mutable int readRow_ = -1;
  mutable MediaItem readItem_;
};

}  // namespace vantor
