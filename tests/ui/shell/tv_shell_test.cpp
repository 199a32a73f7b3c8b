#include "ui/shell/tv_shell.h"

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

class TVShellTest : public ViewsTest {
 protected:
  void opened() override {
    shell = views->shell();
    status = views->statusView();
  }

  TVShell* shell = nullptr;
  StatusView* status = nullptr;
};

TEST_F(TVShellTest, TheStatusLineTellsWhatIsListed) {
  open({u"--demo"_s});
  const std::tuple<Section, QString, QString> cases[] = {
      {Section::search, u""_s, u"All search: 18 items"_s},
      {Section::live, u""_s, u"All tv: 6 items"_s},
      {Section::shows, u""_s, u"All shows: 6 items"_s},
      {Section::favorites, u""_s, u"All my list: 0 items"_s},
      {Section::movies, u"2"_s, u"Discover: 3 items"_s},
      {Section::movies, u"unknown"_s, u"Movies: 0 items"_s},
  };
  for (const auto& [section, category, told] : cases) {
    shell->navigate(static_cast<int>(section));
    app->setCategory(category);
    EXPECT_EQ(status->label() + u": "_s + status->count(), told);
    EXPECT_FALSE(shell->refreshEnabled()) << "the preview library has nothing to refresh";
  }
  app->setCategory({});
  shell->setSearch(u"garden"_s);
  EXPECT_EQ(status->count(), u"1 item"_s);
  shell->setSearch(u"nothing"_s);
  EXPECT_EQ(views->emptyState()->headline(), u"No matching titles"_s);
}

TEST_F(TVShellTest, TheStatusLineTellsOfALoad) {
  open(3);
  EXPECT_TRUE(shell->refreshEnabled());
  shell->refresh();
  EXPECT_FALSE(shell->refreshEnabled()) << "one at a time";
  EXPECT_TRUE(status->loading());
  answer(LibraryKind::live, "{}");
  EXPECT_TRUE(shell->refreshEnabled());
  EXPECT_EQ(status->error(), u"The provider returned an unreadable library."_s);
  EXPECT_EQ(status->count(), u"3 items"_s);

  app->navigate(Section::movies);
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(status->error() + status->progress(), QString());
  transport.answer(categoryAction(LibraryKind::movies), R"([{"category_id":1}])");
  transport.fail(action(LibraryKind::movies), OversizedBody());
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(status->progress(), u"0 loaded · 0 of 2 categories"_s);
  QString told;
  QObject::connect(status, &StatusView::changed, [&] { told = status->progress(); });
  transport.answer(action(LibraryKind::movies), rows(LibraryKind::movies, 0, 7));
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(told, u"7 loaded · 1 of 2 categories"_s);
  app->navigate(Section::live);
  EXPECT_EQ(status->progress(), QString());
}

TEST_F(TVShellTest, TheStatusLineTellsOfTheCheckBeforeTheFirstLoad) {
  credentials.put(providerItem, account.toJSON());
  open();
  EXPECT_TRUE(status->loading());
  bool told = true;
  QObject::connect(status, &StatusView::changed, [&] { told = status->loading(); });
  app->navigate(Section::favorites);
  EXPECT_FALSE(told);
  app->navigate(Section::live);
  EXPECT_TRUE(told);
  nameServer();
  answer(LibraryKind::live, rows(LibraryKind::live, 1, 3));
  EXPECT_FALSE(told);
}

TEST_F(TVShellTest, ArrowKeysMoveTheHighlightWithinTheEntries) {
  open(0, 6);
  app->navigate(Section::movies);
  ASSERT_TRUE(idle());
  using enum TVShell::Direction;
  // Nothing is selected at first, which counts as the first.
  const std::tuple<TVShell::Direction, int, int> cases[] = {
      {Left, 1, 1}, {Down, 1, 2}, {Down, 4, 6}, {Right, 4, 6}, {Down, 4, 6},
      {Up, 4, 2},   {Up, 4, 1},   {Left, 4, 1}, {Right, 4, 2}};
  for (const auto& [direction, columns, expected] : cases) {
    shell->moveSelection(direction, columns);
    EXPECT_EQ(selectedID(), u"movies:%1"_s.arg(expected));
  }
  shell->setSearch(u"nothing like it"_s);
  shell->moveSelection(Down, 1);
  EXPECT_EQ(selectedID(), u"movies:2"_s) << "an empty list has nothing to move to";
}

}  // namespace
}  // namespace vantor::test
