#include "ui/entries/item_list_model.h"

#include <QSignalSpy>

#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class ItemListModelTest : public ModelTest {
 protected:
  AppModel& app = launch();
  ItemListModel list{app.browsing(), app.record(), app.playback()};

  QVariant read(int row, ItemListModel::Role role) { return list.data(list.index(row), role); }
};

TEST_F(ItemListModelTest, ListsTheEntriesUpToItsLimit) {
  EXPECT_EQ(list.rowCount(), 0);
  signIn(rows(LibraryKind::live, 0, 2501));
  EXPECT_EQ(list.rowCount(), 2500);
  EXPECT_EQ(read(2499, ItemListModel::NameRole), u"Title 2499"_s);
  EXPECT_EQ(read(7, ItemListModel::ItemIDRole), u"live:7"_s);
  EXPECT_FALSE(list.data(list.index(2500), ItemListModel::NameRole).isValid());
  app.browsing().setSearch(u"title 25"_s);
  EXPECT_EQ(list.rowCount(), 12);
  EXPECT_EQ(read(0, ItemListModel::NameRole), u"Title 25"_s);
  int told = 0;
  QObject::connect(&app.browsing(), &Browsing::searchChanged, &list, [&] {
    ++told;
    ASSERT_EQ(list.rowCount(), 12) << "the list is told of after the search";
    EXPECT_TRUE(read(11, ItemListModel::NameRole).toString().startsWith(u"Title 25"_s));
  });
  app.browsing().setSearch(u"none"_s);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(list.rowCount(), 0);
}

TEST_F(ItemListModelTest, FollowsSelectionPlayingAndFavourites) {
  signIn(rows(LibraryKind::live, 0, 2600));
  EXPECT_EQ(list.currentRow(), -1);
  app.select(item(3));
  EXPECT_EQ(list.currentRow(), 3);
  EXPECT_TRUE(read(3, ItemListModel::IsSelectedRole).toBool());
  app.select(item(2550));
  EXPECT_EQ(list.currentRow(), -1) << "selected beyond the rows";
  EXPECT_FALSE(read(3, ItemListModel::IsSelectedRole).toBool());

  QSignalSpy changes(&list, &ItemListModel::dataChanged);
  app.play(item(5));
  ASSERT_FALSE(changes.isEmpty());
  EXPECT_EQ(changes.last().first().toModelIndex().row(), 5);
  EXPECT_TRUE(read(5, ItemListModel::IsPlayingRole).toBool());
  app.favorite(item(6));
  EXPECT_TRUE(read(6, ItemListModel::IsFavoriteRole).toBool());
  EXPECT_FALSE(read(5, ItemListModel::IsFavoriteRole).toBool());
}

}  // namespace
}  // namespace vantor::test
