#include "ui/entries/item_list_model.h"

#include <QSignalSpy>

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

using ItemListModelTest = ViewsTest;

TEST_F(ItemListModelTest, ListsTheEntriesUpToItsLimitAndFollowsWhatBecomesOfThem) {
  open(2501);
  ItemListModel& list = *views->items();
  const auto at = [&](int row, ItemListModel::Role role) { return list.index(row).data(role); };
  EXPECT_EQ(list.rowCount(), 2500);
  EXPECT_EQ(at(2499, ItemListModel::NameRole), u"Title 2500"_s);
  EXPECT_EQ(list.currentRow(), -1);
  app->select(item(3));
  EXPECT_EQ(list.currentRow(), 3);
  EXPECT_TRUE(at(3, ItemListModel::IsSelectedRole).toBool());
  app->select(item(2500));
  EXPECT_EQ(list.currentRow(), -1) << "selected beyond the rows";
  EXPECT_FALSE(at(3, ItemListModel::IsSelectedRole).toBool());

  QSignalSpy changes(&list, &ItemListModel::dataChanged);
  app->play(item(5));
  ASSERT_FALSE(changes.isEmpty());
  EXPECT_EQ(changes.last().first().toModelIndex().row(), 5);
  EXPECT_TRUE(at(5, ItemListModel::IsPlayingRole).toBool());
  app->favorite(item(6));
  EXPECT_TRUE(at(6, ItemListModel::IsFavoriteRole).toBool());
  EXPECT_FALSE(at(5, ItemListModel::IsFavoriteRole).toBool());

  app->browsing().setSearch(u"title 25"_s);
  EXPECT_EQ(list.rowCount(), 13);
  EXPECT_EQ(at(0, ItemListModel::ItemIDRole), u"live:25"_s);
  int told = 0;
  QObject::connect(&app->browsing(), &Browsing::searchChanged, &list, [&] {
    ++told;
    ASSERT_EQ(list.rowCount(), 13) << "the list is told of after the search";
    EXPECT_EQ(at(12, ItemListModel::NameRole), u"Title 2501"_s);
  });
  app->browsing().setSearch(u"none"_s);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(list.rowCount(), 0);
}

}  // namespace
}  // namespace vantor::test
