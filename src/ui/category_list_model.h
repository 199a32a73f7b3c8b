#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>

#include "provider/catalog.h"

namespace vantor {

class AppModel;

/// The categories of the current library, the choice of all of them first. Main thread only.
class CategoryListModel final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool offered READ offered NOTIFY offeredChanged)
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)

 public:
  enum Role { CategoryIDRole = Qt::UserRole + 1, NameRole };

  explicit CategoryListModel(AppModel& model, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// Whether the section has categories at all.
  bool offered() const;
  int currentRow() const;
  Q_INVOKABLE void choose(int row);

 Q_SIGNALS:
  void offeredChanged();
  void currentRowChanged();

 private:
  void update();
  QString idOf(int row) const;

  AppModel& model_;
  QString section_;
  Catalog catalog_;
};

}  // namespace vantor
