#include "ui/posters/category_list_model.h"

#include "core/app_model.h"
#include "ui/entries/library_wording.h"
#include "ui/entries/shown_text.h"
#include "ui/shell/tv_shell.h"

namespace vantor {

CategoryListModel::CategoryListModel(AppModel& model, QObject* parent)
    : QAbstractListModel(parent),
      model_(model),
      section_(model.browsing().section()),
      catalog_(model.browsing().catalog()),
      continued_(model.browsing().continueWatchingOffered()) {
  connect(&model.browsing(), &Browsing::sectionChanged, this, &CategoryListModel::update);
  connect(&model.libraries(), &Libraries::catalogsChanged, this, &CategoryListModel::update);
  connect(&model.record(), &WatchRecord::begunChanged, this, &CategoryListModel::update);
  connect(&model.browsing(), &Browsing::sectionChanged, this, &CategoryListModel::offeredChanged);
  connect(&model.browsing(), &Browsing::categoryChanged, this, &CategoryListModel::currentChanged);
}

void CategoryListModel::update() {
  const Catalog catalog = model_.browsing().catalog();
  if (section_ == model_.browsing().section() && catalog.categories() == catalog_.categories()) {
    catalog_ = catalog;
    return updateContinued();
  }
  beginResetModel();
  section_ = model_.browsing().section();
  catalog_ = catalog;
  continued_ = model_.browsing().continueWatchingOffered();
  endResetModel();
  Q_EMIT currentChanged();
}

void CategoryListModel::updateContinued() {
  const bool offered = model_.browsing().continueWatchingOffered();
  if (offered == continued_) return;
  // A reset would scroll the list back to its top.
  if (offered)
    beginInsertRows({}, 1, 1);
  else
    beginRemoveRows({}, 1, 1);
  continued_ = offered;
  if (offered)
    endInsertRows();
  else
    endRemoveRows();
  Q_EMIT currentChanged();
}

const MediaCategory& CategoryListModel::categoryOf(int row) const {
  return catalog_.categories()[static_cast<std::size_t>(row - ownRows())];
}

int CategoryListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ownRows() + static_cast<int>(catalog_.categories().size());
}

QString CategoryListModel::idOf(int row) const {
  if (row == 0) return {};
  return row < ownRows() ? Browsing::continueWatching : categoryOf(row).id;
}

QVariant CategoryListModel::data(const QModelIndex& index, int role) const {
  const int row = index.row();
  if (row < 0 || row >= rowCount()) return {};
  if (role == CategoryIDRole) return idOf(row);
  if (role != NameRole) return {};
  if (row == 0) return allOf(model_.browsing().section());
  return row < ownRows() ? continueWatchingTitle() : oneLine(categoryOf(row).name);
}

QHash<int, QByteArray> CategoryListModel::roleNames() const {
  return {{CategoryIDRole, "categoryID"}, {NameRole, "name"}};
}

bool CategoryListModel::offered() const {
  return model_.browsing().kind().has_value();
}

QString CategoryListModel::current() const {
  return model_.browsing().category();
}

int CategoryListModel::currentRow() const {
  for (int row = 0; row < rowCount(); ++row)
    if (idOf(row) == model_.browsing().category()) return row;
  return -1;
}

void CategoryListModel::choose(int row) {
  if (row >= 0 && row < rowCount()) model_.setCategory(idOf(row));
}

}  // namespace vantor
