#include "ui/posters/poster_view.h"

#include <QAbstractItemModelTester>

#include "support/model_fixture.h"
#include "ui/episodes/episode_list_model.h"
#include "ui/posters/category_list_model.h"
#include "ui/shell/tv_shell.h"

namespace vantor::test {
namespace {

class PosterViewTest : public ModelTest {
 protected:
  /// Signs in and goes to a library of these entries.
  void open(LibraryKind kind, const QByteArray& entries) {
    open();
    signIn();
    show(kind, entries);
  }
  void open(const QStringList& arguments = {}) {
    launch(arguments);
    shell = std::make_unique<TVShell>(*model);
    view = std::make_unique<PosterView>(*model);
    episodes = std::make_unique<EpisodeListModel>(*model);
    QObject::connect(view.get(), &PosterView::centerRequested,
                     [this](int row) { centered.append(row); });
  }
  void show(LibraryKind kind, const QByteArray& entries) {
    model->navigate(kind == LibraryKind::movies ? Section::movies : Section::shows);
    answer(kind, entries);
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
  }
  static QStringList read(const QAbstractItemModel& list, int role) {
    QStringList texts;
    for (int row = 0; row < list.rowCount(); ++row)
      texts.append(list.data(list.index(row, 0), role).toString());
    return texts;
  }

  std::unique_ptr<TVShell> shell;
  std::unique_ptr<PosterView> view;
  std::unique_ptr<EpisodeListModel> episodes;
  QList<int> centered;
};

TEST_F(PosterViewTest, PresentsTheSectionOrItsFirstEntryUntilOneIsSelected) {
  const QString choose = u"Choose a title to watch or save it to My list."_s;
  open();
  model->navigate(Section::favorites);
  EXPECT_EQ(hero(), (QStringList{u"MY LIST"_s, u"My list"_s, u""_s, choose}));
  EXPECT_FALSE(view->hasHero());
  EXPECT_EQ(view->content(), PosterView::Content::Empty);
  EXPECT_EQ(view->keyRow(), -1);
  open(LibraryKind::movies, R"([
      {"stream_id":1,"name":"First","plot":"A plot.","year":"1999","rating":"7.5"},
      {"stream_id":2,"name":"Second","plot":"","rating":""},
      {"stream_id":3,"name":"Third","year":"2004"}])");
  EXPECT_EQ(hero(), (QStringList{u"MOVIES"_s, u"First"_s, u"1999   ★ 7.5"_s, u"A plot."_s}));
  EXPECT_EQ(view->openLabel(), u"Play"_s);
  EXPECT_EQ(view->keyRow(), 0);
  EXPECT_FALSE(view->allShowsOffered());

  view->choose(1);
  EXPECT_EQ(hero(), (QStringList{u"MOVIES"_s, u"Second"_s, u""_s, choose}));
  EXPECT_EQ(view->keyRow(), 1);
  view->choose(3);
  EXPECT_EQ(view->name(), u"Second"_s) << "there is no such row";

  EXPECT_EQ(view->favoriteSymbol(), u"bookmark"_s);
  view->toggleFavorite();
  EXPECT_EQ(view->favoriteSymbol(), u"bookmark.fill"_s);
  EXPECT_TRUE(model->record().favorites().contains(u"movies:2"_s));

