#include <gtest/gtest.h>

#include <QMetaMethod>
#include <QSet>

#include "support/model_fixture.h"

namespace vantor {
namespace {

using test::eventually;
using test::settle;

/// What a listener can read of the model.
QStringList state(const AppModel& model) {
  const auto text = [](const auto& value) { return value ? *value : QString(); };
  QStringList read = {
      QString::number(static_cast<int>(model.browsing().section())),
      model.browsing().category(),
      model.browsing().search(),
      model.browsing().selected() ? model.browsing().selected()->id : QString(),
      model.session().account() ? model.session().account()->idText() : QString(),
      text(model.notice()),
      text(model.details().detailsError()),
      model.browsing().browseAnchor(model.browsing().section()).value_or(QString())};
  for (const auto number :
       {static_cast<qsizetype>(model.browsing().items().size()),
        static_cast<qsizetype>(model.libraries().catalogs().size()),
        static_cast<qsizetype>(model.libraries().loading().size()),
        static_cast<qsizetype>(model.libraries().errors().size()),
        model.record().favorites().size(), model.details().episodes().size(),
        model.guide().guide().size(), static_cast<qsizetype>(model.browsing().episodeSeason()),
        static_cast<qsizetype>(model.session().signingInOrOut()),
        static_cast<qsizetype>(model.session().demo()),
        static_cast<qsizetype>(model.details().detailsLoading()),
        static_cast<qsizetype>(model.browsing().showingEpisodes()),
        static_cast<qsizetype>(model.showingConnect()),
        static_cast<qsizetype>(model.showingSettings()),
        static_cast<qsizetype>(model.session().startingUp())})
    read.append(QString::number(number));
  return read;
}

/// Hears every signal of the model and its topics.
class Listener final : public QObject {
  Q_OBJECT

 public:
  explicit Listener(AppModel& model) : model_(model) {
    const QMetaMethod heard = staticMetaObject.method(staticMetaObject.indexOfSlot("heard()"));
    for (const QObject* topic : std::initializer_list<const QObject*>{
             &model, &model.session(), &model.libraries(), &model.record(), &model.browsing(),
             &model.guide(), &model.details()}) {
      const QMetaObject& type = *topic->metaObject();
      for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        if (type.method(i).methodType() == QMetaMethod::Signal)
          connect(topic, type.method(i), this, heard);
    }
  }

  int rounds = 0;

 public Q_SLOTS:
  void heard() {
    const QByteArray name = sender()->metaObject()->method(senderSignalIndex()).name();
    const QStringList now = state(model_);
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

 private:
  AppModel& model_;
  QSet<QByteArray> told_;
  QStringList first_;
};

struct AnnouncementTest : public ::testing::Test, protected test::ModelFixture {
  void load(LibraryKind kind, const QByteArray& body) {
    transport.always(action(kind), body);
    transport.always(categoryAction(kind), "[]");
  }
};

TEST_F(AnnouncementTest, ChangesAreToldOnceAndWhole) {
  AppModel& app = launch();
  const Listener listener(app);
  app.navigate(Section::movies);
  app.browsing().setSearch(QStringLiteral("title"));
  signIn(rows(LibraryKind::live, 1, 9));
  load(LibraryKind::movies, rows(LibraryKind::movies, 1, 40));
  load(LibraryKind::shows, rows(LibraryKind::shows, 1, 2));
  transport.always(QStringLiteral("get_series_info"), R"({"episodes":{"1":[{"id":"5"}]}})");
  for (const Section section : {Section::movies, Section::shows, Section::live, Section::favorites,
                                Section::search, Section::movies}) {
    app.navigate(section);
    ASSERT_TRUE(eventually([&] { return app.libraries().loading().empty(); }));
    app.browsing().setSearch(QStringLiteral("title 1"));
    app.setCategory(QStringLiteral("1"));
    if (!app.browsing().items().empty()) app.favorite(app.browsing().items().item(0));
    app.browsing().setBrowseAnchor(app.browsing().section(), QStringLiteral("movies:1"));
    app.browsing().setShowingEpisodes(true);
    app.browsing().setEpisodeSeason(2);
    settle();
    app.setCategory(QString());
    app.refreshGuide();
    settle();
  }
  app.setShowingSettings(true);
  app.navigate(Section::favorites);
  account.id = QUuid::createUuid();
  signIn(rows(LibraryKind::live, 1, 9));
  app.navigate(Section::shows);
  ASSERT_TRUE(eventually([&] { return app.libraries().loading().empty(); }));
  disconnectAccount();
  ASSERT_TRUE(
      eventually([&] { return !app.session().account() && !app.session().signingInOrOut(); }));
  EXPECT_GT(listener.rounds, 60);
}

TEST_F(AnnouncementTest, NothingIsToldOfWhatStaysTheSame) {
  AppModel& app = launch();
  signIn(rows(LibraryKind::live, 1, 9));
  app.select(app.browsing().items().item(0));
  transport.answer(QStringLiteral("get_short_epg"), R"({"epg_listings":[]})");
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
  AppModel& app = launch({QStringLiteral("--demo")});
  QStringList heard;
  QObject::connect(&app.browsing(), &Browsing::sectionChanged, &app, [&] {
    app.browsing().setSearch(QStringLiteral("the"));
    heard.append(QStringLiteral("section"));
  });
  QObject::connect(&app.browsing(), &Browsing::itemsChanged, &app,
                   [&] { heard.append(QString::number(app.browsing().items().size())); });
  app.navigate(Section::movies);
  EXPECT_EQ(heard,
            (QStringList{QStringLiteral("section"), QStringLiteral("4"), QStringLiteral("4")}));
}

TEST(ItemListTest, AnIndexThatItDoesNotHaveIsRefused) {
#ifdef QT_NO_DEBUG
  EXPECT_EQ(ItemList().item(0), MediaItem());
  EXPECT_EQ(ItemList().id(3), QString());
#else
  EXPECT_DEATH(ItemList().item(0), "index");
#endif
}

}  // namespace
}  // namespace vantor

#include "announcement_test.moc"
