// Every text of the window is a translated one, and has the room that a translation takes; every
// icon is in the font.
#include <QRawFont>

#include "screens/shown_texts.h"
#include "screens/test_language.h"
#include "ui/style/style.h"
#include "ui/window/window_fixture.h"

namespace vantor::test {
namespace {

class LanguageTest : public WindowTest {
 protected:
  void begin(const QString& name, const QStringList& arguments = {}) {
    language.emplace(name);
    QAccessible::setActive(true);
    transport.always(guideRequest, guide({{"#", -15min, 15min}, {"#", 15min, 45min}}));
    transport.always(episodesRequest, R"({"episodes":{"1":[{"id":"1","title":"1"},
        {"id":"2","title":"2"}],"2":[{"id":"3","title":"3"}]}})");
    // Names without a letter, since these are not the program's.
    for (const LibraryKind kind : allLibraryKinds)
      always(kind, rows(kind, 1, 30).replace("Title ", "# "),
             R"([{"category_id":"1","category_name":"#"}])");
    open(arguments);
  }
  void look(const char* state) {
    SCOPED_TRACE(state);
    ++engine.now.decoded;  // what stands still would be opened again
    clock.advance(1s);
    QTest::qWait(100);
    EXPECT_EQ(screens::untranslatedTexts(*window).join(u'\n').toStdString(), "");
    EXPECT_EQ(screens::cutTexts(*window).join(u'\n').toStdString(), "");
    const QRawFont font = QRawFont::fromFont(Style::iconFont());
    screens::forEachShown(window->contentItem(), [&](const QQuickItem* item) {
      // Another may name pictures, which would be fetched. What is being made has no text yet.
      const QVariant format = item->property("textFormat");
      const QString text = item->property("text").toString();
      const bool isOwn = !format.isValid() || item->inherits("QQuickPlaceholderText");
      EXPECT_TRUE(text.isEmpty() || isOwn || format.toInt() == Qt::PlainText) << text.toStdString();
      const QString symbol = item->property("symbol").toString();
      if (symbol.isEmpty()) return;
      const QString drawn = Style::glyph(symbol);
      EXPECT_TRUE(drawn.size() == 1 && font.supportsCharacter(drawn[0])) << symbol.toStdString();
    });
  }
  void play() {
    become(filmAt(30'000, 90'000));
    engine.now.picture = {.codec = u"#"_s, .decoder = PictureDecoder::vaapi, .lost = 1};
    clock.advance(250ms);
  }

  std::optional<screens::TestLanguage> language;
};

TEST_F(LanguageTest, OfTheScreensAndTheSettings) {
  begin(u"pseudo"_s);
  look("without an account");
  app->setShowingConnect(true);
  look("the sign-in sheet");
  views->connectView()->setUsername(u"1"_s);
  views->connectView()->setPassword(u"1"_s);
  views->connectView()->connectAccount();
  ASSERT_TRUE(eventually([&] { return transport.fail(serviceDocument, HTTPFailure(500)); }));
  ASSERT_TRUE(eventually([&] { return transport.fail(QString(), HTTPFailure(500)); }));
  look("a sign-in that failed");
  views->connectView()->close();
  signInToLibraries();
  look("the channels");
  press(Qt::Key_F10);
  look("every command");
  press(Qt::Key_Escape, Qt::Key_Down, Qt::Key_Menu);
  look("what can be done with a channel");
  press(Qt::Key_Escape);
  app->favorite(item(0));
  app->browsing().setSearch(u"0000"_s);
  look("a search in vain");
  app->browsing().setSearch({});
  for (const Section section :
       {Section::movies, Section::search, Section::favorites, Section::shows}) {
    show(section);
    look("a section");
  }
  views->shell()->openRow(0);
  look("the episodes of a show");

  app->setShowingSettings(true);
  SettingsView& settings = *views->settingsView();
  look("the settings");
  const QList<int> rowsOfPages[] = {{4, 5}, {}, {1}, {}};
  for (int page = 0; const QList<int>& rows : rowsOfPages) {
    settings.activate(page++);
    look("a page of the settings");
    for (const int row : rows) {
      settings.activate(row);
      look("what comes of its row");
    }
    settings.cancelRemoval();
    settings.back();
  }
}

TEST_F(LanguageTest, OfThePlayer) {
  begin(u"pseudo"_s);
  signInToLibraries();
  app->play(item(0));
  look("a channel that is opened");
  engine.now = {.state = EngineState::error, .hasMedia = true};
  engine.announce();
  look("a channel that cannot be");
  app->playback().retry();
  play();
  app->playback().setExpanded(true);
  look("the player in the whole window");
  app->playback().setFullScreen(true);
  for (const Qt::Key key : {Qt::Key_Z, Qt::Key_M, Qt::Key_Plus, Qt::Key_A, Qt::Key_S, Qt::Key_I,
                            Qt::Key_Space, Qt::Key_9, Qt::Key_9, Qt::Key_Return}) {
    press(key);
    look("the picture on the whole screen");
  }
  press(Qt::Key_Escape, Qt::Key_Space);
  EXPECT_TRUE(views->statistics()->toggle());
  look("what is known of it");
  press(Qt::SHIFT | Qt::Key_Question);
  look("all keys");
  press(Qt::Key_Escape, Qt::Key_P);
  look("the small window");
  press(Qt::Key_P);
  play();
  engine.now.state = EngineState::ended;
  engine.announce();
  look("a channel that broke off");
  app->playback().stop();
  show(Section::shows);
  views->shell()->openRow(0);
  ASSERT_TRUE(eventually([&] { return views->episodes()->rowCount() > 0; }));
  views->episodes()->play(0);
  app->playback().setExpanded(true);
  play();
  engine.now.time = 89'000;
  clock.advance(500ms);
  EXPECT_TRUE(views->nextEpisode()->offered());
  look("the end of an episode");
}

TEST_F(LanguageTest, OfTheSampleLibrary) {
  begin(u"pseudo"_s, {u"--demo"_s});
  look("its channels");
  app->play(item(0));
  look("its notice");
  show(Section::movies);
  look("its movies");
  show(Section::shows);
  views->shell()->openRow(0);
  look("its shows");
}

TEST_F(LanguageTest, FromRightToLeftEverythingIsOnTheOtherSide) {
  begin(u"ar"_s);
  signInToLibraries();
  const auto middle = [&](const QString& text) {
    return double(middleOf(appears("text", text)).x()) / window->width();
  };
  EXPECT_GT(middle(sectionTitle(Section::search)), 0.8) << "the sections";
  EXPECT_LT(middle(PlayerPane::tr("Choose something to watch")), 0.3) << "the player";
  show(Section::movies);
  app->select(item(0));
  QTest::qWait(50);
  press(Qt::Key_Left);
  EXPECT_EQ(selectedID(), u"movies:2"_s) << "the next poster is on the left";
  press(Qt::Key_Right);
  EXPECT_EQ(selectedID(), u"movies:1"_s);
  EXPECT_GT(middle(item(0).name), middle(item(1).name));
}

}  // namespace
}  // namespace vantor::test
