#include <gtest/gtest.h>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;

class PlaybackHandoffTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  AppModel& app = launch();

  static MediaItem movie(const QString& id) {
    MediaItem item;
    item.id = QStringLiteral("movies:") + id;
    item.providerID = id;
    item.kind = LibraryKind::movies;
    item.name = QStringLiteral("Film ") + id;
    item.fileExtension = QStringLiteral("mkv");
    return item;
  }
  NumberLists stored() {
    return preferences->numberLists(QStringLiteral("progress-") + account.idText());
  }
  void report(const QString& id, double seconds, double duration) {
    app.playback().onProgress(id, seconds, duration);
  }
};

TEST_F(PlaybackHandoffTest, PlaysAnEntryUnderItsStreamAddress) {
  signIn();
  app.play(movie(QStringLiteral("7")));
  settle();
  EXPECT_EQ(engine.source.address,
            QUrl(QStringLiteral("http://tv.example/movie/user/secret/7.mkv")));
  EXPECT_EQ(engine.source.userAgent, QStringLiteral("VantorPlayerMac/0.1.0"));
  EXPECT_EQ(app.playback().title(), QStringLiteral("Film 7"));
  EXPECT_EQ(app.playback().itemID(), QStringLiteral("movies:7"));
  EXPECT_FALSE(app.playback().isLocal());
}

TEST_F(PlaybackHandoffTest, ChannelsFollowTheFormatsOfTheSubscription) {
  struct Case {
    const char* formats;
    const char* extension;
  };
  const Case cases[] = {{"[\"m3u8\",\"ts\"]", "m3u8"}, {"[\"ts\"]", "ts"}, {"[]", "m3u8"}};
  MediaItem channel = movie(QStringLiteral("7"));
  channel.kind = LibraryKind::live;
  channel.fileExtension = QStringLiteral("m3u8");
  for (const Case& example : cases) {
    connectAccount(account);
    transport.answer(QString(), QByteArray("{\"user_info\":{\"auth\":1,\"status\":\"Active\","
                                           "\"allowed_output_formats\":") +
                                    example.formats + "}}");
    ASSERT_TRUE(eventually([&] { return signInOver; }));
    app.play(channel);
    settle();
    EXPECT_EQ(engine.source.address.fileName(),
              QStringLiteral("7.") + QString::fromLatin1(example.extension));
  }
}

TEST_F(PlaybackHandoffTest, RefusesWhatHasNoAddress) {
  app.play(movie(QStringLiteral("7")));
  EXPECT_EQ(app.notice(), std::nullopt) << "without an account nothing happens";
  signIn();
  app.play(movie(QStringLiteral("7a")));
  EXPECT_EQ(app.notice(), QStringLiteral("This provider item has an invalid playback address."));
  settle();
  EXPECT_FALSE(app.playback().source());
}

TEST_F(PlaybackHandoffTest, RecordsHowFarAnEntryWasWatched) {
  signIn();
  const QString id = QStringLiteral("movies:7");
  report(id, 5400, 5410);
  EXPECT_EQ(stored(), (NumberLists{{id, {0, 5410}}}));
  report(id, 5380, 5410);
  EXPECT_EQ(stored(), (NumberLists{{id, {5380, 5410}}}));
  report(id, 5390, 5410);
  EXPECT_EQ(stored(), (NumberLists{{id, {0, 5410}}})) << "20 seconds before the end is the end";
}

TEST_F(PlaybackHandoffTest, ProgressStaysBoundedAndLocalFilesLeaveNone) {
  signIn();
  for (int i = 0; i < 200; ++i) report(QString::number(i), 100, 1000);
  EXPECT_EQ(stored().size(), 200);
  report(QStringLiteral("0"), 110, 1000);
  EXPECT_EQ(stored().size(), 200);
  report(QStringLiteral("new"), 100, 1000);
  EXPECT_EQ(stored(), (NumberLists{{QStringLiteral("new"), {100, 1000}}}));

  app.openFile();
  settle();
  filePanel.choice.resolve(QUrl::fromLocalFile(QStringLiteral("/media/My film.part 1.mkv")));
  settle();
  EXPECT_EQ(app.playback().title(), QStringLiteral("My film.part 1"));
  EXPECT_EQ(app.playback().itemID(), QStringLiteral("local"));
  EXPECT_TRUE(app.playback().isLocal());
  report(QStringLiteral("local"), 100, 1000);
  EXPECT_EQ(stored().size(), 1);
}

TEST_F(PlaybackHandoffTest, ACancelledPanelChangesNothingAndOneIsOpenAtATime) {
  app.openFile();
  settle();
  app.openFile();
  settle();
  EXPECT_EQ(filePanel.shown, 1);
  filePanel.choice.resolve(std::nullopt);
  settle();
  EXPECT_FALSE(app.playback().source());
  app.openFile();
  settle();
  EXPECT_EQ(filePanel.shown, 2);
}

TEST_F(PlaybackHandoffTest, FavouritesAreStoredWithEachToggle) {
  signIn();
  const QString key = QStringLiteral("favorites-") + account.idText();
  app.favorite(movie(QStringLiteral("7")));
  EXPECT_EQ(preferences->textList(key), QStringList{QStringLiteral("movies:7")});
  app.favorite(movie(QStringLiteral("7")));
  EXPECT_TRUE(preferences->textList(key).isEmpty());
  EXPECT_TRUE(app.record().favorites().isEmpty());
}

}  // namespace
}  // namespace vantor
