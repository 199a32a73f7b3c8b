#include <QDebug>
#include <QSet>

#include "support/model_fixture.h"
#include "support/model_signals.h"

namespace vantor::test {
namespace {

/// What a listener can read of the model.
QString state(const AppModel& app) {
  const Browsing& browsing = app.browsing();
  const Session& session = app.session();
  const Libraries& libraries = app.libraries();
  const ShowDetails& details = app.details();
  QString read;
  QDebug(&read) << static_cast<int>(browsing.section()) << browsing.category() << browsing.search()
                << browsing.selected().value_or(MediaItem()).id << browsing.items().size()
                << browsing.showingEpisodes() << browsing.episodeSeason()
                << browsing.browseAnchor(browsing.section()).value_or(QString())
                << (session.account() ? session.account()->idText() : QString())
                << session.signingInOrOut() << session.demo() << session.startingUp()
                << libraries.catalogs().size() << libraries.loading().size()
                << libraries.errors().size() << app.record().favorites().size()
                << app.record().begun() << details.episodes().size() << details.detailsLoading()
                << details.detailsError().value_or(QString()) << app.guide().guide().size()
                << app.notice().value_or(QString()) << app.showingConnect()
                << app.showingSettings();
  return read;
}

class Listener {
 public:
  explicit Listener(const AppModel& model)
      : model_(model), signals_(model, [this](const QByteArray& name) { heard(name); }) {}

  int rounds = 0;

 private:
  void heard(const QByteArray& name) {
    const QString now = state(model_);
    if (told_.isEmpty()) first_ = now;
    EXPECT_EQ(now, first_) << name.toStdString() << " came when not everything was changed";
    if (name == "settled") {
      EXPECT_FALSE(told_.isEmpty());
      told_.clear();
      ++rounds;
      return;
    }
    // Those of one channel each may come several times.
    const bool keyed = name.startsWith("guide") && name != "guideChanged";
    EXPECT_TRUE(keyed || !told_.contains(name)) << name.toStdString() << " came twice";
    told_.insert(name);
  }

  const AppModel& model_;
  QSet<QByteArray> told_;
  QString first_;
  const ModelSignals signals_;
};

struct AnnouncementTest : public ModelTest {};

TEST_F(AnnouncementTest, ChangesAreToldOnceAndWhole) {
  AppModel& app = launch();
  const Listener listener(app);
  const auto once = [&](const auto& change) {
    const int before = listener.rounds;
    change();
    EXPECT_LE(listener.rounds, before + 1);
  };
  once([&] { app.navigate(Section::movies); });
  once([&] { app.browsing().setSearch(u"title"_s); });
  signIn(rows(LibraryKind::live, 1, 9));
  always(LibraryKind::movies, rows(LibraryKind::movies, 1, 40));
  always(LibraryKind::shows, rows(LibraryKind::shows, 1, 2));
  transport.always(episodesRequest, R"({"episodes":{"1":[{"id":"5"}]}})");
  for (const Section section : {Section::movies, Section::shows, Section::live, Section::favorites,
                                Section::search, Section::movies}) {
    once([&] { app.navigate(section); });
    ASSERT_TRUE(idle());
    once([&] { app.browsing().setSearch(u"title 1"_s); });
    once([&] { app.setCategory(u"1"_s); });
    if (!app.browsing().items().empty()) once([&] { app.favorite(item(0)); });
    once([&] { app.browsing().setBrowseAnchor(app.browsing().section(), u"movies:1"_s); });
    once([&] { app.browsing().setShowingEpisodes(true); });
    once([&] { app.browsing().setEpisodeSeason(2); });
    // They would come in the middle of what follows; guides are not answered here.
    const bool isShow = selectedID().startsWith(u"shows:"_s);
    ASSERT_TRUE(eventually([&] { return !isShow || !app.details().detailsLoading(); }));
    once([&] { play(entry(LibraryKind::movies, 1)); });
    once([&] { app.playback().onProgress(u"movies:1"_s, 100, 1000); });
    once([&] { app.setCategory(Browsing::continueWatching); });
    once([&] { app.stopContinuing(u"movies:1"_s); });
    once([&] { app.setCategory(QString()); });
    once([&] { app.refreshGuide(); });
    settle();
  }
  once([&] { app.setShowingSettings(true); });
  once([&] { app.navigate(Section::favorites); });
  account.id = QUuid::createUuid();
  signIn(rows(LibraryKind::live, 1, 9));
  once([&] { app.navigate(Section::shows); });
  ASSERT_TRUE(idle());
  signOut();
  EXPECT_GT(listener.rounds, 60);
}

TEST_F(AnnouncementTest, NothingIsToldOfWhatStaysTheSame) {
  AppModel& app = launch();
  signIn(rows(LibraryKind::live, 1, 9));
  app.select(item(0));
  transport.answer(guideRequest, R"({"epg_listings":[]})");
  settle();
  const Listener listener(app);
  app.navigate(app.browsing().section());
  app.browsing().setSearch(app.browsing().search());
  app.setShowingConnect(false);
  app.clearNotice();
  app.load(LibraryKind::live, LoadMode::copyFirst);
  EXPECT_EQ(listener.rounds, 0);
}

/// A listener that acts on what it hears is heard of in its turn.
TEST_F(AnnouncementTest, WhatAListenerChangesFollows) {
  AppModel& app = launch({u"--demo"_s});
  QStringList heard;
  QObject::connect(&app.browsing(), &Browsing::sectionChanged, &app, [&] {
    app.browsing().setSearch(u"the"_s);
    heard.append(u"section"_s);
  });
  QObject::connect(&app.browsing(), &Browsing::itemsChanged, &app,
                   [&] { heard.append(QString::number(app.browsing().items().size())); });
  app.navigate(Section::movies);
  EXPECT_EQ(heard, (QStringList{u"section"_s, u"4"_s, u"4"_s}));
}

}  // namespace
}  // namespace vantor::test
