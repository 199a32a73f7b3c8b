#include "core/episode_queue.h"

#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class EpisodeQueueTest : public ModelTest {
 protected:
  EpisodeQueueTest() {
    signIn();
    always(LibraryKind::shows, rows(LibraryKind::shows, 1, 2));
    app.navigate(Section::shows);
    EXPECT_TRUE(idle());
  }
  void openShow(std::size_t row, const QByteArray& seasons) {
    app.select(item(row));
    answerEpisodes(seasons);
  }
  void play(const MediaItem& item) {
    app.play(item);
    settle();
  }
  QString playing() const { return app.playback().itemID().value_or(QString()); }

  AppModel& app = launch();
  EpisodeQueue queue{app};
};

TEST_F(EpisodeQueueTest, FollowsTheShowThatWasStarted) {
  EXPECT_FALSE(queue.playNext());
  openShow(0, R"({"1":[{"id":"11","episode_num":1},{"id":"12","episode_num":2}],
                  "2":[{"id":"21","episode_num":1}]})");
  EXPECT_EQ(queue.next(), std::nullopt);
  const MediaItem first = app.details().episodes().first();
  play(first);
  openShow(1, R"({"1":[{"id":"91","episode_num":1},{"id":"92","episode_num":2}]})");
  for (const char* id : {"episode:12", "episode:21"}) {
    EXPECT_TRUE(queue.playNext());
    settle();
    EXPECT_EQ(playing(), QString::fromLatin1(id)) << "of the show that plays, over its seasons";
  }
  EXPECT_FALSE(queue.playNext());
  EXPECT_EQ(playing(), u"episode:21"_s);

  const std::function<void()> ends[] = {[&] { playMovie(); }, [&] { app.playback().stop(); },
                                        [&] { signOut(); }};
  for (const auto& end : ends) {
    play(app.details().episodes().first());
    EXPECT_EQ(queue.next().value_or(MediaItem()).id, u"episode:92"_s);
    end();
    settle();
    EXPECT_EQ(queue.next(), std::nullopt);
    EXPECT_FALSE(queue.playNext());
  }
}

}  // namespace
}  // namespace vantor::test
