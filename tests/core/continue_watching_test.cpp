#include "support/model_fixture.h"

namespace vantor::test {
namespace {

constexpr double length = 5000;  // seconds

class ContinueWatchingTest : public ModelTest {
 protected:
  /// The movies 1 to 9 are shown.
  void start() {
    launch();
    signIn();
    always(LibraryKind::movies, rows(LibraryKind::movies, 1, 9));
    show(Section::movies);
  }
  void show(Section section) {
    model->navigate(section);
    ASSERT_TRUE(idle());
    settle();
  }
  void watch(const MediaItem& item, double seconds) {
    play(item);
    report(item.id, seconds);
  }
  void watch(int movie, double seconds) { watch(entry(LibraryKind::movies, movie), seconds); }
  void report(const QString& id, double seconds) {
    model->playback().onProgress(id, seconds, length);
  }
  QString begun() const { return model->record().begun().join(u", "_s); }
  QString category() const { return model->browsing().category(); }
  bool offered() const { return model->browsing().continueWatchingOffered(); }
};

TEST_F(ContinueWatchingTest, HoldsWhatWasBegunUntilItsEndNewestFirst) {
  start();
  const std::tuple<const char*, std::function<void()>, QString> steps[] = {
      {"a few seconds are no beginning", [&] { watch(2, 10); }, u""_s},
      {"going on is one", [&] { report(u"movies:2"_s, 10.5); }, u"movies:2"_s},
      {"another", [&] { watch(3, 100); }, u"movies:3, movies:2"_s},
      {"a late report changes no order", [&] { report(u"movies:2"_s, 99); },
       u"movies:3, movies:2"_s},
      {"the first again, at its start", [&] { watch(2, 0); }, u"movies:2, movies:3"_s},
      {"a channel", [&] { watch(entry(LibraryKind::live, 1), 50); }, u"movies:2, movies:3"_s},
      {"a late report of an end", [&] { report(u"movies:3"_s, length - 20); }, u"movies:2"_s},
      {"a restart", [&] { quit(), launch(); }, u"movies:2"_s},
      {"a sign-out", [&] { signOut(); }, u""_s},
      {"the same user again", [&] { account.id = QUuid::createUuid(), signIn(); }, u"movies:2"_s},
      {"the end", [&] { watch(2, length); }, u""_s},
  };
  for (const auto& [what, happens, expected] : steps) {
    happens();
    EXPECT_EQ(begun(), expected) << what;
  }
}

TEST_F(ContinueWatchingTest, EpisodesCountForTheirShow) {
  start();
  always(LibraryKind::shows, rows(LibraryKind::shows, 1, 3));
  const auto episode = [](int show, const QString& id) {
    MediaItem item = entry(LibraryKind::shows, show);
    item.showID = std::exchange(item.id, u"episode:"_s + id);
    return item;
  };
  EXPECT_FALSE(offered());
  for (const auto& [show, id] : {std::pair(3, u"31"_s), {1, u"11"_s}, {3, u"32"_s}})
    watch(episode(show, id), 100);
  EXPECT_FALSE(offered()) << "no movie was begun";
  show(Section::shows);
  model->setCategory(Browsing::continueWatching);
  EXPECT_EQ(listed(), u"shows:3, shows:1"_s);
  report(u"episode:32"_s, length);
  EXPECT_EQ(listed(), u"shows:1, shows:3"_s) << "for its other episode";
  model->stopContinuing(u"shows:3"_s);
  EXPECT_EQ(listed(), u"shows:1"_s);
  EXPECT_EQ(preferences->textList(u"watched-"_s + account.idText()),
            (QStringList{u"episode:11"_s, u"shows:1"_s}));
}

TEST_F(ContinueWatchingTest, IsACategoryThatIsLeftWhenNothingIsInIt) {
  const std::pair<const char*, std::function<void()>> ends[] = {
      {"the last one ends", [&] { report(u"movies:4"_s, length); }},
      {"the last one is removed", [&] { model->stopContinuing(u"movies:4"_s); }},
      {"the library has it no more",
       [&] {
         always(LibraryKind::movies, rows(LibraryKind::movies, 5, 9));
         model->load(LibraryKind::movies, LoadMode::refresh);
         idle();
       }},
      {"it ends elsewhere",
       [&] {
         show(Section::live);
         report(u"movies:4"_s, length);
         show(Section::movies);
       }},
  };
  for (const auto& [what, end] : ends) {
    SCOPED_TRACE(what);
    account.id = QUuid::createUuid();
    start();
    watch(4, 100);
    model->setCategory(Browsing::continueWatching);
    model->load(LibraryKind::movies, LoadMode::refresh);
    ASSERT_TRUE(idle());
    show(Section::live);
    EXPECT_FALSE(offered());
    show(Section::movies);
    EXPECT_EQ(listed(), u"movies:4"_s) << "what is refreshed and come back to";
    model->browsing().setSearch(u"title 5"_s);
    EXPECT_EQ(listed(), u""_s);
    EXPECT_EQ(category(), Browsing::continueWatching) << "a search leaves it empty, not gone";
    model->browsing().setSearch({});
    end();
    EXPECT_EQ(category(), u""_s);
    EXPECT_EQ(model->browsing().items().size(), 9u);
    EXPECT_EQ(selectedID(), u"movies:4"_s);
    model->setCategory(Browsing::continueWatching);
    EXPECT_EQ(category(), u""_s) << "it cannot be chosen";
  }
}

TEST_F(ContinueWatchingTest, WhatIsRemovedStaysOutUntilItIsPlayedAgain) {
  start();
  for (const int movie : {2, 4, 6}) watch(movie, 100);
  model->setCategory(Browsing::continueWatching);
  model->browsing().setSearch(u"title"_s);
  ASSERT_EQ(listed(), u"movies:6, movies:4, movies:2"_s);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(model->browsing().items().indexOf(item(i).id), i);
  model->select(item(1));
  model->stopContinuing(u"movies:6"_s);
  EXPECT_EQ(selectedID(), u"movies:4"_s) << "the highlight was elsewhere";
  model->stopContinuing(u"movies:4"_s);
  EXPECT_EQ(selectedID(), u"movies:2"_s) << "it goes to what is left";
  report(u"movies:6"_s, 200);
  launch();
  EXPECT_EQ(begun(), u"movies:2"_s) << "it plays on";
  EXPECT_EQ(model->record().resumePosition(u"movies:6"_s), 200);
  watch(6, 200);
  EXPECT_EQ(begun(), u"movies:6, movies:2"_s);
  for (int i = 0; i < 199; ++i) report(QString::number(i), 100);
  EXPECT_EQ(begun(), u""_s) << "no progress is known of them";
}

TEST_F(ContinueWatchingTest, ReadsWhateverIsStored) {
  credentials.put(providerItem, account.toJSON());
  QStringList many;
  for (int i = 0; i < 300; ++i) many << u"movies:%1"_s.arg(i) << u"movies:%1"_s.arg(i);
  const std::pair<std::optional<QStringList>, QString> cases[] = {
      {std::nullopt, u"movies:1, movies:2"_s},  // as the version before left it
      {QStringList(), u""_s},
      {{{u"movies:2"_s, u"movies:2"_s, u"movies:2"_s, u"shows:1"_s, u"movies:1"_s}}, u"movies:2"_s},
      {{{u"episode:1"_s, u"shows:1"_s, u"gone"_s, u"gone"_s}}, u"shows:1"_s},
      {many, u"movies:1, movies:2, movies:3"_s},
  };
  for (const auto& [stored, expected] : cases) {
    {
      Preferences left = leavePreferences();
      left.setNumberLists(u"progress-"_s + account.idText(), {{u"movies:2"_s, {61, 500}},
                                                              {u"movies:1"_s, {11, 500}},
                                                              {u"movies:3"_s, {0, 500}},
                                                              {u"episode:1"_s, {90, 500}}});
      const QString key = u"watched-"_s + account.idText();
      left.remove(key);
      if (stored) left.setTextList(key, *stored);
    }
    launch();
    EXPECT_EQ(begun(), expected);
  }
}

}  // namespace
}  // namespace vantor::test
