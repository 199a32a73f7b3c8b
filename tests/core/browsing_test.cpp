#include <gtest/gtest.h>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;

QStringList names(const AppModel& app) {
  QStringList list;
  for (std::size_t i = 0; i < app.browsing().items().size(); ++i)
    list.append(app.browsing().items().item(i).name);
  return list;
}

class PreviewTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch({QStringLiteral("--demo")});
  MediaItem entry(Section section, int index) {
    app.navigate(section);
    return app.browsing().items().item(static_cast<std::size_t>(index));
  }
};

TEST_F(PreviewTest, HoldsThreeLibrariesOfSamples) {
  EXPECT_EQ(app.libraries().catalogs().size(), 3u);
  EXPECT_EQ(names(app),
            (QStringList{QStringLiteral("World window"), QStringLiteral("The outdoors"),
                         QStringLiteral("Studio sessions"), QStringLiteral("At the table"),
                         QStringLiteral("City stories"), QStringLiteral("The quiet hour")}));
  MediaItem expected;
  expected.id = QStringLiteral("shows:example-5");
  expected.providerID = QStringLiteral("5");
  expected.kind = LibraryKind::shows;
  expected.name = QStringLiteral("Extraordinary everyday");
  expected.category = QStringLiteral("2");
  expected.fileExtension = QStringLiteral("mp4");
  expected.isExample = true;
  EXPECT_EQ(entry(Section::shows, 5), expected);
}

TEST_F(PreviewTest, FiltersByCategoryAndSearch) {
  app.navigate(Section::movies);
  app.setCategory(QStringLiteral("2"));
  EXPECT_EQ(names(app),
            (QStringList{QStringLiteral("The long way home"), QStringLiteral("A place to begin"),
                         QStringLiteral("Open horizons")}));
  EXPECT_EQ(app.browsing().selected()->name, QStringLiteral("The long way home"));
  app.browsing().setSearch(QStringLiteral("PLACE"));
  EXPECT_EQ(names(app), QStringList{QStringLiteral("A place to begin")});
  app.navigate(Section::search);
  app.browsing().setSearch(QStringLiteral("THE"));
  EXPECT_EQ(names(app),
            (QStringList{QStringLiteral("The outdoors"), QStringLiteral("At the table"),
                         QStringLiteral("The quiet hour"), QStringLiteral("Across the valley"),
                         QStringLiteral("The long way home"), QStringLiteral("After the rain"),
                         QStringLiteral("The night garden"), QStringLiteral("The art of living"),
                         QStringLiteral("Outside the frame"), QStringLiteral("Along the coast")}));
}

TEST_F(PreviewTest, ComesBackToWhereASectionWasLeft) {
  app.navigate(Section::movies);
  app.setCategory(QStringLiteral("1"));
  app.browsing().setSearch(QStringLiteral("the"));
  app.select(app.browsing().items().item(1));
  app.browsing().setBrowseAnchor(Section::movies, QStringLiteral("movies:example-2"));
  app.browsing().setShowingEpisodes(true);
  app.browsing().setEpisodeSeason(3);
  const MediaItem chosen = *app.browsing().selected();

  app.navigate(Section::live);
  EXPECT_EQ(app.browsing().category(), QString());
  EXPECT_EQ(app.browsing().search(), QString());
  EXPECT_FALSE(app.browsing().selected() || app.browsing().showingEpisodes() ||
               app.browsing().episodeSeason());
  app.navigate(Section::movies);
  EXPECT_EQ(app.browsing().category(), QStringLiteral("1"));
  EXPECT_EQ(app.browsing().search(), QStringLiteral("the"));
  EXPECT_EQ(app.browsing().selected(), chosen);
  EXPECT_EQ(app.browsing().browseAnchor(Section::movies), QStringLiteral("movies:example-2"));

  app.browsing().setShowingEpisodes(true);
  app.navigate(Section::movies);
  EXPECT_TRUE(app.browsing().showingEpisodes())
      << "navigating to the current section changes nothing";
}

TEST_F(PreviewTest, ACategoryWithoutEntriesKeepsTheSelection) {
  app.select(app.browsing().items().item(2));
  app.browsing().setBrowseAnchor(Section::live, app.browsing().items().id(2));
  app.setCategory(QStringLiteral("none"));
  EXPECT_TRUE(app.browsing().items().empty());
  EXPECT_EQ(app.browsing().selected()->name, QStringLiteral("Studio sessions"));
  EXPECT_EQ(app.browsing().browseAnchor(Section::live), std::nullopt);
}

