#include <gmock/gmock.h>

#include "support/model_fixture.h"
#include "ui/empty_state.h"
#include "ui/status_line.h"
#include "ui/tv_shell.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using Direction = TVShell::Direction;

class ShellTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void open(const QStringList& arguments = {}) {
    shell.reset();
    app = &launch(arguments);
    shell = std::make_unique<TVShell>(*app);
  }
  void TearDown() override { shell.reset(); }

  QString selectedID() const { return app->selected() ? app->selected()->id : QString(); }

  AppModel* app = nullptr;
  std::unique_ptr<TVShell> shell;
};

TEST_F(ShellTest, SaysWhatEachSectionIs) {
  struct Row {
    QString section;
    QString header;
    QString placeholder;
    QString status;
    bool refreshOffered;
  };
  open({u"--demo"_s});
  const StatusLine line(*app);
  for (const Row& row :
       {Row{u"live"_s, u"Live TV"_s, u"Search TV"_s, u"All tv"_s, true},
        Row{u"movies"_s, u"Movies"_s, u"Search Movies"_s, u"All movies"_s, true},
        Row{u"shows"_s, u"Shows"_s, u"Search Shows"_s, u"All shows"_s, true},
        Row{u"favorites"_s, u"My list"_s, u"Search My list"_s, u"All my list"_s, false},
        Row{u"search"_s, u"Search"_s, u"Search Search"_s, u"All search"_s, false}}) {
    shell->navigate(row.section);
    EXPECT_EQ(shell->section(), row.section);
    EXPECT_EQ(shell->headerTitle(), row.header);
    EXPECT_EQ(shell->searchPlaceholder(), row.placeholder);
    EXPECT_EQ(line.label(), row.status);
    EXPECT_EQ(shell->refreshOffered(), row.refreshOffered) << row.section.toStdString();
  }
  QStringList shown;
  for (const QVariant& entry : shell->sections())
    shown.append(entry.toMap().value(u"section"_s).toString());
  EXPECT_EQ(shown, (QStringList{u"search"_s, u"live"_s, u"movies"_s, u"shows"_s, u"favorites"_s}));
}

TEST_F(ShellTest, OffersWhatTheStateAllows) {
  open();
  const EmptyState empty(*app);
  EXPECT_FALSE(shell->searchOffered());
  EXPECT_EQ(shell->accountLabel(), u"Connect your own provider"_s);
  EXPECT_TRUE(empty.shown());
  EXPECT_TRUE(empty.connectOffered());
  EXPECT_EQ(empty.headline(), u"Your library starts here"_s);
  EXPECT_EQ(empty.explanation(), u"Connect your provider or explore the preview library."_s);

  signIn();
  EXPECT_TRUE(shell->searchOffered());
  EXPECT_EQ(shell->accountLabel(), u"Vantor TV"_s);
  EXPECT_TRUE(shell->refreshEnabled());
  EXPECT_TRUE(empty.shown());
  EXPECT_FALSE(empty.connectOffered());
  EXPECT_EQ(empty.explanation(), u"Choose another category or refresh your library."_s);
  shell->setSearch(u"x"_s);
  EXPECT_EQ(empty.headline(), u"No matching titles"_s);

  open({u"--demo"_s});
  const EmptyState none(*app);
  EXPECT_TRUE(shell->searchOffered());
  EXPECT_EQ(shell->accountLabel(), u"Preview library · No content included"_s);
  EXPECT_FALSE(shell->refreshEnabled());
  EXPECT_FALSE(none.shown());
}

TEST_F(ShellTest, StatusFollowsLoadingCountAndError) {
  open();
  signIn(rows(LibraryKind::live, 1, 1));
  const StatusLine line(*app);
  EXPECT_EQ(line.count(), u"1 item"_s);
  shell->refresh();
  EXPECT_TRUE(line.loading());
  EXPECT_FALSE(shell->refreshEnabled());
  ASSERT_TRUE(test::eventually([&] { return transport.open(action(LibraryKind::live)) == 1; }));
  transport.fail(action(LibraryKind::live), std::make_exception_ptr(HTTPFailure(500)));
  ASSERT_TRUE(test::eventually([&] { return !line.loading(); }));
  EXPECT_FALSE(line.error().isEmpty());
  EXPECT_EQ(line.count(), u"1 item"_s);
  EXPECT_TRUE(shell->refreshEnabled());
  shell->navigate(u"favorites"_s);
  EXPECT_EQ(line.error(), QString());
  EXPECT_EQ(line.count(), u"0 items"_s);
}

TEST_F(ShellTest, StatusNamesTheCategory) {
  open({u"--demo"_s});
  const StatusLine line(*app);
  app->setCategory(u"2"_s);
  EXPECT_EQ(line.label(), u"Discover"_s);
  app->setCategory(u"no such category"_s);
  EXPECT_EQ(line.label(), u"TV"_s);
}

