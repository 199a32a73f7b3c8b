#include "ui/shell/tv_shell.h"

#include <gtest/gtest.h>

#include "support/model_fixture.h"
#include "ui/posters/category_list_model.h"
#include "ui/shell/commands.h"
#include "ui/shell/empty_state.h"
#include "ui/shell/status_view.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using test::eventually;
using test::settle;
using Direction = TVShell::Direction;

class TVShellTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void open(const QStringList& arguments = {}) {
    launch(arguments);
    shell = std::make_unique<TVShell>(*model);
    status = std::make_unique<StatusView>(model->browsing(), model->libraries());
    empty = std::make_unique<EmptyState>(model->session(), model->browsing());
  }
  void TearDown() override {
    status.reset();
    empty.reset();
    shell.reset();
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
  EXPECT_EQ(shell->headerTitle(), u"Live TV"_s);
  EXPECT_FALSE(shell->searchOffered());
  EXPECT_EQ(shell->accountLabel(), u"Connect your own provider"_s);
  EXPECT_TRUE(empty->shown() && empty->connectOffered());
  EXPECT_EQ(empty->headline(), u"Your library starts here"_s);
  EXPECT_EQ(empty->explanation(), u"Connect your provider or explore the preview library."_s);
  EXPECT_EQ(shell->browseHint(), u"↑ ↓ ← → Browse   ·   Return Select   ·   Esc Back"_s);
  EXPECT_EQ(shell->versionLabel(), u"Vantor for Mac 0.1.0"_s);
}

TEST_F(TVShellTest, EachSectionHasItsTexts) {
  open({u"--demo"_s});
  struct Case {
    Section section;
    const char16_t* title;
    const char16_t* placeholder;
    const char16_t* label;
    const char16_t* count;
    bool refresh;
  };
  const Case cases[] = {
      {Section::search, u"Search", u"Search Search", u"All search", u"18 items", false},
      {Section::live, u"Live TV", u"Search TV", u"All tv", u"6 items", true},
      {Section::movies, u"Movies", u"Search Movies", u"All movies", u"6 items", true},
      {Section::shows, u"Shows", u"Search Shows", u"All shows", u"6 items", true},
      {Section::favorites, u"My list", u"Search My list", u"All my list", u"0 items", false},
  };
  for (const Case& example : cases) {
    shell->navigate(static_cast<int>(example.section));
    EXPECT_EQ(model->browsing().section(), example.section);
    EXPECT_EQ(shell->headerTitle(), QString::fromUtf16(example.title));
    EXPECT_EQ(shell->searchPlaceholder(), QString::fromUtf16(example.placeholder));
    EXPECT_EQ(status->label(), QString::fromUtf16(example.label));
    EXPECT_EQ(status->count(), QString::fromUtf16(example.count));
    EXPECT_EQ(shell->refreshOffered(), example.refresh);
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
  struct Case {
    Direction direction;
    int columns;
    const char16_t* selected;
  };
  // Six entries; nothing is selected at first, which counts as the first.
  const Case cases[] = {
      {Direction::Left, 1, u"Across the valley"},  {Direction::Down, 1, u"The long way home"},
      {Direction::Down, 4, u"Open horizons"},      {Direction::Right, 4, u"Open horizons"},
      {Direction::Down, 4, u"Open horizons"},      {Direction::Up, 4, u"The long way home"},
      {Direction::Up, 4, u"Across the valley"},    {Direction::Left, 4, u"Across the valley"},
      {Direction::Right, 4, u"The long way home"},
  };
  for (const Case& example : cases) {
    shell->moveSelection(example.direction, example.columns);
    EXPECT_EQ(selected(), QString::fromUtf16(example.selected));
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
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::shows)) == 1; }));
  transport.answer(action(LibraryKind::shows), rows(LibraryKind::shows, 7, 1));
  transport.answer(categoryAction(LibraryKind::shows), "[]");
  ASSERT_TRUE(eventually([&] { return model->browsing().items().size() == 1; }));
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
  ASSERT_TRUE(eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  transport.answer(action(LibraryKind::live), "{}");
  transport.answer(categoryAction(LibraryKind::live), "[]");
  ASSERT_TRUE(eventually([&] { return shell->refreshEnabled(); }));
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
}  // namespace vantor
