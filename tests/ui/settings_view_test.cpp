#include "ui/settings_view.h"

#include <gtest/gtest.h>

#include "platform/opener.h"
#include "support/model_fixture.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

struct RecordingOpener final : Opener {
  void open(const QUrl& address) override { opened.append(address); }
  QList<QUrl> opened;
};

class SettingsViewTest : public ::testing::Test, protected test::ModelFixture {
 protected:
  void SetUp() override {
    app = &launch();
    view = std::make_unique<SettingsView>(
        *app, opener, SettingsLinks{QUrl(u"https://support.example/"_s), u"/share/vantor"_s});
    app->setShowingSettings(true);
  }
  void TearDown() override { view.reset(); }

  QStringList texts() const {
    QStringList list;
    for (const QVariant& block : view->blocks())
      list.append(block.toMap().value(u"text"_s).toString());
    return list;
  }
  void choose(const QString& text) {
    const qsizetype index = texts().indexOf(text);
    ASSERT_GE(index, 0) << text.toStdString() << " is not on the page";
    view->activate(static_cast<int>(index));
  }

  RecordingOpener opener;
  AppModel* app = nullptr;
  std::unique_ptr<SettingsView> view;
};

TEST_F(SettingsViewTest, LeadsFromTheMainPageToEachSectionAndBackOut) {
  for (const QString& page : {u"Playlists"_s, u"Playback"_s, u"TV guide"_s, u"About"_s}) {
    EXPECT_EQ(view->page(), u"Settings"_s);
    EXPECT_EQ(view->backLabel(), u"Done"_s);
    choose(page);
    EXPECT_EQ(view->page(), page);
    EXPECT_EQ(view->backLabel(), u"Back"_s);
    EXPECT_FALSE(texts().isEmpty());
    view->back();
  }
  EXPECT_TRUE(app->showingSettings());
  view->back();
  EXPECT_FALSE(app->showingSettings());
  choose(u"About"_s);
  app->setShowingSettings(true);
  EXPECT_EQ(view->page(), u"Settings"_s);
}

TEST_F(SettingsViewTest, SaysWhichProviderIsConnected) {
  choose(u"Playlists"_s);
  EXPECT_EQ(texts().first(), u"No provider connected"_s);
  EXPECT_EQ(texts().size(), 5);
  connectAccount(account);
  transport.answer(QString(),
                   R"({"user_info":{"auth":1,"status":"Active","max_connections":"3"}})");
  ASSERT_TRUE(test::eventually([&] { return app->account().has_value(); }));
  EXPECT_EQ(texts().first(), u"Vantor TV"_s);
  EXPECT_EQ(texts().at(2), u"Provider connection limit: 3"_s);
}

TEST_F(SettingsViewTest, RefreshesEveryLibraryAndSaysSoUntilThePageChanges) {
  signIn();
  choose(u"Playlists"_s);
  choose(u"Refresh playlists"_s);
  EXPECT_EQ(app->loading().size(), 3u);
  EXPECT_EQ(view->message(), u"Refresh requested. Your saved library remains available."_s);
  view->back();
  EXPECT_EQ(view->message(), QString());
}

TEST_F(SettingsViewTest, ActsThroughTheModelAndTheDesktop) {
  choose(u"About"_s);
  choose(u"Open-source licenses"_s);
  choose(u"Help & support"_s);
  EXPECT_EQ(opener.opened, (QList<QUrl>{QUrl(u"file:///share/vantor/Licenses"_s),
                                        QUrl(u"https://support.example/"_s)}));
  view->activate(0);
  view->activate(99);
  EXPECT_EQ(view->page(), u"About"_s);
  view->back();
  choose(u"Playback"_s);
  choose(u"Open media file"_s);
  EXPECT_TRUE(test::eventually([&] { return filePanel.shown == 1; }));
  view->back();
  choose(u"Playlists"_s);
  choose(u"Xtream Codes parameters"_s);
  EXPECT_FALSE(app->showingSettings());
  EXPECT_TRUE(app->showingConnect());

  SettingsView without(*app, opener, SettingsLinks{QUrl(u"https://support.example/"_s), {}});
  without.activate(3);
  without.activate(3);
  EXPECT_EQ(opener.opened.size(), 2);
}

TEST_F(SettingsViewTest, RemovesTheProviderOnlyWhenConfirmed) {
  signIn(rows(LibraryKind::live, 1, 2));
  app->setShowingSettings(true);
  choose(u"Playlists"_s);
  choose(u"Remove saved provider"_s);
  EXPECT_TRUE(view->confirmingRemoval());
  view->cancelRemoval();
  test::settle();
  EXPECT_FALSE(view->confirmingRemoval());
  EXPECT_TRUE(app->account());
  EXPECT_EQ(app->items().size(), 2u);

  choose(u"Remove saved provider"_s);
  view->removeProvider();
  ASSERT_TRUE(test::eventually([&] { return !app->account() && !app->busy(); }));
  EXPECT_FALSE(app->showingSettings());
  EXPECT_FALSE(view->confirmingRemoval());
  EXPECT_FALSE(credentials.value(u"provider"_s));
}

}  // namespace
}  // namespace vantor
