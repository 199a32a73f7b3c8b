// What the player remembers of how somebody watches: volume, sound, tracks, shapes and the last
// channel.
#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class RememberedTest : public ModelTest {
 protected:
  RememberedTest() {
    launch();
    signIn();
  }
  Playback& playback() { return model->playback(); }
  TransportState& transportState() { return *playback().transport(); }
  QString key(const QString& topic) { return topic + u'-' + model->session().account()->idText(); }

  /// Signs in as the same user with an account of another id, which takes over what is kept there.
  void signInAnew(const QString& topic) {
    const QString before = key(topic);
    signOut();
    account = ProviderAccount::validated(account.name, account.serverText(), account.username,
                                         u"another secret"_s);
    signIn();
    EXPECT_NE(key(topic), before);
    EXPECT_TRUE(preferences->textList(before).isEmpty());
  }
  double volumeAfterLaunch(const QStringList& arguments = {}) {
    launch(arguments);
    return transportState().volume();
  }
  PictureShape shapeOf(const MediaItem& item) {
    play(item);
    return playback().pictureShape();
  }
  void choose(const MediaItem& item, PictureShape shape) {
    play(item);
    playback().setPictureShape(shape);
  }
  /// What the engine is told of the sound when a source begins; the sound then goes to `device`.
  QStringList toldOfSound(const QString& device) {
    playback().stop();
    playMovie();
    engine.devices = {.present = {{u"tv"_s, u"TV"_s}, {u"bar"_s, u"Bar"_s}}, .inForce = device};
    clock.advance(250ms);
    return engine.takeCalls().filter(u"setAudioDe"_s);
  }
  static MediaItem episode(int number, const QString& showID) {
    MediaItem item = entry(LibraryKind::shows, number);
    item.id = u"episode:%1"_s.arg(number);
    item.showID = showID;
    return item;
  }
  /// What the player asks for by itself in a source with these tracks; the first ones are in force.
  QStringList asked(const MediaItem& item, const QList<EngineTrack>& audio,
                    const QList<EngineTrack>& subtitles = {}) {
    play(item);
    engine.takeCalls();
    engine.now.audioTracks = audio;
    engine.now.audioTrack = audio.isEmpty() ? -1 : audio.first().id;
    engine.now.subtitleTracks = subtitles;
    engine.now.subtitleTrack = subtitles.isEmpty() ? -1 : subtitles.first().id;
    clock.advance(500ms);
    return engine.takeCalls();
  }

  const MediaItem movie = entry(LibraryKind::movies, 7);
  const MediaItem other = entry(LibraryKind::movies, 8);
  const MediaItem channel = entry(LibraryKind::live, 7);
  const QList<EngineTrack> english = {{1, u"Track 1"_s, u"eng"_s}};
  const QList<EngineTrack> both = {{1, u"Track 1"_s, u"eng"_s}, {2, u"Track 2"_s, u"ger"_s}};
};

TEST_F(RememberedTest, VolumeAndMutingComeBack) {
  EXPECT_EQ(volumeAfterLaunch(), 100);
  playback().setVolume(42.5);
  EXPECT_EQ(volumeAfterLaunch(), 42.5);
  playback().toggleMuted();
  EXPECT_EQ(volumeAfterLaunch(), 0);
  play(movie);
  EXPECT_TRUE(engine.calls.contains(u"setVolume 0"_s));
  playback().toggleMuted();
  EXPECT_EQ(transportState().volume(), 42.5);
  playback().setVolume(0);
  EXPECT_EQ(volumeAfterLaunch(), 0);
  playback().toggleMuted();
  EXPECT_EQ(transportState().volume(), 50) << "no volume is known that it had";
  EXPECT_EQ(volumeAfterLaunch({u"--demo"_s}), 100);
  playback().setVolume(1);
  EXPECT_EQ(volumeAfterLaunch(), 50) << "an isolated run keeps nothing";
}

TEST_F(RememberedTest, AVolumeThatIsNoneIsTheUsualOne) {
  // As they are stored, apart by commas.
  const std::pair<QString, double> cases[] = {
      {u"loud"_s, 100}, {u"nan"_s, 100}, {u""_s, 100},        {u"inf,x"_s, 100},
      {u"-3"_s, 0},     {u"1e9"_s, 100}, {u"30,later"_s, 30}, {u"30,muted"_s, 0}};
  for (const auto& [stored, volume] : cases) {
    leavePreferences().setTextList(u"volume"_s, stored.split(u','));
    EXPECT_EQ(volumeAfterLaunch(), volume) << stored.toStdString();
  }
}

