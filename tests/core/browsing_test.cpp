#include "support/model_fixture.h"

namespace vantor::test {
namespace {

/// The names in the list, each followed by a comma.
QString names(const AppModel& app) {
  QString list;
  for (std::size_t i = 0; i < app.browsing().items().size(); ++i)
    list += app.browsing().items().item(i).name + u',';
  return list;
}

class PreviewTest : public ModelTest {
 protected:
  AppModel& app = launch({u"--demo"_s});
};

TEST_F(PreviewTest, HoldsThreeLibrariesThatAreFilteredByCategoryAndSearch) {
  app.navigate(Section::movies);
  app.setCategory(u"2"_s);
  EXPECT_EQ(names(app), u"The long way home,A place to begin,Open horizons,"_s);
  app.browsing().setSearch(u"PLACE"_s);
  EXPECT_EQ(names(app), u"A place to begin,"_s);
  EXPECT_EQ(app.browsing().selected()->name, u"The long way home"_s);
  app.navigate(Section::search);
  app.browsing().setSearch(u"THE"_s);
  EXPECT_EQ(names(app),
            u"The outdoors,At the table,The quiet hour,Across the valley,The long way home,After "
            "the rain,The night garden,The art of living,Outside the frame,Along the coast,"_s);
}

/// Whatever was searched before, the list is that of the text, the section and the libraries.
TEST_F(PreviewTest, ASearchThatGoesOnFindsWhatOneFromTheStartFinds) {
  const auto type = [&](const QString& text) {
    app.browsing().setSearch(text);
    return names(app);
  };
  const auto fromTheStart = [&](const QString& text) {
    app.browsing().setSearch(QString());
    app.browsing().itemsDiffer();
    app.browsing().setSearch(text);
    return names(app);
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
  EXPECT_EQ(type(u"on"_s), horizons.name + u',') << "not what was there before it was added";
}

TEST_F(PreviewTest, ComesBackToWhereASectionWasLeft) {
  app.navigate(Section::movies);
  app.setCategory(u"1"_s);
  app.browsing().setSearch(u"the"_s);
  app.select(item(1));
  app.browsing().setBrowseAnchor(Section::movies, u"movies:example-2"_s);
  app.browsing().setShowingEpisodes(true);
  app.browsing().setEpisodeSeason(3);
  const MediaItem chosen = *app.browsing().selected();

  app.navigate(Section::live);
  EXPECT_EQ(app.browsing().category(), QString());
  EXPECT_EQ(app.browsing().search(), QString());
  EXPECT_FALSE(app.browsing().selected() || app.browsing().showingEpisodes() ||
               app.browsing().episodeSeason());
  app.navigate(Section::movies);
  EXPECT_EQ(app.browsing().category(), u"1"_s);
  EXPECT_EQ(app.browsing().search(), u"the"_s);
  EXPECT_EQ(app.browsing().selected(), chosen);
  EXPECT_EQ(app.browsing().browseAnchor(Section::movies), u"movies:example-2"_s);

  app.browsing().setShowingEpisodes(true);
  app.navigate(Section::movies);
  EXPECT_TRUE(app.browsing().showingEpisodes())
      << "navigating to the current section changes nothing";

  app.setCategory(u"none"_s);
  EXPECT_TRUE(app.browsing().items().empty());
  EXPECT_EQ(app.browsing().selected(), chosen) << "though the category has no entries";
  EXPECT_EQ(app.browsing().browseAnchor(Section::movies), std::nullopt);
}

TEST_F(PreviewTest, MyListHoldsTheMarkedEntriesOfAllLibrariesUntilASignIn) {
  app.navigate(Section::favorites);
  EXPECT_TRUE(app.browsing().items().empty());
  app.navigate(Section::shows);
  const MediaItem show = item(1);
  app.favorite(show);
  app.navigate(Section::live);
  const MediaItem channel = item(4);
  app.favorite(channel);
  app.navigate(Section::favorites);
  EXPECT_EQ(names(app), channel.name + u',' + show.name + u',');
  app.favorite(channel);
  EXPECT_EQ(names(app), show.name + u',');
  signIn();
  EXPECT_TRUE(app.record().favorites().isEmpty());
  EXPECT_FALSE(app.session().demo());
  EXPECT_TRUE(app.browsing().items().empty());
}

class LibraryTest : public ModelTest {
 protected:
  AppModel& app = launch();
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
  QStringList ids;
  for (std::size_t i = 0; i < app.browsing().items().size(); ++i) {
    ids.append(app.browsing().items().id(i));
    EXPECT_EQ(app.browsing().items().indexOf(ids.last()), i);
  }
  EXPECT_EQ(ids.join(u' '), u"live:1 live:2 movies:3 movies:4 shows:5"_s);
  app.browsing().setSearch(u"TITLE 4"_s);
  EXPECT_EQ(app.browsing().items().size(), 1u);
  EXPECT_EQ(app.browsing().items().indexOf(u"live:1"_s), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