TEST_F(ShellTest, EscapeGoesBackOneStepAtATime) {
  open({u"--demo"_s});
  shell->navigate(u"shows"_s);
  shell->activateSelection();
  app->playback().setExpanded(true);
  ASSERT_TRUE(app->showingEpisodes());
  shell->escape();
  EXPECT_FALSE(shell->expanded());
  EXPECT_TRUE(app->showingEpisodes());
  shell->escape();
  EXPECT_FALSE(app->showingEpisodes());
  EXPECT_EQ(shell->section(), u"shows"_s);
  shell->escape();
  EXPECT_EQ(shell->section(), u"live"_s);
}

TEST_F(ShellTest, ReactsToSectionAndSelection) {
  open({u"--demo"_s});
  int searchFocus = 0;
  QObject::connect(shell.get(), &TVShell::searchFocusRequested, shell.get(),
                   [&] { ++searchFocus; });
  shell->navigate(u"shows"_s);
  EXPECT_EQ(searchFocus, 0);
  shell->activateSelection();
  app->setEpisodeSeason(2);
  shell->moveSelection(Direction::Down, 1);
  EXPECT_EQ(app->episodeSeason(), 0);
  EXPECT_TRUE(app->showingEpisodes());
  shell->navigate(u"search"_s);
  EXPECT_FALSE(app->showingEpisodes());
  EXPECT_EQ(searchFocus, 1);
}

TEST_F(ShellTest, ShowsAndClearsTheNotice) {
  open({u"--demo"_s});
  EXPECT_EQ(shell->notice(), QString());
  shell->openRow(0);
  EXPECT_TRUE(shell->notice().startsWith(u"These are sample library entries."_s));
  shell->clearNotice();
  EXPECT_EQ(shell->notice(), QString());
}

// Six entries, as rows of four: 0 1 2 3 / 4 5.
struct Move {
  int from;  // -1: nothing selected
  Direction direction;
  int columns;
  int to;
};

class MoveTest : public ShellTest, public ::testing::WithParamInterface<Move> {};

TEST_P(MoveTest, ClampsWithoutWrappingAround) {
  const Move& move = GetParam();
  open({u"--demo"_s});
  shell->navigate(u"movies"_s);
  shell->selectRow(move.from);
  shell->moveSelection(move.direction, move.columns);
  EXPECT_EQ(selectedID(), u"movies:example-%1"_s.arg(move.to));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, MoveTest,
    ::testing::Values(Move{0, Direction::Left, 4, 0}, Move{0, Direction::Up, 4, 0},
                      Move{2, Direction::Up, 4, 0}, Move{5, Direction::Up, 4, 1},
                      Move{1, Direction::Down, 4, 5}, Move{3, Direction::Down, 4, 5},
                      Move{5, Direction::Right, 4, 5}, Move{3, Direction::Right, 4, 4},
                      Move{5, Direction::Down, 1, 5}, Move{2, Direction::Down, 1, 3},
                      Move{-1, Direction::Down, 1, 1}, Move{-1, Direction::Up, 1, 0}));

TEST_F(ShellTest, MovesOverAllEntriesBeyondTheRowsOfTheList) {
  open();
  signIn(rows(LibraryKind::live, 1, 3000));
  shell->selectRow(2499);
  shell->moveSelection(Direction::Down, 1);
  EXPECT_EQ(selectedID(), u"live:2501"_s);
  shell->moveSelection(Direction::Down, 5000);
  EXPECT_EQ(selectedID(), u"live:3000"_s);
}

TEST_F(ShellTest, AnEmptyListHasNothingToMoveOrActOn) {
  open();
  shell->moveSelection(Direction::Down, 1);
  shell->activateSelection();
  for (const int row : {-1, 0, 7}) {
    shell->selectRow(row);
    shell->openRow(row);
    shell->playRow(row);
    shell->favoriteRow(row);
  }
  EXPECT_EQ(selectedID(), QString());
  EXPECT_TRUE(app->favorites().empty());
  EXPECT_TRUE(engine.calls.isEmpty());
}

TEST_F(ShellTest, ReturnPlaysTheSelectedOrTheFirstEntry) {
  open();
  signIn(rows(LibraryKind::live, 1, 3));
  shell->activateSelection();
  EXPECT_EQ(selectedID(), u"live:1"_s);
  EXPECT_EQ(app->playback().itemID(), u"live:1"_s);
  shell->moveSelection(Direction::Down, 1);
  shell->activateSelection();
  EXPECT_EQ(app->playback().itemID(), u"live:2"_s);
}

TEST_F(ShellTest, ReturnOnAShowOpensItsEpisodesInsteadOfPlaying) {
  open({u"--demo"_s});
  shell->navigate(u"shows"_s);
  shell->activateSelection();
  EXPECT_EQ(selectedID(), u"shows:example-0"_s);
  EXPECT_TRUE(app->showingEpisodes());
  EXPECT_EQ(shell->notice(), QString());
}

}  // namespace
}  // namespace vantor