TEST_F(RememberedTest, ThePictureOfAnEntryKeepsItsShape) {
  choose(movie, PictureShape::fill);
  EXPECT_EQ(shapeOf(channel), PictureShape::fit) << "another library, the same number";
  choose(channel, PictureShape::sixteenToNine);
  choose(entry(LibraryKind::shows, 8), PictureShape::stretch);
  playback().setPictureShape(PictureShape::fit);
  EXPECT_EQ(preferences->textList(key(u"shapes"_s)),
            (QStringList{u"16:9 live:7"_s, u"fill movies:7"_s}));
  MediaItem nameless = movie;
  nameless.id.clear();
  choose(nameless, PictureShape::fourToThree);
  EXPECT_EQ(shapeOf(channel), PictureShape::sixteenToNine);
  EXPECT_EQ(shapeOf(nameless), PictureShape::fit);
  EXPECT_EQ(shapeOf(movie), PictureShape::fill);
  EXPECT_EQ(preferences->textList(key(u"shapes"_s)),
            (QStringList{u"fill movies:7"_s, u"16:9 live:7"_s}))
      << "the one used last first";

  signInAnew(u"shapes"_s);
  EXPECT_EQ(shapeOf(movie), PictureShape::fill);
}

TEST_F(RememberedTest, TheLastChannelIsSelectedAfterALaunch) {
  signOut();
  signIn(rows(LibraryKind::live, 1, 9));
  EXPECT_EQ(selectedID(), u""_s);
  play(channel);
  play(movie);
  launch();
  nameServer();
  EXPECT_TRUE(eventually([&] { return !model->session().restoringLibrary(); }) && idle());
  EXPECT_EQ(selectedID(), u"live:7"_s);
  model->select(item(1));
  model->navigate(Section::movies);
  model->navigate(Section::live);
  EXPECT_EQ(selectedID(), u"live:2"_s) << "later where the section was left";
  model->browsing().setSearch(u"Title 7"_s);
  model->navigate(Section::movies);
  model->navigate(Section::live);
  EXPECT_EQ(selectedID(), u""_s) << "which is not among those found";
  const std::tuple<QString, int, QString> signIns[] = {
      {account.username, 3, u""_s},  // the channel is gone
      {account.username, 9, u"live:7"_s},
      {u"other"_s, 9, u""_s},
  };
  for (const auto& [user, channels, selected] : signIns) {
    signOut();
    account = ProviderAccount::validated(account.name, account.serverText(), user, u"x"_s);
    signIn(rows(LibraryKind::live, 1, channels));
    EXPECT_EQ(selectedID(), selected);
  }
}

