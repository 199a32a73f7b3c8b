#include "ui/shell/tv_shell.h"

#include "support/model_fixture.h"
#include "ui/posters/category_list_model.h"
#include "ui/shell/commands.h"
#include "ui/shell/empty_state.h"
#include "ui/shell/status_view.h"

namespace vantor::test {
namespace {

using Direction = TVShell::Direction;

class TVShellTest : public ModelTest {
 protected:
  void open(const QStringList& arguments = {}) {
    launch(arguments);
    shell = std::make_unique<TVShell>(*model);
    status = std::make_unique<StatusView>(model->browsing(), model->libraries());
    empty = std::make_unique<EmptyState>(model->session(), model->browsing());
  }
  QString selected() const {
    return model->browsing().selected() ? model->browsing().selected()->name : QString();
  }

  std::unique_ptr<TVShell> shell;
  std::unique_ptr<StatusView> status;
  std::unique_ptr<EmptyState> empty;
};

TEST_F(TVShellTest, SignedOutItOffersToConnect) {
  open();
  EXPECT_FALSE(shell->searchOffered());
  EXPECT_TRUE(empty->shown() && empty->connectOffered());
}

TEST_F(TVShellTest, EachSectionHasItsTexts) {
  open({u"--demo"_s});
  // Title, placeholder of the search, label and count of the status line; whether it is refreshed.
  const std::tuple<Section, QStringList, bool> cases[] = {
      {Section::search, {u"Search"_s, u"Search Search"_s, u"All search"_s, u"18 items"_s}, false},
      {Section::live, {u"Live TV"_s, u"Search TV"_s, u"All tv"_s, u"6 items"_s}, true},
      {Section::movies, {u"Movies"_s, u"Search Movies"_s, u"All movies"_s, u"6 items"_s}, true},
      {Section::shows, {u"Shows"_s, u"Search Shows"_s, u"All shows"_s, u"6 items"_s}, true},
      {Section::favorites,
       {u"My list"_s, u"Search My list"_s, u"All my list"_s, u"0 items"_s},
       false},
  };
  for (const auto& [section, texts, refresh] : cases) {
    shell->navigate(static_cast<int>(section));
    EXPECT_EQ(model->browsing().section(), section);
    EXPECT_EQ((QStringList{shell->headerTitle(), shell->searchPlaceholder(), status->label(),
                           status->count()}),
              texts);
    EXPECT_EQ(shell->refreshOffered(), refresh);
    EXPECT_FALSE(shell->refreshEnabled()) << "the preview library has nothing to refresh";
  }
  EXPECT_EQ(shell->accountLabel(), u"Preview library · No content included"_s);
  model->navigate(Section::movies);
  model->setCategory(u"2"_s);
  EXPECT_EQ(status->label(), u"Discover"_s);
  model->setCategory(u"unknown"_s);
  EXPECT_EQ(status->label(), u"Movies"_s);
  model->setCategory(QString());
  shell->setSearch(u"garden"_s);
  EXPECT_EQ(status->count(), u"1 item"_s);
  shell->setSearch(u"nothing"_s);
  EXPECT_EQ(empty->headline(), u"No matching titles"_s);
}

TEST_F(TVShellTest, TheStatusLineTellsHowFarALibraryInPartsHasCome) {
  open();
  signIn();
  model->navigate(Section::movies);
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(status->progress(), QString());
  transport.answer(categoryAction(LibraryKind::movies), R"([{"category_id":1}])");
  transport.fail(action(LibraryKind::movies), OversizedBody());
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(status->progress(), u"0 loaded · 0 of 2 categories"_s);
  QString told;
  QObject::connect(status.get(), &StatusView::changed, [&] { told = status->progress(); });
  transport.answer(action(LibraryKind::movies), rows(LibraryKind::movies, 0, 7));
  ASSERT_TRUE(isAskedFor(LibraryKind::movies));
  EXPECT_EQ(told, u"7 loaded · 1 of 2 categories"_s);
  model->navigate(Section::live);
  EXPECT_EQ(status->progress(), QString());
}

TEST_F(TVShellTest, EscStepsBackOneThingAtATime) {
  open({u"--demo"_s});
  model->navigate(Section::shows);
  model->browsing().setShowingEpisodes(true);
  model->playback().setExpanded(true);
  shell->escape();
  EXPECT_FALSE(shell->expanded());
  EXPECT_TRUE(model->browsing().showingEpisodes());
  shell->escape();
  EXPECT_FALSE(model->browsing().showingEpisodes());
  EXPECT_EQ(model->browsing().section(), Section::shows);
  shell->escape();
  EXPECT_EQ(model->browsing().section(), Section::live);
}

TEST_F(TVShellTest, ChangesOfSectionAndSelectionResetWhatBelongsToThem) {
  open({u"--demo"_s});
  int searchFocus = 0;
  QObject::connect(shell.get(), &TVShell::searchFocusRequested, [&] { ++searchFocus; });
  model->navigate(Section::shows);
  model->browsing().setShowingEpisodes(true);
  model->browsing().setEpisodeSeason(3);
  shell->selectRow(1);
  EXPECT_EQ(model->browsing().episodeSeason(), 0);
  EXPECT_TRUE(model->browsing().showingEpisodes());
  model->navigate(Section::search);
  EXPECT_FALSE(model->browsing().showingEpisodes());
  EXPECT_EQ(searchFocus, 1);
}

TEST_F(TVShellTest, ArrowKeysMoveTheHighlightWithinTheEntries) {
  open({u"--demo"_s});
  model->navigate(Section::movies);
  // Six entries; nothing is selected at first, which counts as the first.
  const std::tuple<Direction, int, QString> cases[] = {
      {Direction::Left, 1, u"Across the valley"_s},  {Direction::Down, 1, u"The long way home"_s},
      {Direction::Down, 4, u"Open horizons"_s},      {Direction::Right, 4, u"Open horizons"_s},
      {Direction::Down, 4, u"Open horizons"_s},      {Direction::Up, 4, u"The long way home"_s},
      {Direction::Up, 4, u"Across the valley"_s},    {Direction::Left, 4, u"Across the valley"_s},
      {Direction::Right, 4, u"The long way home"_s},
  };
  for (const auto& [direction, columns, expected] : cases) {
    shell->moveSelection(direction, columns);
    EXPECT_EQ(selected(), expected);
  }
  shell->setSearch(u"nothing like it"_s);
  shell->moveSelection(Direction::Down, 1);
  EXPECT_EQ(selected(), u"The long way home"_s) << "an empty list has nothing to move to";
}

TEST_F(TVShellTest, ReturnPlaysAnEntryAndOpensAShow) {
  open();
  signIn(rows(LibraryKind::live, 1, 3));
  shell->activateSelection();
  settle();
  EXPECT_EQ(selected(), u"Title 1"_s) << "the first entry when nothing is selected";
  EXPECT_EQ(model->playback().itemID(), u"live:1"_s);
  shell->openRow(2);
  settle();
  EXPECT_EQ(model->playback().itemID(), u"live:3"_s);
  model->navigate(Section::shows);
  answer(LibraryKind::shows, rows(LibraryKind::shows, 7, 1));
  shell->activateSelection();
  settle();
  EXPECT_TRUE(model->browsing().showingEpisodes());
  EXPECT_EQ(model->playback().itemID(), u"live:3"_s);
}

TEST_F(TVShellTest, RefreshIsOfferedWhileNothingLoads) {
  open();
  signIn(rows(LibraryKind::live, 1, 3));
  EXPECT_EQ(shell->accountLabel(), u"Vantor TV"_s);
  EXPECT_TRUE(shell->refreshEnabled());
  shell->refresh();
  EXPECT_FALSE(shell->refreshEnabled());
  EXPECT_TRUE(status->loading());
  answer(LibraryKind::live, "{}");
  EXPECT_TRUE(shell->refreshEnabled());
  EXPECT_EQ(status->error(), u"The provider returned an unreadable library."_s);
  EXPECT_EQ(status->count(), u"3 items"_s);
  model->navigate(Section::favorites);
  EXPECT_EQ(status->error(), QString());
}

TEST_F(TVShellTest, CommandsRun) {
  open({u"--demo"_s});
  Commands menu(*model);
  int quits = 0;
  QObject::connect(&menu, &Commands::quitRequested, [&] { ++quits; });
  QHash<QString, QString> keys;
  const QVariantList commands = menu.list();
  const auto run = [&](const QString& title) {
    for (int i = 0; i < commands.size(); ++i)
      if (commands[i].toMap().value(u"title"_s) == title) menu.run(i);
  };
  for (const QVariant& command : commands)
    keys.insert(command.toMap().value(u"title"_s).toString(),
                command.toMap().value(u"keys"_s).toString());
  EXPECT_EQ(keys, (QHash<QString, QString>{{u"Open Media File…"_s, u"Ctrl+O"_s},
                                           {u"Connect Provider…"_s, u"Ctrl+K"_s},
                                           {u"Settings…"_s, u"Ctrl+,"_s},
                                           {u"Play / Pause"_s, u"Space"_s},
                                           {u"Stop"_s, u"Ctrl+."_s},
                                           {u"Full Screen"_s, u"F11"_s},
                                           {u"TV"_s, u"Ctrl+1"_s},
                                           {u"Movies"_s, u"Ctrl+2"_s},
                                           {u"Shows"_s, u"Ctrl+3"_s},
                                           {u"Quit"_s, u"Ctrl+Q"_s}}));
  run(u"Movies"_s);
  EXPECT_EQ(model->browsing().section(), Section::movies);
  run(u"Connect Provider…"_s);
  EXPECT_TRUE(model->showingConnect());
  run(u"Settings…"_s);
  EXPECT_TRUE(model->showingSettings());
  run(u"Open Media File…"_s);
  settle();
  EXPECT_EQ(filePanel.shown, 1);
  model->playback().play({.title = u"Film"_s, .id = u"f"_s});
  run(u"Play / Pause"_s);
  EXPECT_TRUE(model->playback().paused());
  run(u"Stop"_s);
  EXPECT_EQ(model->playback().state(), PlaybackState::idle);
  run(u"Quit"_s);
  EXPECT_EQ(quits, 1);
}

TEST_F(TVShellTest, CategoriesFollowTheSection) {
  open({u"--demo"_s});
  CategoryListModel categories(*model);
  const auto name = [&](int row) {
    return categories.data(categories.index(row), CategoryListModel::NameRole).toString();
  };
  ASSERT_EQ(categories.rowCount(), 3);
  EXPECT_EQ(name(0), u"All tv"_s);
  EXPECT_EQ(name(2), u"Discover"_s);
  EXPECT_EQ(categories.currentRow(), 0);
  categories.choose(2);
  EXPECT_EQ(model->browsing().category(), u"2"_s);
  EXPECT_EQ(categories.currentRow(), 2);
  model->navigate(Section::movies);
  EXPECT_EQ(name(0), u"All movies"_s);
  EXPECT_EQ(categories.currentRow(), 0);
  model->navigate(Section::favorites);
  EXPECT_FALSE(categories.offered());
}

}  // namespace
}  // namespace vantor::test
