#include "ui/settings/settings_view.h"

#include "ui/views_fixture.h"

namespace vantor::test {
namespace {

class SettingsViewTest : public ViewsTest {
 protected:
  void SetUp() override {
    open();
    view = views->settingsView();
    app->setShowingSettings(true);
  }
  QStringList texts() {
    QStringList list;
    for (const QVariant& block : view->blocks())
      list.append(block.toMap().value(u"text"_s).toString());
    return list;
  }
  /// One row after the other.
  void activate(const QStringList& rows) {
    for (const QString& row : rows) {
      const auto index = texts().indexOf(row);
      ASSERT_GE(index, 0) << row.toStdString();
      view->activate(static_cast<int>(index));
    }
  }

  SettingsView* view = nullptr;
};

TEST_F(SettingsViewTest, EscLeadsFromAPageToTheMainOneAndOut) {
  EXPECT_EQ(texts(), (QStringList{u"Playlists"_s, u"Playback"_s, u"TV guide"_s, u"About"_s}));
  EXPECT_EQ(view->backLabel(), u"Done"_s);
  for (const QString& page : texts()) {
    activate({page});
    EXPECT_EQ(view->title(), page);
    EXPECT_FALSE(view->blocks().isEmpty());
    EXPECT_EQ(view->backLabel(), u"Back"_s);
    view->back();
    EXPECT_EQ(view->title(), u"Settings"_s);
  }
  view->back();
  EXPECT_FALSE(app->showingSettings());
  activate({u"Playback"_s});
  app->setShowingSettings(true);
  EXPECT_EQ(view->title(), u"Settings"_s) << "opens at the main page";
}

TEST_F(SettingsViewTest, PlaylistsShowTheAccountAndRemoveItWhenThatIsConfirmed) {
  const auto expectNone = [&] {
    activate({u"Playlists"_s});
    EXPECT_EQ(texts().first(), u"No provider connected"_s);
    EXPECT_EQ(texts().filter(u"limit"_s), QStringList());
  };
  expectNone();
  connectAccount(account);
  transport.answer(QString(), R"({"user_info":{"auth":1,"status":"Active","max_connections":2}})");
  ASSERT_TRUE(eventually([&] { return signInOver; }));
  EXPECT_EQ(texts().first(), u"Vantor TV"_s);
  EXPECT_EQ(texts().filter(u"limit"_s), QStringList{u"Provider connection limit: 2"_s});

  activate({u"Remove saved provider"_s});
  EXPECT_TRUE(view->confirmingRemoval());
  view->cancelRemoval();
  settle();
  EXPECT_FALSE(view->confirmingRemoval());
  EXPECT_TRUE(app->session().account());
  activate({u"Remove saved provider"_s});
  view->removeProvider();
  ASSERT_TRUE(eventually([&] { return !app->session().account(); }) && idle());
  EXPECT_FALSE(app->showingSettings());
  expectNone();
}

TEST_F(SettingsViewTest, RefreshAsksForAllLibrariesOrTheGuideAndSaysSo) {
  signIn(rows(LibraryKind::live, 0, 1));
  activate({u"Playlists"_s, u"Refresh playlists"_s});
  EXPECT_EQ(app->libraries().loading().size(), 3u);
  EXPECT_EQ(view->message(), u"Refresh requested. Your saved library remains available."_s);
  view->back();
  EXPECT_EQ(view->message(), QString());

  app->select(item(0));
  settle();
  activate({u"TV guide"_s, u"Refresh guide information"_s});
  settle();
  EXPECT_EQ(transport.requests(guideRequest), 2) << "that of the selected channel again";
  EXPECT_EQ(view->message(), u"Guide information will reload when you select a channel."_s);
}

TEST_F(SettingsViewTest, RowsLeadWhereTheySay) {
  activate({u"Playlists"_s, u"Xtream Codes parameters"_s});
  EXPECT_TRUE(app->showingConnect());
  EXPECT_FALSE(app->showingSettings());
  activate({u"About"_s, u"Open-source licenses"_s, u"Help & support"_s});
  EXPECT_EQ(opener.opened, (QList<QUrl>{QUrl(u"file:///usr/share/vantor/Licenses"_s),
                                        QUrl(u"https://support.example/"_s)}));
  view->back();
  activate({u"Playback"_s, u"Open media file"_s});
  settle();
  EXPECT_EQ(filePanel.shown, 1);
}

}  // namespace
}  // namespace vantor::test
