#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class PlaybackHandoffTest : public ModelTest {
 protected:
  AppModel& app = launch();
  const MediaItem movie = entry(LibraryKind::movies, 7);

  NumberLists stored() { return preferences->numberLists(u"progress-"_s + account.idText()); }
  void report(const QString& id, double seconds, double duration) {
    app.playback().onProgress(id, seconds, duration);
  }
};

TEST_F(PlaybackHandoffTest, AnEntryPlaysUnderItsAddressInAFormatOfTheSubscription) {
  MediaItem channel = entry(LibraryKind::live, 7);
  channel.fileExtension = u"m3u8"_s;
  const std::tuple<MediaItem, const char*, QString> cases[] = {
      {movie, R"(["m3u8","ts"])", u"movie/user/secret/7.mkv"_s},
      {channel, R"(["m3u8","ts"])", u"live/user/secret/7.m3u8"_s},
      {channel, R"(["ts"])", u"live/user/secret/7.ts"_s},
      {channel, "[]", u"live/user/secret/7.m3u8"_s},
  };
  for (const auto& [item, formats, path] : cases) {
    connectAccount(account);
    transport.answer(QString(), QByteArray(R"({"user_info":{"auth":1,"status":"Active",)"
                                           R"("allowed_output_formats":)") +
                                    formats + "}}");
    ASSERT_TRUE(eventually([&] { return signInOver; }));
    play(item);
    EXPECT_EQ(engine.source.address, QUrl(u"http://tv.example/"_s + path));
    EXPECT_EQ(engine.source.userAgent, u"VantorPlayerMac/0.1.0"_s);
    EXPECT_EQ(app.playback().title(), u"Title 7"_s);
    EXPECT_EQ(app.playback().itemID(), item.id);
    EXPECT_FALSE(app.playback().isLocal());
  }
}

TEST_F(PlaybackHandoffTest, RefusesWhatHasNoAddressAndSamples) {
  app.play(movie);
  EXPECT_EQ(app.notice(), std::nullopt) << "without an account nothing happens";
  signIn();
  MediaItem strange = movie;
  strange.providerID = u"7a"_s;
  app.play(strange);
  EXPECT_EQ(app.notice(), u"This provider item has an invalid playback address."_s);
  MediaItem sample = movie;
  sample.isExample = true;
  app.play(sample);
  EXPECT_EQ(app.notice(),
            u"These are sample library entries. Connect your provider or open your own media file "
            "to test playback."_s);
  settle();
  EXPECT_FALSE(app.playback().source());
}

TEST_F(PlaybackHandoffTest, RecordsHowFarEntriesWereWatchedButNotLocalFiles) {
  signIn();
  const QString id = u"movies:7"_s;
  const std::pair<double, double> positions[] = {
      {5400, 0}, {5380, 5380}, {5390, 0}};  // 20 seconds before the end is the end
  for (const auto& [reported, kept] : positions) {
    report(id, reported, 5410);
    EXPECT_EQ(stored(), (NumberLists{{id, {kept, 5410}}})) << reported;
  }
  for (int i = 1; i < 200; ++i) report(QString::number(i), 100, 1000);
  report(id, 110, 1000);
  EXPECT_EQ(stored().size(), 200);
  report(u"new"_s, 100, 1000);
  EXPECT_EQ(stored(), (NumberLists{{u"new"_s, {100, 1000}}}));

  app.openFile();
  settle();
  filePanel.choice.resolve(QUrl::fromLocalFile(u"/media/My film.part 1.mkv"_s));
  settle();
  EXPECT_EQ(app.playback().title(), u"My film.part 1"_s);
  EXPECT_EQ(app.playback().itemID(), u"local"_s);
  EXPECT_TRUE(app.playback().isLocal());
  report(u"local"_s, 100, 1000);
  EXPECT_EQ(stored().size(), 1);
}

TEST_F(PlaybackHandoffTest, ACancelledPanelChangesNothingAndOneIsOpenAtATime) {
  for (const int shown : {1, 2}) {
    for (int times = 0; times < 2; ++times) app.openFile(), settle();
    EXPECT_EQ(filePanel.shown, shown);
    filePanel.choice.resolve(std::nullopt);
    settle();
    EXPECT_FALSE(app.playback().source());
  }
  app.openFile();
  quit();
  EXPECT_EQ(filePanel.shown, 2) << "the program ended before its turn";
}

}  // namespace
}  // namespace vantor::test
