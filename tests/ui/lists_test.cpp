#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "support/model_fixture.h"
#include "ui/category_list_model.h"
#include "ui/item_list_model.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using Role = ItemListModel::Role;

class ListsTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  static QStringList texts(const QAbstractItemModel& model, int role) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
      list.append(model.index(row, 0).data(role).toString());
    return list;
  }

  /// The rows that `changes` announced for `role`.
  static QList<int> touched(const QSignalSpy& changes, int role) {
    QList<int> rows;
    for (const QList<QVariant>& change : changes)
      if (change[2].value<QList<int>>().contains(role))
        rows.append(change[0].value<QModelIndex>().row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }
};

TEST_F(ListsTest, RowsFollowSectionSearchAndCategory) {
  AppModel& app = launch({u"--demo"_s});
  ItemListModel list(app);
  const QAbstractItemModelTester tester(&list,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(list.rowCount(), 6);
  app.navigate(u"search"_s);
  EXPECT_EQ(list.rowCount(), 18);
  app.setSearch(u"garden"_s);
  EXPECT_EQ(texts(list, Role::NameRole), QStringList{u"The night garden"_s});
  EXPECT_EQ(list.index(0).data(Role::ItemIDRole), u"movies:example-4"_s);
  EXPECT_EQ(list.index(0).data(Role::IsExampleRole), true);
  EXPECT_FALSE(list.index(1).data(Role::NameRole).isValid());
  app.navigate(u"shows"_s);
  app.setCategory(u"2"_s);
  EXPECT_EQ(list.rowCount(), 3);
}

TEST_F(ListsTest, ShowsTheFirst2500EntriesAndKnowsWhereTheSelectionIs) {
  AppModel& app = launch();
  ItemListModel list(app);
  signIn(rows(LibraryKind::live, 1, 2501));
  EXPECT_EQ(list.rowCount(), 2500);
  EXPECT_EQ(list.currentRow(), -1);
  const QSignalSpy changes(&list, &ItemListModel::dataChanged);
  app.select(app.items().item(2499));
  EXPECT_EQ(list.currentRow(), 2499);
  app.select(app.items().item(2500));
  EXPECT_EQ(list.currentRow(), -1);
  app.select(app.items().item(7));
  EXPECT_EQ(list.currentRow(), 7);
  EXPECT_EQ(touched(changes, Role::IsSelectedRole), (QList<int>{7, 2499, 2499}));
  EXPECT_EQ(list.index(7).data(Role::IsSelectedRole), true);
  EXPECT_EQ(list.index(8).data(Role::IsSelectedRole), false);
  // The same entry at another place.
  app.setSearch(u"Title 8"_s);
  EXPECT_EQ(list.currentRow(), 0);
}

TEST_F(ListsTest, MarksWhatPlaysAndWhatIsOnTheList) {
  AppModel& app = launch();
  ItemListModel list(app);
  signIn(rows(LibraryKind::live, 1, 3));
  const QSignalSpy changes(&list, &ItemListModel::dataChanged);
  app.play(app.items().item(0));
  app.play(app.items().item(2));
  EXPECT_EQ(touched(changes, Role::IsPlayingRole), (QList<int>{0, 0, 2}));
  EXPECT_EQ(list.index(0).data(Role::IsPlayingRole), false);
  EXPECT_EQ(list.index(2).data(Role::IsPlayingRole), true);
  app.favorite(app.items().item(1));
  EXPECT_FALSE(touched(changes, Role::IsFavoriteRole).isEmpty());
  EXPECT_EQ(list.index(1).data(Role::IsFavoriteRole), true);
  app.navigate(u"favorites"_s);
  EXPECT_EQ(texts(list, Role::ItemIDRole), QStringList{u"live:2"_s});
  app.favorite(app.items().item(0));
  EXPECT_EQ(list.rowCount(), 0);
}

TEST_F(ListsTest, CategoriesBelongToTheLibraryOfTheSection) {
  AppModel& app = launch({u"--demo"_s});
  CategoryListModel list(app);
  const QAbstractItemModelTester tester(&list,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  constexpr int name = CategoryListModel::NameRole;
  EXPECT_EQ(texts(list, name), (QStringList{u"All tv"_s, u"Featured"_s, u"Discover"_s}));
  app.navigate(u"movies"_s);
  EXPECT_EQ(texts(list, name), (QStringList{u"All movies"_s, u"Featured"_s, u"Discover"_s}));
  EXPECT_EQ(list.currentRow(), 0);
  list.choose(2);
  EXPECT_EQ(app.category(), u"2"_s);
  EXPECT_EQ(list.currentRow(), 2);
  EXPECT_EQ(app.selected()->id, u"movies:example-1"_s);
  list.choose(3);
  list.choose(-1);
  EXPECT_EQ(app.category(), u"2"_s);
  list.choose(0);
  EXPECT_EQ(app.category(), QString());
  EXPECT_TRUE(list.offered());
  app.navigate(u"favorites"_s);
  EXPECT_FALSE(list.offered());
}

}  // namespace
}  // namespace vantor
