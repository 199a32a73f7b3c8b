#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class ViewingHabitsTest : public ModelTest {
 protected:
  void play(const MediaItem& item) {
    model->play(item);
    settle();
  }
  Playback& playback() { return model->playback(); }
  PictureShape shapeOf(const MediaItem& item) {
    play(item);
    return playback().pictureShape();
  }
  void choose(const MediaItem& item, PictureShape shape) {
    play(item);
    playback().setPictureShape(shape);
  }
  QString shapesKey() { return u"shapes-"_s + model->session().account()->idText(); }
  /// As another version of the program or somebody's hand left it.
  void leave(const QString& key, const QStringList& list) {
    quit();
    Preferences(home.filePath(u"preferences.ini"_s)).setTextList(key, list);
  }

  const MediaItem movie = entry(LibraryKind::movies, 7);
  const MediaItem channel = entry(LibraryKind::live, 7);
};

TEST_F(ViewingHabitsTest, VolumeAndMutingComeBack) {
  const auto launched = [&](const QStringList& arguments = {}) {
    return launch(arguments).playback().transport()->volume();
  };
  EXPECT_EQ(launched(), 100);
  playback().setVolume(42.5);
  EXPECT_EQ(launched(), 42.5);
  playback().toggleMuted();
  EXPECT_EQ(launched(), 0);
  signIn();
  play(channel);
  EXPECT_TRUE(engine.calls.contains(u"setVolume 0"_s));
  playback().toggleMuted();
  EXPECT_EQ(playback().transport()->volume(), 42.5);
  playback().setVolume(0);
  signOut();
  EXPECT_EQ(launched(), 0);
  playback().toggleMuted();
  EXPECT_EQ(playback().transport()->volume(), 50) << "no volume is known that it had";
  EXPECT_EQ(launched({u"--demo"_s}), 100);
  playback().setVolume(1);
  EXPECT_EQ(launched(), 50) << "an isolated run keeps nothing";
}

TEST_F(ViewingHabitsTest, AVolumeThatIsNoneIsTheUsualOne) {
  const std::pair<QStringList, double> cases[] = {{{u"loud"_s}, 100},
                                                  {{u"nan"_s}, 100},
                                                  {{u""_s}, 100},
                                                  {{u"inf"_s, u"x"_s}, 100},
                                                  {{u"-3"_s}, 0},
                                                  {{u"1e9"_s}, 100},
                                                  {{u"30"_s, u"later"_s}, 30},
                                                  {{u"30"_s, u"muted"_s}, 0}};
  for (const auto& [stored, volume] : cases) {
    leave(u"volume"_s, stored);
    EXPECT_EQ(launch().playback().transport()->volume(), volume) << stored.join(u' ').toStdString();
  }
}

TEST_F(ViewingHabitsTest, ThePictureOfAnEntryKeepsItsShape) {
  launch();
  signIn();
  choose(movie, PictureShape::fill);
  EXPECT_EQ(shapeOf(channel), PictureShape::fit) << "another library, the same number";
  choose(channel, PictureShape::sixteenToNine);
  choose(entry(LibraryKind::shows, 8), PictureShape::stretch);
  playback().setPictureShape(PictureShape::fit);
  EXPECT_EQ(preferences->textList(shapesKey()),
            (QStringList{u"16:9 live:7"_s, u"fill movies:7"_s}));
  MediaItem nameless = movie;
  nameless.id.clear();
  choose(nameless, PictureShape::fourToThree);
  EXPECT_EQ(shapeOf(channel), PictureShape::sixteenToNine);
  EXPECT_EQ(shapeOf(nameless), PictureShape::fit);
  EXPECT_EQ(shapeOf(movie), PictureShape::fill);
  EXPECT_EQ(preferences->textList(shapesKey()), (QStringList{u"fill movies:7"_s, u"16:9 live:7"_s}))
      << "the one used last first";

  const QString before = shapesKey();
  signInAnew();
  EXPECT_NE(shapesKey(), before);
  EXPECT_EQ(shapeOf(movie), PictureShape::fill);
  EXPECT_TRUE(preferences->textList(before).isEmpty());
}

TEST_F(ViewingHabitsTest, TheLastChannelIsSelectedAfterALaunch) {
  const auto signInTo = [&](int channels) {
    always(LibraryKind::live, rows(LibraryKind::live, 1, channels));
    connectAccount(account);
    acceptSignIn();
    EXPECT_TRUE(idle());
    return selectedID();
  };
  const auto launched = [&] {
    launch();
    nameServer();
    EXPECT_TRUE(eventually([&] { return !model->session().restoringLibrary(); }) && idle());
    return selectedID();
  };
  launch();
  EXPECT_EQ(signInTo(9), u""_s);
  play(channel);
  play(movie);
  EXPECT_EQ(launched(), u"live:7"_s);
  model->select(item(1));
  model->navigate(Section::movies);
  model->navigate(Section::live);
  EXPECT_EQ(selectedID(), u"live:2"_s) << "later where the section was left";
  const std::tuple<QString, int, QString> signIns[] = {
      {account.username, 3, u""_s},  // the channel is gone
      {account.username, 9, u"live:7"_s},
      {u"other"_s, 9, u""_s},
  };
  for (const auto& [user, channels, selected] : signIns) {
    signOut();
    account = ProviderAccount::validated(account.name, account.serverText(), user, u"x"_s);
    EXPECT_EQ(signInTo(channels), selected);
  }
}

TEST_F(ViewingHabitsTest, ShapesAreBoundedAndUnknownOnesStay) {
  launch();
  signIn();
  QStringList rows = {u"round movies:7"_s, u"fill"_s, u""_s, u" "_s, u"fill movies:8"_s};
  for (int i = 0; i < 100'000; ++i) rows.append(u"stretch movies:%1"_s.arg(i + 100));
  preferences->setTextList(shapesKey(), rows);
  EXPECT_EQ(shapeOf(movie), PictureShape::fit);
  EXPECT_EQ(shapeOf(entry(LibraryKind::movies, 8)), PictureShape::fill);
  EXPECT_EQ(shapeOf(channel), PictureShape::fit);
  choose(channel, PictureShape::fill);
  const QStringList kept = preferences->textList(shapesKey());
  EXPECT_EQ(kept.size(), 300);
  EXPECT_EQ(kept.mid(0, 3),
            (QStringList{u"fill live:7"_s, u"fill movies:8"_s, u"round movies:7"_s}));
}

}  // namespace
}  // namespace vantor::test