TEST_F(RememberedTest, ShapesAreBoundedAndUnknownOnesStay) {
  QStringList rows = {u"round movies:7"_s, u"fill"_s, u""_s, u" "_s, u"fill movies:8"_s};
  for (int i = 0; i < 100'000; ++i) rows.append(u"stretch movies:%1"_s.arg(i + 100));
  preferences->setTextList(key(u"shapes"_s), rows);
  EXPECT_EQ(shapeOf(movie), PictureShape::fit);
  EXPECT_EQ(shapeOf(other), PictureShape::fill);
  EXPECT_EQ(shapeOf(channel), PictureShape::fit);
  choose(channel, PictureShape::fill);
  const QStringList kept = preferences->textList(key(u"shapes"_s));
  EXPECT_EQ(kept.size(), 300);
  EXPECT_EQ(kept.mid(0, 3),
            (QStringList{u"fill live:7"_s, u"fill movies:8"_s, u"round movies:7"_s}));
}

TEST_F(RememberedTest, EachSoundDeviceHasItsDelay) {
  EXPECT_EQ(toldOfSound(u"tv"_s), QStringList());
  playback().setAudioDelay(-50);
  EXPECT_EQ(toldOfSound(u"bar"_s),
            (QStringList{u"setAudioDelay -50"_s, u"setAudioDelay -50"_s, u"setAudioDelay 0"_s}));
  playback().setAudioDelay(1'000'000);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDelay 2000"_s});
  playback().setAudioDevice(u"tv"_s);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDevice tv"_s});
  engine.devices.inForce = u"tv"_s;
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDelay -50"_s});

  launch();
  EXPECT_EQ(transportState().audioDelay(), -50);
  EXPECT_EQ(engine.takeCalls(), QStringList()) << "it would begin its work";
  EXPECT_EQ(toldOfSound(u"bar"_s),
            (QStringList{u"setAudioDevice tv"_s, u"setAudioDelay -50"_s, u"setAudioDelay 2000"_s}));
  playback().setAudioDevice({});
  launch();
  EXPECT_EQ(transportState().audioDevice(), QString());
}

TEST_F(RememberedTest, StoredSoundDelaysAreBounded) {
  NumberLists stored{{u""_s, {1e300}}, {u"tv"_s, {}}, {u"bar"_s, {-1e9, 1}}};
  for (int i = 0; i < 1000; ++i) stored.insert(QString::number(i), {25});
  leavePreferences().setNumberLists(u"sound-delays"_s, stored);
  launch();
  EXPECT_EQ(transportState().audioDelay(), 2000);
  toldOfSound(u"bar"_s);
  EXPECT_EQ(transportState().audioDelay(), -2000);
  EXPECT_EQ(preferences->numberLists(u"sound-delays"_s).size(), 2);
  toldOfSound(u"tv"_s);
  EXPECT_EQ(transportState().audioDelay(), 0);
}

TEST_F(RememberedTest, ChosenTracksAreLookedForByShowAndInGeneral) {
  EXPECT_EQ(asked(movie, both, both), QStringList()) << "what the player takes is not chosen";
  playback().setAudioTrack(2);
  EXPECT_EQ(asked(episode(1, u"shows:3"_s), both), QStringList{u"setAudioTrack 2"_s});
  playback().setAudioTrack(1);
  EXPECT_EQ(asked(episode(2, u"shows:4"_s), both, both), QStringList());
  playback().setAudioTrack(2);
  playback().setSubtitleTrack(-1);
  EXPECT_EQ(asked(other, english), QStringList()) << "nothing to turn off, and no such language";
  playback().setSubtitleTrack(-1);
  EXPECT_EQ(asked(episode(3, u"shows:3"_s), both), QStringList()) << "English, of this show";
  asked(other, both, both);
  playback().setSubtitleTrack(2);

  launch();
  const auto expected = [&](const MediaItem& item, const QStringList& calls) {
    EXPECT_EQ(asked(item, both, both), calls) << item.id.toStdString();
  };
  expected(movie, {u"setAudioTrack 2"_s, u"setSubtitleTrack 2"_s});
  expected(episode(4, u"shows:4"_s), {u"setAudioTrack 2"_s, u"setSubtitleTrack -1"_s});
  expected(episode(5, u"shows:3"_s), {u"setSubtitleTrack 2"_s});

  signInAnew(u"sound"_s);
  expected(episode(6, u"shows:4"_s), {u"setAudioTrack 2"_s, u"setSubtitleTrack -1"_s});
}

TEST_F(RememberedTest, ASignInFromThePreviewTakesAllOver) {
  choose(channel, PictureShape::fill);
  asked(movie, both);
  playback().setAudioTrack(2);
  launch({u"--demo"_s});
  account = ProviderAccount::validated(account.name, account.serverText(), account.username,
                                       u"another secret"_s);
  signIn();
  launch();
  EXPECT_EQ(preferences->text(key(u"channel"_s)), channel.id);
  EXPECT_EQ(shapeOf(channel), PictureShape::fill);
  EXPECT_EQ(asked(movie, both), QStringList{u"setAudioTrack 2"_s});
}

TEST_F(RememberedTest, ATrackChosenInTheSourceStandsHoweverItsTracksCome) {
  asked(movie, both);
  playback().setAudioTrack(2);
  EXPECT_EQ(asked(other, {}), QStringList());
  engine.now.audioTracks = english;
  clock.advance(250ms);
  engine.now.audioTracks = both;
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 2"_s}) << "known only now";
  playback().setAudioTrack(1);
  clock.advance(1s);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 1"_s});
  playback().reopen(0);
  settle();
  engine.takeCalls();
  engine.now.audioTracks = both;
  engine.now.audioTrack = 2;
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 1"_s}) << "comes back with it";

  const EngineTrack same = {8, u"Deutsch"_s, u"deu"_s};
  asked(movie, {{7, same.name, same.language}, same});
  playback().setAudioTrack(8);
  engine.now.audioTrack = 8;
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioTrack 8"_s}) << "not one that is like it";
}

TEST_F(RememberedTest, ChosenTracksAreBoundedAndKeepNoAddress) {
  QStringList rows = {u""_s, u"fr"_s, u"fr\tx"_s, u"fr\t\tshows:3"_s, u"it\t\t"_s};
  for (int i = 0; i < 100'000; ++i) rows.append(u"de\t\tshows:%1"_s.arg(i + 100));
  preferences->setTextList(key(u"sound"_s), rows);
  EXPECT_EQ(asked(episode(1, u"shows:3"_s), {{1, {}, u"en"_s}, {2, {}, u"fra"_s}}),
            QStringList{u"setAudioTrack 2"_s});
  asked(episode(2, u"shows:4"_s),
        {{1, u"Track 1"_s}, {2, u"a"_s, u"deu"_s, u"http://u:p@h/\tx"_s}});
  playback().setAudioTrack(2);
  playback().setAudioTrack(1);
  const QStringList kept = preferences->textList(key(u"sound"_s));
  EXPECT_EQ(kept.size(), 300);
  EXPECT_EQ(kept.mid(0, 2), (QStringList{u"\tTrack 1\tshows:4"_s, u"de\t\t"_s}))
      << "a number says nothing of other sources";
  EXPECT_FALSE(kept.contains(u"it\t\t"_s));
}

}  // namespace
}  // namespace vantor::test