  EXPECT_FALSE(view->showsPlayer());
  shell->activateSelection();
  settle();
  EXPECT_TRUE(view->showsPlayer());
}

TEST_F(PosterViewTest, SampleEntriesSaySo) {
  open({u"--demo"_s});
  model->navigate(Section::shows);
  EXPECT_EQ(view->facts(), u"Preview entry"_s);
  EXPECT_EQ(
      view->description(),
      u"A sample title for exploring the Vantor interface. No playable content is included."_s);
  EXPECT_EQ(view->openLabel(), u"Episodes"_s);
  shell->activateSelection();
  EXPECT_EQ(view->content(), PosterView::Content::Episodes);
  EXPECT_TRUE(view->allShowsOffered());
  EXPECT_EQ(episodes->emptyNote(), u"Connect your provider to load this show's episodes."_s);
  view->closeEpisodes();
  EXPECT_EQ(view->content(), PosterView::Content::Grid);
  EXPECT_FALSE(view->allShowsOffered());
  shell->activateSelection();
  view->choose(2);
  EXPECT_EQ(view->content(), PosterView::Content::Grid) << "a poster closes the episodes";
}

TEST_F(PosterViewTest, SaysThatNotEveryEntryHasAPoster) {
  open(LibraryKind::movies, rows(LibraryKind::movies, 0, 2501));
  EXPECT_EQ(view->limitNote(),
            u"Showing 2,500 titles. Choose a category or search to narrow the results."_s);
  view->choose(2500);
  EXPECT_EQ(view->keyRow(), -1);
  show(LibraryKind::shows, rows(LibraryKind::shows, 0, 2500));
  EXPECT_EQ(view->limitNote(), QString());
}

TEST_F(PosterViewTest, TheGridFollowsTheSelectionAndReturnsToWhereItWas) {
  open(LibraryKind::movies, rows(LibraryKind::movies, 0, 100));
  centered.clear();
  view->choose(8);
  settle();
  EXPECT_EQ(centered, QList<int>{8});
  view->settledOn(60);
  view->settledOn(-1);
  EXPECT_EQ(model->browsing().browseAnchor(Section::movies), u"movies:60"_s)
      << "no entry leaves it unchanged";

  show(LibraryKind::shows, rows(LibraryKind::shows, 0, 100));
  EXPECT_EQ(centered.last(), -1) << "a section seen for the first time starts at its top";
  centered.clear();
  model->navigate(Section::movies);
  EXPECT_EQ(centered, QList<int>{60}) << "not the selection, which was scrolled away from";
  EXPECT_EQ(model->browsing().selected()->id, u"movies:8"_s);
  EXPECT_EQ(model->browsing().browseAnchor(Section::movies), u"movies:60"_s);

  model->browsing().setSearch(u"title 8"_s);
  settle();
  EXPECT_EQ(centered.last(), 0) << "without its anchor the list stands on the selection";
}

TEST_F(PosterViewTest, WhatWasBegunIsACategoryAfterTheOneForAll) {
  open();
  signIn();
  CategoryListModel categories(*model);
  const QAbstractItemModelTester tester(&categories);
  model->navigate(Section::movies);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 5), R"([
      {"category_id":"1","category_name":"First"},{"category_id":"2","category_name":"Second"}])");
  const auto names = [&] { return read(categories, CategoryListModel::NameRole).join(u','); };
  categories.choose(2);
  EXPECT_FALSE(shell->isBegunRow(0));
  shell->playRow(0);
  settle();
  model->playback().onProgress(u"movies:2"_s, 100, 1000);
  EXPECT_EQ(names(), u"All movies,Continue watching,First,Second"_s);
  EXPECT_EQ(categories.currentRow(), 3) << "the one that was chosen";
  categories.choose(1);
  EXPECT_EQ(categories.currentRow(), 1);
  EXPECT_EQ(view->keyRow(), 0);
  EXPECT_TRUE(shell->isBegunRow(0));
  shell->stopContinuingRow(0);
  EXPECT_EQ(names(), u"All movies,First,Second"_s);
  EXPECT_EQ(categories.currentRow(), 0);
  EXPECT_EQ(view->keyRow(), 2) << "the same movie among all of them";
}

TEST_F(PosterViewTest, EpisodesAreListedBySeason) {
  open(LibraryKind::shows, rows(LibraryKind::shows, 7, 2));
  openShow(R"({"2":[{"id":"21","title":"Later","season":2,"episode_num":3}],
               "1":[{"id":"11","title":"One","season":1,"episode_num":1},
                    {"id":"12","title":"Two","season":1,"episode_num":2}]})");
  EXPECT_EQ(episodes->seasons(), (QStringList{u"All seasons"_s, u"Season 1"_s, u"Season 2"_s}));
  EXPECT_EQ(episodes->seasonRow(), 0);
  EXPECT_EQ(read(*episodes, EpisodeListModel::LabelRole).size(), 3);
  EXPECT_EQ(episodes->emptyNote(), QString());

  episodes->chooseSeason(2);
  EXPECT_EQ(read(*episodes, EpisodeListModel::LabelRole), QStringList{u"S2 · E3"_s});
  EXPECT_EQ(read(*episodes, EpisodeListModel::NameRole), QStringList{u"Later"_s});
  episodes->chooseSeason(3);
  EXPECT_EQ(episodes->seasonRow(), 2) << "there is no such choice";
  episodes->play(1);
  EXPECT_FALSE(view->showsPlayer()) << "there is no such row";
  episodes->play(0);
  settle();
  EXPECT_EQ(model->playback().itemID(), u"episode:21"_s);
  EXPECT_TRUE(episodes->data(episodes->index(0), EpisodeListModel::IsPlayingRole).toBool());

  shell->selectRow(1);
  EXPECT_EQ(episodes->seasonRow(), 0);
  EXPECT_EQ(episodes->rowCount(), 0);
}

TEST_F(PosterViewTest, SaysWhyThereAreNoEpisodesAndListsThoseWithoutSeason) {
  open(LibraryKind::shows, rows(LibraryKind::shows, 7, 3));
  openShow("{}");
  EXPECT_EQ(episodes->progress(), QString());
  EXPECT_EQ(episodes->emptyNote(), u"No episodes returned by this provider."_s);
  EXPECT_EQ(episodes->error(), QString());
  shell->selectRow(1);
  openShow("<html>");
  EXPECT_EQ(episodes->error(), *model->details().detailsError());
  EXPECT_FALSE(episodes->error().isEmpty());
  QByteArrayList many;
  for (int i = 0; i < 10'000; ++i)
    many.append(R"({"id":")" + QByteArray::number(i) + R"(","title":"Part"})");
  shell->selectRow(2);
  openShow(R"({"all":[)" + many.join(',') + "]}");
  ASSERT_EQ(episodes->rowCount(), 10'000);
  EXPECT_EQ(episodes->seasons(), QStringList{u"All seasons"_s}) << "they have no numbers";
  EXPECT_EQ(read(*episodes, EpisodeListModel::LabelRole).last(), u"S1 · E1"_s);
}

}  // namespace
}  // namespace vantor::test
