#include "ui/posters/poster_view.h"

#include <QAbstractItemModelTester>

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

class PosterViewTest : public ViewsTest {
 protected:
  /// Signs in and goes to a library of these entries.
  void openAt(LibraryKind kind, const QByteArray& entries, const QByteArray& categories = "[]") {
    open(0);
    goTo(kind, entries, categories);
  }
  void opened() override {
    shell = views->shell();
    view = views->posters();
    episodes = views->episodes();
  }
  void goTo(LibraryKind kind, const QByteArray& entries, const QByteArray& categories = "[]") {
    app->navigate(kind == LibraryKind::movies ? Section::movies : Section::shows);
    answer(kind, entries, categories);
  }
  /// What stands over the list: section, name, facts, description.
  QStringList hero() const {
    return {view->kicker(), view->name(), view->facts(), view->description()};
  }
  void openShow(const QByteArray& seasons) {
    shell->activateSelection();
    EXPECT_EQ(episodes->progress(), u"Loading episodes…"_s);
    EXPECT_EQ(episodes->emptyNote(), QString());
    answerEpisodes(seasons);
    EXPECT_EQ(episodes->progress(), QString());
  }
  QString labels() const { return read(*episodes, EpisodeListModel::LabelRole); }

  TVShell* shell = nullptr;
  PosterView* view = nullptr;
  EpisodeListModel* episodes = nullptr;
};

TEST_F(PosterViewTest, PresentsTheSectionOrItsFirstEntryUntilOneIsSelected) {
  const QString choose = u"Choose a title to watch or save it to My list."_s;
  open(0);
  app->navigate(Section::favorites);
  EXPECT_EQ(hero(), (QStringList{u"MY LIST"_s, u"My list"_s, u""_s, choose}));
  EXPECT_EQ(view->content(), PosterView::Content::Empty);
  EXPECT_EQ(view->keyRow(), -1);
  goTo(LibraryKind::movies, R"([
      {"stream_id":1,"name":"First","plot":"A plot.","year":"1999","rating":"7.5"},
      {"stream_id":2,"name":"Second","plot":"","rating":""}])");
  EXPECT_EQ(hero(), (QStringList{u"MOVIES"_s, u"First"_s, u"1999   ★ 7.5"_s, u"A plot."_s}));
  EXPECT_EQ(view->openLabel(), u"Play"_s);
  EXPECT_EQ(view->keyRow(), 0);

  view->choose(1);
  EXPECT_EQ(hero(), (QStringList{u"MOVIES"_s, u"Second"_s, u""_s, choose}));
  EXPECT_EQ(view->keyRow(), 1);
  view->choose(2);
  EXPECT_EQ(view->name(), u"Second"_s) << "there is no such row";

  view->toggleFavorite();
  EXPECT_EQ(view->favoriteSymbol(), u"bookmark.fill"_s);
  EXPECT_TRUE(app->record().favorites().contains(u"movies:2"_s));
}

TEST_F(PosterViewTest, APosterClosesTheEpisodes) {
  open({u"--demo"_s});
  app->navigate(Section::shows);
  EXPECT_EQ(view->facts(), u"Preview entry"_s);
  EXPECT_TRUE(view->description().startsWith(u"A sample title"_s));
  EXPECT_EQ(view->openLabel(), u"Episodes"_s);
  const std::function<void()> ways[] = {[&] { view->closeEpisodes(); }, [&] { view->choose(2); }};
  for (const auto& close : ways) {
    shell->activateSelection();
    EXPECT_EQ(view->content(), PosterView::Content::Episodes);
    EXPECT_TRUE(view->allShowsOffered());
    EXPECT_EQ(episodes->emptyNote(), u"Connect your provider to load this show's episodes."_s);
    close();
    EXPECT_EQ(view->content(), PosterView::Content::Grid);
    EXPECT_FALSE(view->allShowsOffered());
  }
}

TEST_F(PosterViewTest, SaysThatNotEveryEntryHasAPoster) {
  openAt(LibraryKind::movies, rows(LibraryKind::movies, 0, 2501));
  EXPECT_EQ(view->limitNote(),
            u"Showing 2,500 titles. Choose a category or search to narrow the results."_s);
  view->choose(2500);
  EXPECT_EQ(view->keyRow(), -1);
  goTo(LibraryKind::shows, rows(LibraryKind::shows, 0, 2500));
  EXPECT_EQ(view->limitNote(), QString());
}