TEST_F(PreviewTest, MyListHoldsTheMarkedEntriesOfAllLibraries) {
  app.navigate(Section::favorites);
  EXPECT_TRUE(app.browsing().items().empty());
  const MediaItem show = entry(Section::shows, 1);
  const MediaItem channel = entry(Section::live, 4);
  app.favorite(show);
  app.favorite(channel);
  app.navigate(Section::favorites);
  EXPECT_EQ(names(app), (QStringList{channel.name, show.name}));
  app.favorite(channel);
  EXPECT_EQ(names(app), QStringList{show.name});
  app.browsing().setSearch(QStringLiteral("nothing like it"));
  EXPECT_TRUE(app.browsing().items().empty());
}

TEST_F(PreviewTest, SamplesAreNotPlayed) {
  app.play(app.browsing().items().item(0));
  EXPECT_EQ(app.notice(),
            QStringLiteral("These are sample library entries. Connect your provider or open your "
                           "own media file to test playback."));
  settle();
  EXPECT_TRUE(engine.calls.isEmpty());
  app.clearNotice();
  EXPECT_EQ(app.notice(), std::nullopt);
}

TEST_F(PreviewTest, FavouritesOfThePreviewAreGoneAfterSigningIn) {
  app.favorite(app.browsing().items().item(0));
  signIn();
  EXPECT_TRUE(app.record().favorites().isEmpty());
  EXPECT_FALSE(app.session().demo());
  EXPECT_TRUE(app.browsing().items().empty());
}

class LibraryTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch();
  void answer(LibraryKind kind, const QByteArray& body) {
    ASSERT_TRUE(eventually([&] { return transport.open(action(kind)) == 1; }));
    transport.answer(action(kind), body);
    transport.answer(categoryAction(kind), "[]");
    ASSERT_TRUE(eventually([&] { return !app.libraries().loading().contains(kind); }));
  }
};

TEST_F(LibraryTest, RestoresTheSelectionWhenItsLibraryArrives) {
  signIn(rows(LibraryKind::live, 0, 5));
  app.navigate(Section::movies);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 20));
  app.select(app.browsing().items().item(12));
  app.navigate(Section::live);
  app.load(LibraryKind::movies, LoadMode::refresh);
  app.navigate(Section::movies);
  EXPECT_EQ(app.browsing().selected()->id, QStringLiteral("movies:12"))
      << "from the library that is there";
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 20));
  app.navigate(Section::live);
  app.navigate(Section::movies);
  EXPECT_EQ(app.browsing().selected()->id, QStringLiteral("movies:12"));
  app.navigate(Section::live);
  app.load(LibraryKind::movies, LoadMode::refresh);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 50, 3));
  app.navigate(Section::movies);
  EXPECT_FALSE(app.browsing().selected().has_value()) << "an entry that is gone is not selected";
}

TEST_F(LibraryTest, SearchAsksForAllLibrariesAndListsThemInOrder) {
  signIn(rows(LibraryKind::live, 1, 2));
  app.navigate(Section::search);
  answer(LibraryKind::shows, rows(LibraryKind::shows, 5, 1));
  answer(LibraryKind::movies, rows(LibraryKind::movies, 3, 2));
  QStringList ids;
  for (std::size_t i = 0; i < app.browsing().items().size(); ++i)
    ids.append(app.browsing().items().id(i));
  EXPECT_EQ(ids, (QStringList{QStringLiteral("live:1"), QStringLiteral("live:2"),
                              QStringLiteral("movies:3"), QStringLiteral("movies:4"),
                              QStringLiteral("shows:5")}));
  for (int i = 0; i < static_cast<int>(ids.size()); ++i)
    EXPECT_EQ(app.browsing().items().indexOf(ids.at(i)), static_cast<std::size_t>(i));
  app.browsing().setSearch(QStringLiteral("TITLE 4"));
  EXPECT_EQ(app.browsing().items().size(), 1u);
  EXPECT_EQ(app.browsing().items().indexOf(QStringLiteral("live:1")), std::nullopt);
}

}  // namespace
}  // namespace vantor
