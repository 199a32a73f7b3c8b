#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class PreviewTest : public ModelTest {
 protected:
  AppModel& app = launch({u"--demo"_s});
  Browsing& browsing = app.browsing();

  QString names() const { return listed(&MediaItem::name); }
};

/// Whatever was searched before, the list is that of the text, the section and the libraries.
TEST_F(PreviewTest, ASearchThatGoesOnFindsWhatOneFromTheStartFinds) {
  const auto type = [&](const QString& text) {
    browsing.setSearch(text);
    return names();
  };
  const auto fromTheStart = [&](const QString& text) {
    browsing.setSearch(QString());
    browsing.itemsDiffer();
    browsing.setSearch(text);
    return names();
  };
  for (const Section section : {Section::search, Section::movies, Section::favorites}) {
    app.navigate(section);
    QStringList typed;
    const QStringList texts{u"t"_s,  u"TH"_s, u"the"_s, u"the "_s, u"the q"_s, u"the"_s, u"e"_s,
                            u"he"_s, u"he"_s, u"x"_s,   u"xy"_s,   QString(),  u"o"_s,   u"fo"_s};
    for (const QString& text : texts) typed.append(type(text));
    for (const QString& text : texts)
      EXPECT_EQ(typed.takeFirst(), fromTheStart(text)) << qPrintable(text);
  }
  app.navigate(Section::search);
  type(u"t"_s);
  app.navigate(Section::movies);
  const QString typedThere = type(u"the"_s);
  EXPECT_EQ(typedThere, fromTheStart(u"the"_s));
  app.navigate(Section::favorites);
  EXPECT_EQ(type(u"o"_s), QString());
  const MediaItem horizons = app.libraries().catalog(LibraryKind::movies).item(5);
  app.favorite(horizons);
  EXPECT_EQ(type(u"on"_s), horizons.name) << "not what was there before it was added";
}

TEST_F(PreviewTest, ComesBackToWhereASectionWasLeft) {
  app.navigate(Section::movies);
  app.setCategory(u"1"_s);
  browsing.setSearch(u"the"_s);
  app.select(item(1));
  browsing.setBrowseAnchor(Section::movies, u"movies:example-2"_s);
  browsing.setShowingEpisodes(true);
  browsing.setEpisodeSeason(3);
  const MediaItem chosen = *browsing.selected();

  app.navigate(Section::live);
  EXPECT_EQ(browsing.category(), QString());
  EXPECT_EQ(browsing.search(), QString());
  EXPECT_FALSE(browsing.selected() || browsing.showingEpisodes() || browsing.episodeSeason());
  app.navigate(Section::movies);
  EXPECT_EQ(browsing.category(), u"1"_s);
  EXPECT_EQ(browsing.search(), u"the"_s);
  EXPECT_EQ(browsing.selected(), chosen);
  EXPECT_EQ(browsing.browseAnchor(Section::movies), u"movies:example-2"_s);

  browsing.setShowingEpisodes(true);
  app.navigate(Section::movies);
  EXPECT_TRUE(browsing.showingEpisodes()) << "navigating to the current section changes nothing";

  app.setCategory(u"none"_s);
  EXPECT_TRUE(browsing.items().empty());
  EXPECT_EQ(browsing.selected(), chosen) << "though the category has no entries";
  EXPECT_EQ(browsing.browseAnchor(Section::movies), std::nullopt);
}

TEST_F(PreviewTest, MyListHoldsTheMarkedEntriesOfAllLibrariesUntilASignIn) {
  app.navigate(Section::favorites);
  EXPECT_TRUE(browsing.items().empty());
  app.navigate(Section::shows);
  const MediaItem show = item(1);
  app.favorite(show);
  app.navigate(Section::live);
  const MediaItem channel = item(4);
  app.favorite(channel);
  app.navigate(Section::favorites);
  EXPECT_EQ(names(), channel.name + u", "_s + show.name);
  app.favorite(channel);
  EXPECT_EQ(names(), show.name);
  signIn();
  EXPECT_TRUE(app.record().favorites().isEmpty());
  EXPECT_FALSE(app.session().demo());
  EXPECT_TRUE(browsing.items().empty());
}

class LibraryTest : public ModelTest {
 protected:
  AppModel& app = launch();
  Browsing& browsing = app.browsing();
};

TEST_F(LibraryTest, RestoresTheSelectionWhenItsLibraryArrives) {
  signIn(rows(LibraryKind::live, 0, 5));
  app.navigate(Section::movies);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 20));
  app.select(item(12));
  app.navigate(Section::live);
  app.load(LibraryKind::movies, LoadMode::refresh);
  app.navigate(Section::movies);
  EXPECT_EQ(selectedID(), u"movies:12"_s) << "from the library that is there";
  answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 20));
  app.navigate(Section::live);
  app.navigate(Section::movies);
  EXPECT_EQ(selectedID(), u"movies:12"_s);
  app.navigate(Section::live);
  app.load(LibraryKind::movies, LoadMode::refresh);
  answer(LibraryKind::movies, rows(LibraryKind::movies, 50, 3));
  app.navigate(Section::movies);
  EXPECT_EQ(selectedID(), QString()) << "an entry that is gone is not selected";
}

TEST_F(LibraryTest, SearchAsksForAllLibrariesAndListsThemInOrder) {
  signIn(rows(LibraryKind::live, 1, 2));
  app.navigate(Section::search);
  answer(LibraryKind::shows, rows(LibraryKind::shows, 5, 1));
  answer(LibraryKind::movies, rows(LibraryKind::movies, 3, 2));
  EXPECT_EQ(listed(), u"live:1, live:2, movies:3, movies:4, shows:5"_s);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(browsing.items().indexOf(item(i).id), i);
  browsing.setSearch(u"TITLE 4"_s);
  EXPECT_EQ(browsing.items().size(), 1u);
  EXPECT_EQ(browsing.items().indexOf(u"live:1"_s), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
