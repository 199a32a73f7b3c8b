#include "screens/odd_names.h"
#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

/// Plays the movie of a row until it is one to be gone on with.
void begin(Stage& stage, int row) {
  TransportControls& transport = *stage.views().transport();
  const PlayerPane& pane = *stage.views().player();
  stage.views().shell()->playRow(row);
  stage.until("the picture", [&] { return pane.surfaceVisible() && !pane.loading(); });
  stage.until("its length", [&] { return transport.sliderEnd() > 50; });
  transport.beginSeek();
  transport.dragTo(25);
  transport.endSeek();
  stage.until("its entry", [&] { return stage.views().shell()->isBegunRow(row); });
}

void continueWatching(Album& album) {
  Stage stage(album);
  stage.signIn();
  stage.show(Section::movies);
  for (const int row : {5, 2, 9}) begin(stage, row);
  stage.settle();
  stage.shot(u"movies-begun"_s, u"A movie plays; what was begun is a category of its own"_s);
  stage.views().categories()->choose(1);
  stage.settle();
  stage.shot(u"movies-continue"_s, u"What was begun, the newest first"_s);
  stage.press(Qt::Key_Down);
  stage.press(Qt::Key_Menu);
  stage.settle();
  stage.shot(u"movies-continue-menu"_s, u"A movie can be taken out of them"_s);
  stage.press(Qt::Key_Escape);
  for (int left = 3; left > 0; --left) stage.views().shell()->stopContinuingRow(0);
  stage.settle();
  stage.shot(u"movies-continue-over"_s, u"All movies again, once nothing is left"_s);
}

}  // namespace

void posters(Album& album) {
  continueWatching(album);
  {
    Stage stage(album, {.movies = 80'000, .streams = false});
    stage.signIn();
    stage.provider().hold("get_vod_streams");
    stage.views().shell()->navigate(static_cast<int>(Section::movies));
    stage.untilAsked("get_vod_streams");
    stage.settle();
    stage.shot(u"movies-loading"_s, u"The movies are being loaded"_s);
    stage.provider().release("get_vod_streams");
    stage.until("the movies", [&] { return !stage.views().statusView()->loading(); });
    stage.settle();
    stage.settle();
    stage.shot(u"movies"_s, u"80,000 movies, the first one presented"_s);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Right);
    stage.settle();
    stage.shot(u"movies-highlight"_s, u"The highlight moved by keys"_s);
    stage.press(Qt::Key_Menu);
    stage.shot(u"movie-menu"_s, u"What can be done with a movie"_s);
    stage.press(Qt::Key_Escape);
    stage.views().categories()->choose(3);
    stage.settle();
    stage.shot(u"movies-category"_s, u"The movies of a category"_s);
  }
  {
    Stage stage(album, {.movies = 1, .streams = false});
    stage.signIn();
    stage.show(Section::movies);
    stage.shot(u"movies-one"_s, u"A single movie"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.signIn();
    stage.provider().setFault("get_vod_streams", sim::Fault::html);
    stage.show(Section::movies);
    stage.shot(u"movies-failed"_s, u"The movies cannot be loaded"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.signIn();
    stage.provider().setFault("poster", sim::Fault::status404);
    stage.show(Section::movies);
    stage.shot(u"movies-no-posters"_s, u"Placeholders where posters cannot be had"_s);
  }
  Stage stage(album, {.streams = false});
  stage.signIn();
  stage.provider().setBody("get_vod_streams", oddRows(sim::Kind::movie, stage.provider().url()));
  stage.show(Section::movies);
  stage.shot(u"movies-odd-names"_s, u"Names of every kind"_s);
}

void searchAndList(Album& album) {
  Stage stage(album, {.streams = false});
  stage.signIn();
  TVShell& shell = *stage.views().shell();
  stage.show(Section::favorites);
  stage.shot(u"my-list-empty"_s, u"My list without entries"_s);
  stage.show(Section::movies);
  for (const int row : {0, 3, 5, 8}) shell.favoriteRow(row);
  stage.show(Section::live);
  for (const int row : {1, 2}) shell.favoriteRow(row);
  stage.show(Section::shows);
  shell.favoriteRow(2);
  stage.show(Section::favorites);
  stage.shot(u"my-list"_s, u"Channels, movies and a show in My list"_s);
  stage.show(Section::search);
  stage.shot(u"search"_s, u"Search before a word is typed"_s);
  shell.setSearch(u"night"_s);
  stage.settle();
  stage.shot(u"search-results"_s, u"What was found in all libraries"_s);
  shell.setSearch(u"qqqq"_s);
  stage.settle();
  stage.shot(u"search-nothing"_s, u"Nothing was found"_s);
  shell.setSearch({});
  stage.show(Section::live);
  shell.setSearch(u"a"_s);
  stage.settle();
  stage.shot(u"channels-filtered"_s, u"Channels whose names match"_s);
}

}  // namespace vantor::screens
