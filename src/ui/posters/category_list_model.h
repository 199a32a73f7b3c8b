#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>

#include "core/section.h"
#include "library/catalog.h"

namespace vantor {

class AppModel;

/// The categories of the current library: the choice of all of them, "Continue watching" while
/// something was begun, then the provider's. Main thread only.
class CategoryListModel final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool offered READ offered NOTIFY offeredChanged)
  Q_PROPERTY(QString current READ current NOTIFY currentChanged)
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentChanged)

 public:
  enum Role { CategoryIDRole = Qt::UserRole + 1, NameRole };

  explicit CategoryListModel(AppModel& model, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// Whether the section has categories at all.
  bool offered() const;
  /// The id of the chosen category, empty for all. A provider may give several one id.
  QString current() const;
  /// The first row of that category, -1 when the library does not have it.
  int currentRow() const;
  Q_INVOKABLE void choose(int row);

 Q_SIGNALS:
  void offeredChanged();
  void currentChanged();

 private:
  void update();
  void updateContinued();
  // The rows before the provider's categories, and the category of a row after them.
  int ownRows() const { return continued_ ? 2 : 1; }
  const MediaCategory& categoryOf(int row) const;
  QString idOf(int row) const;

  AppModel& model_;
  Section section_;
  Catalog catalog_;
  bool continued_;
};

}  // namespace vantor
