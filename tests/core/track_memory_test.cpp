#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class TrackMemoryTest : public ModelTest {
 protected:
  static MediaItem episode(int number, const QString& showID) {
    MediaItem item = entry(LibraryKind::shows, number);
    item.id = u"episode:%1"_s.arg(number);
    item.showID = showID;
    return item;
  }
  /// What the player asks for by itself in a source with these tracks; the first ones are in force.
  QStringList asked(const MediaItem& item, const QList<EngineTrack>& audio,
                    const QList<EngineTrack>& subtitles = {}) {
    model->play(item);
    settle();
    engine.takeCalls();
    engine.now.audioTracks = audio;
    engine.now.audioTrack = audio.isEmpty() ? -1 : audio.first().id;
    engine.now.subtitleTracks = subtitles;
    engine.now.subtitleTrack = subtitles.isEmpty() ? -1 : subtitles.first().id;
    clock.advance(250ms);
    clock.advance(250ms);
    return engine.takeCalls();
  }
  QString soundKey() { return u"sound-"_s + model->session().account()->idText(); }
  Playback& playback() { return model->playback(); }

  const MediaItem movie = entry(LibraryKind::movies, 7);
  const MediaItem other = entry(LibraryKind::movies, 8);
  const QList<EngineTrack> english = {{1, u"Track 1"_s, u"eng"_s}};
  const QList<EngineTrack> both = {{1, u"Track 1"_s, u"eng"_s}, {2, u"Track 2"_s, u"ger"_s}};
};

TEST_F(TrackMemoryTest, WhatTheUserChoseIsLookedForByShowAndInGeneral) {
  launch();
  signIn();
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

  const QString before = soundKey();
  signInAnew();
  EXPECT_NE(soundKey(), before);
  EXPECT_TRUE(preferences->textList(before).isEmpty());
  expected(episode(6, u"shows:4"_s), {u"setAudioTrack 2"_s, u"setSubtitleTrack -1"_s});
}

TEST_F(TrackMemoryTest, AChoiceOfTheSourceStandsHoweverItsTracksCome) {
  launch();
  signIn();
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

TEST_F(TrackMemoryTest, IsBoundedAndKeepsNoAddress) {
  launch();
  signIn();
  QStringList rows = {u""_s, u"fr"_s, u"fr\tx"_s, u"fr\t\tshows:3"_s, u"it\t\t"_s};
  for (int i = 0; i < 100'000; ++i) rows.append(u"de\t\tshows:%1"_s.arg(i + 100));
  preferences->setTextList(soundKey(), rows);
  EXPECT_EQ(asked(episode(1, u"shows:3"_s), {{1, {}, u"en"_s}, {2, {}, u"fra"_s}}),
            QStringList{u"setAudioTrack 2"_s});
  asked(episode(2, u"shows:4"_s),
        {{1, u"Track 1"_s}, {2, u"a"_s, u"deu"_s, u"http://u:p@h/\tx"_s}});
  playback().setAudioTrack(2);
  playback().setAudioTrack(1);
  const QStringList kept = preferences->textList(soundKey());
  EXPECT_EQ(kept.size(), 300);
  EXPECT_EQ(kept.mid(0, 2), (QStringList{u"\tTrack 1\tshows:4"_s, u"de\t\t"_s}))
      << "a number says nothing of other sources";
  EXPECT_FALSE(kept.contains(u"it\t\t"_s));
}

}  // namespace
}  // namespace vantor::test
