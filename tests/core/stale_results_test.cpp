// Answers that come when what asked for them is gone.
#include <QSemaphore>

#include "support/awaited.h"
#include "support/model_fixture.h"

namespace vantor::test {
namespace {

QByteArray seasons(const char* title) {
  return QByteArray("{\"1\":[{\"id\":7,\"title\":\"") + title + "\"}]}";
}

/// What is under way, and what ends that.
using StaleCase = std::tuple<std::string, std::string>;

class StaleResultTest : public ModelTest, public ::testing::WithParamInterface<StaleCase> {
 protected:
  const std::string work = std::get<0>(GetParam());
  const std::string departure = std::get<1>(GetParam());
  const MediaItem channel = entry(LibraryKind::live, 1);
  const MediaItem show = entry(LibraryKind::shows, 1);
  const QByteArray late = work.starts_with("Episodes") ? "{\"episodes\":" + seasons("late") + "}"
                          : work == "Library"          ? rows(LibraryKind::movies, 0, 3)
                                                       : guide({{"late one", 0s, 1h}});
  std::shared_ptr<FakeTransport::Exchange> request;  // whose answer comes too late
  QSemaphore reading;

  const std::map<std::string, std::function<void()>> works = {
      {"Library", [this] { request = askForMovies(); }},
      {"Episodes", [this] { request = ask([this] { model->select(show); }); }},
      {"EpisodesBeingRead",
       [this] {
         ask([this] { model->select(show); });
         worker.post([this] { reading.acquire(); });
         transport.answer(episodesRequest, late);
         settle();
       }},
      {"ShownGuide", [this] { request = ask([this] { model->select(channel); }); }},
      {"ShownGuideNotYetAskedFor", [this] { model->select(channel); }},
      {"GuideOfARow", [this] { request = ask([this] { model->guide().prefetchGuide(channel); }); }},
      {"GuideOfARowNotYetAskedFor", [this] { model->guide().prefetchGuide(channel); }},
  };
  const std::map<std::string, std::function<void()>> departures = {
      {"Connect", [this] { connectAccount(account), acceptSignIn(); }},
      {"Disconnect", [this] { signOut(); }},
      {"Destroy", [this] { model.reset(); }},
      {"Refresh", [this] { model->refreshGuide(); }},
      {"OtherShow", [this] { model->select(entry(LibraryKind::shows, 2)); }},
      {"SameShow", [this] { model->select(show); }},
      {"Movie", [this] { model->select(entry(LibraryKind::movies, 1)); }},
      {"Navigate", [this] { model->navigate(Section::favorites); }},
  };

  std::shared_ptr<FakeTransport::Exchange> ask(const std::function<void()>& begin) {
    begin();
    settle();
    return transport.exchanges().back();
  }
  std::shared_ptr<FakeTransport::Exchange> askForMovies() {
    model->load(LibraryKind::movies, LoadMode::copyFirst);
    EXPECT_TRUE(isAskedFor(LibraryKind::movies));
    return transport.exchanges().at(transport.exchanges().size() - 2);
  }
  bool hasMovies() const { return model->libraries().catalogs().contains(LibraryKind::movies); }
  void answerLate() {
    request->over = true;
    request->answer.resolve(late);
  }
  void expectNothing() {
    EXPECT_FALSE(hasMovies());
    // "My list" asks for every library.
    EXPECT_EQ(model->libraries().loading().contains(LibraryKind::movies), departure == "Navigate");
    EXPECT_TRUE(model->libraries().errors().empty());
    EXPECT_EQ(model->details().episodes(), QList<MediaItem>());
    EXPECT_EQ(model->details().detailsError(), std::nullopt);
    EXPECT_EQ(
        model->details().detailsLoading(),
        departure.ends_with("Show") || (departure == "Refresh" && work.starts_with("ShownGuide")));
    EXPECT_TRUE(model->guide().guide().isEmpty());
    EXPECT_EQ(model->guide().guideOf(channel.id), std::nullopt);
    EXPECT_FALSE(model->guide().guideFailed(channel.id));
  }
  void expectThatTheNextSucceeds() {
    askForMovies();
    answer(LibraryKind::movies, rows(LibraryKind::movies, 0, 2));
    EXPECT_TRUE(hasMovies());
    model->select(show);
    EXPECT_TRUE(model->details().detailsLoading()) << "the late answer is not kept";
    answerEpisodes(seasons("new"));
    EXPECT_EQ(model->details().episodes().value(0).name, u"new"_s);
    model->guide().prefetchGuide(channel);
    settle();
    transport.answer(guideRequest, guide({{"new one", 0s, 1h}}));
    EXPECT_TRUE(eventually([&] { return model->guide().guideOf(channel.id).has_value(); }));
  }
};

TEST_P(StaleResultTest, ChangesNothing) {
  launch();
  signIn();
  works.at(work)();
  // What changes at once can come while the answer is under way; the others take turns of their
  // own.
  const bool atOnce = departure != "Connect" && departure != "Disconnect";
  if (request && atOnce) answerLate();
  departures.at(departure)();
  if (request && !atOnce) {
    EXPECT_TRUE(request->cancelled) << "not worth finishing";
    answerLate();
  }
  reading.release();
  settle();
  awaited<Done>(worker.run([] {}));
  settle();
  if (!model) return;
  expectNothing();
  if (model->session().account()) expectThatTheNextSucceeds();
}

std::vector<StaleCase> everyCase() {
  std::vector<StaleCase> all;
  const auto add = [&](std::initializer_list<const char*> works,
                       std::initializer_list<const char*> departures) {
    for (const char* work : works)
      for (const char* departure : departures) all.emplace_back(work, departure);
  };
  add({"Library", "Episodes"}, {"Connect", "Disconnect", "Destroy"});
  // An answer to a sign-in would be read behind that of the episodes.
  add({"EpisodesBeingRead"}, {"Disconnect", "Destroy"});
  add({"Episodes", "EpisodesBeingRead"}, {"OtherShow", "SameShow", "Movie", "Navigate"});
  add({"ShownGuide", "ShownGuideNotYetAskedFor", "GuideOfARow", "GuideOfARowNotYetAskedFor"},
      {"Connect", "Disconnect", "Destroy", "Refresh"});
  return all;
}

INSTANTIATE_TEST_SUITE_P(All, StaleResultTest, ::testing::ValuesIn(everyCase()),
                         [](const auto& row) {
                           return std::get<0>(row.param) + "Before" + std::get<1>(row.param);
                         });

}  // namespace
}  // namespace vantor::test