TEST_F(PosterViewTest, TheGridFollowsTheSelectionAndReturnsToWhereItWas) {
  openAt(LibraryKind::movies, rows(LibraryKind::movies, 0, 100));
  QList<int> centered;
  QObject::connect(view, &PosterView::centerRequested, [&](int row) { centered.append(row); });
  view->choose(8);
  settle();
  EXPECT_EQ(centered, QList<int>{8});
  view->settledOn(60);
  view->settledOn(-1);
  EXPECT_EQ(app->browsing().browseAnchor(Section::movies), u"movies:60"_s)
      << "no entry leaves it unchanged";

  goTo(LibraryKind::shows, rows(LibraryKind::shows, 0, 100));
  EXPECT_EQ(centered.last(), -1) << "a section seen for the first time starts at its top";
  centered.clear();
  app->navigate(Section::movies);
  EXPECT_EQ(centered, QList<int>{60}) << "not the selection, which was scrolled away from";
  EXPECT_EQ(selectedID(), u"movies:8"_s);
  EXPECT_EQ(app->browsing().browseAnchor(Section::movies), u"movies:60"_s);

  app->browsing().setSearch(u"title 8"_s);
  settle();
  EXPECT_EQ(centered.last(), 0) << "without its anchor the list stands on the selection";
}

TEST_F(PosterViewTest, WhatWasBegunIsACategoryAfterTheOneForAll) {
  openAt(LibraryKind::movies, rows(LibraryKind::movies, 0, 5), R"([
      {"category_id":"1","category_name":"First"},{"category_id":"2","category_name":"Second"}])");
  CategoryListModel& categories = *views->categories();
  const QAbstractItemModelTester tester(&categories);
  const auto names = [&] { return read(categories, CategoryListModel::NameRole); };
  categories.choose(2);
  shell->playRow(0);
  settle();
  app->playback().onProgress(u"movies:2"_s, 100, 1000);
  EXPECT_EQ(names(), u"All movies,Continue watching,First,Second"_s);
  EXPECT_EQ(categories.currentRow(), 3) << "the one that was chosen";
  categories.choose(1);
  EXPECT_EQ(categories.currentRow(), 1);
  EXPECT_TRUE(shell->isBegunRow(0));
  shell->stopContinuingRow(0);
  EXPECT_EQ(names(), u"All movies,First,Second"_s);
  EXPECT_EQ(categories.currentRow(), 0);
  EXPECT_EQ(view->keyRow(), 2) << "the same movie among all of them";
  EXPECT_FALSE(shell->isBegunRow(2));
  app->navigate(Section::live);
  EXPECT_EQ(names(), u"All tv"_s);
}

TEST_F(PosterViewTest, EpisodesAreListedBySeasonOrItSaysWhyThereAreNone) {
  openAt(LibraryKind::shows, rows(LibraryKind::shows, 7, 4));
  openShow(R"({"2":[{"id":"21","title":"Later","season":2,"episode_num":3}],
               "1":[{"id":"11","title":"One","season":1,"episode_num":1},
                    {"id":"12","title":"Two","season":1,"episode_num":2}]})");
  EXPECT_EQ(episodes->seasons(), (QStringList{u"All seasons"_s, u"Season 1"_s, u"Season 2"_s}));
  EXPECT_EQ(episodes->seasonRow(), 0);
  EXPECT_EQ(labels(), u"S1 · E1,S1 · E2,S2 · E3"_s);
  episodes->chooseSeason(2);
  EXPECT_EQ(labels(), u"S2 · E3"_s);
  EXPECT_EQ(read(*episodes, EpisodeListModel::NameRole), u"Later"_s);
  episodes->chooseSeason(3);
  EXPECT_EQ(episodes->seasonRow(), 2) << "there is no such choice";
  episodes->play(1);
  EXPECT_FALSE(view->showsPlayer()) << "there is no such row";
  episodes->play(0);
  settle();
  EXPECT_TRUE(view->showsPlayer());
  EXPECT_EQ(app->playback().itemID(), u"episode:21"_s);
  EXPECT_EQ(read(*episodes, EpisodeListModel::IsPlayingRole), u"true"_s);

  shell->selectRow(1);
  EXPECT_EQ(episodes->seasonRow(), 0);
  EXPECT_EQ(labels(), QString());
  openShow("{}");
  EXPECT_EQ(episodes->emptyNote(), u"No episodes returned by this provider."_s);
  EXPECT_EQ(episodes->error(), QString());
  shell->selectRow(2);
  openShow("<html>");
  EXPECT_FALSE(episodes->error().isEmpty());

  QByteArrayList many;
  for (int i = 0; i < 10'000; ++i)
    many.append(R"({"id":")" + QByteArray::number(i) + R"(","title":"Part"})");
  shell->selectRow(3);
  openShow(R"({"all":[)" + many.join(',') + "]}");
  EXPECT_EQ(episodes->rowCount(), 10'000);
  EXPECT_EQ(episodes->seasons(), QStringList{u"All seasons"_s}) << "they have no numbers";
  EXPECT_TRUE(labels().endsWith(u",S1 · E1"_s));
}

}  // namespace
}  // namespace vantor::test
