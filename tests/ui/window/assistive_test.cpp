// What assistive programs are told of, by the events of the window that go on to AT-SPI.
#include <gmock/gmock.h>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#include <QAccessible>
#include <QPointer>
#include <functional>

#include "window_fixture.h"

namespace vantor::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

QList<QPointer<QObject>>* heard = nullptr;

/// What has the highlight, and messages that come by themselves.
void hear(QAccessibleEvent* event) {
  QAccessibleInterface* source = event->accessibleInterface();
  if (event->type() == QAccessible::Focus || (event->type() == QAccessible::ObjectShow && source &&
                                              source->role() == QAccessible::Notification))
    heard->append(event->object());
}

class AssistiveTest : public WindowTest {
 protected:
  QList<QPointer<QObject>> objects;
  QAccessible::UpdateHandler before = nullptr;

  void SetUp() override {
    // As if somebody listened on the bus.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    heard = &objects;
    before = QAccessible::installUpdateHandler(hear);
  }
  void TearDown() override {
    QAccessible::installUpdateHandler(before);
    WindowTest::TearDown();
  }
  /// What they are told of from then on, with what they find there; they pass over what they are
  /// told to have the highlight and find without it.
  std::vector<std::string> told(const std::function<void()>& action) {
    objects.clear();
    action();
    QTest::qWait(50);
    std::vector<std::string> texts;
    for (QObject* object : objects) {
      QAccessibleInterface* found = QAccessible::queryAccessibleInterface(object);
      if (!found || !found->parent() || found->parent()->indexOfChild(found) < 0 ||
          !(found->state().focused || found->role() == QAccessible::Notification))
        continue;
      QString text =
          found->text(QAccessible::Name) + u": "_s + found->text(QAccessible::Description);
      if (found->state().selected || found->state().checked) text += u", chosen"_s;
      texts.push_back(text.toStdString());
    }
    return texts;
  }
  /// Opens the choices of a control.
  void drop(const char* property, const QVariant& value) {
    appears(property, value)->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
  }
  /// Shows the episodes of a show, beside a channel that plays.
  void openShow() {
    app->play(item(0));
    showPicture();
    show(Section::shows);
    press(Qt::Key_Return);
    answerEpisodes(R"({"1":[{"id":"1","title":"A"},{"id":"2","title":"B"}]})");
  }
};

TEST_F(AssistiveTest, EachMoveIsToldOnceWithItsPlaceAndWhetherItIsChosen) {
  for (const LibraryKind kind : allLibraryKinds)
    always(kind, rows(kind, 1, 6), R"([{"category_id":"1","category_name":"News"}])");
  open();
  signInToLibraries();
  const auto stay = [] {};
  const struct {
    const char* what;
    std::function<void()> prepare;
    Qt::Key key;
    const char* told;
  } rows[] = {
      {"a channel", [&] { show(Section::live); }, Qt::Key_Down, "2 of 6, chosen"},
      {"one that plays and is kept", [&] { app->play(item(2)), app->favorite(item(2)); },
       Qt::Key_Down, "3 of 6, playing, on My list, chosen"},
      {"its menu", stay, Qt::Key_Menu, "Watch channel: 1 of 2"},
      {"an entry of it", stay, Qt::Key_Down, "2 of 2, chosen"},
      {"every command", [&] { press(Qt::Key_Escape); }, Qt::Key_F10, "1 of 10"},
      {"a command", stay, Qt::Key_Down, "Ctrl+K, 2 of 10"},
      {"a group", [&] { press(Qt::Key_Escape), drop("name", u"Group"_s); }, Qt::Key_Down,
       "News: 2 of 2"},
      {"the group that is chosen", stay, Qt::Key_Up, "All channels: 1 of 2, chosen"},
      {"the field of it", stay, Qt::Key_Escape, "Group: All channels"},
      {"a poster", [&] { show(Section::movies); }, Qt::Key_Right, "2 of 6, chosen"},
      {"one that is kept", [&] { app->favorite(item(2)); }, Qt::Key_Right, "3 of 6, on My list"},
      {"an episode", [&] { openShow(); }, Qt::Key_Down, "B: S1 · E1, 2 of 2"},
      {"a speed", [&] { drop("help", u"Playback speed"_s); }, Qt::Key_Up, "0.5×: 1 of 5"},
      {"the speed that is chosen", stay, Qt::Key_Down, "1×: 2 of 5, chosen"},
      {"a page of the settings", [&] { press(Qt::Key_Escape), app->setShowingSettings(true); },
       Qt::Key_Down, ", 2 of 4"},
  };
  for (const auto& row : rows) {
    row.prepare();
    QTest::qWait(50);
    EXPECT_THAT(told([&] { press(row.key); }), ElementsAre(HasSubstr(row.told))) << row.what;
  }
}

TEST_F(AssistiveTest, AButtonSaysWhetherItPlaysAndWhetherItsEntryIsKept) {
  open(2, 2);
  app->play(item(0));
  showPicture();
  const auto arrive = [&](const Test& isMeant) {
    return told([&] { appears(isMeant)->forceActiveFocus(Qt::TabFocusReason); });
  };
  for (const Section section : {Section::live, Section::movies}) {
    show(section);
    app->select(item(0));
    for (const auto& [state, kept] : {std::pair("Playing", ""), {"Paused", ", chosen"}}) {
      EXPECT_THAT(arrive(has("help", u"Play / pause"_s)),
                  ElementsAre(std::string("Play / pause: ") + state));
      press(Qt::Key_Return);
      EXPECT_THAT(arrive(has("checkable", true)),
                  ElementsAre(std::string("Add / remove from My list: ") + kept));
      press(Qt::Key_Return);
    }
  }
}

TEST_F(AssistiveTest, ASignInIsTypedAndNobodyIsToldThePassword) {
  open();
  app->setShowingConnect(true);
  QTest::qWait(50);
  type(u"visible"_s);
  EXPECT_THAT(told([&] { press(Qt::Key_Return); }), ElementsAre("Password: "));
  EXPECT_FALSE(views->connectView()->working());
  QAccessibleInterface* field = QAccessible::queryAccessibleInterface(objects.first());
  EXPECT_THAT(told([&] { type(u"abc"_s); }), ElementsAre());
  EXPECT_TRUE(field->state().passwordEdit);
  QAccessibleTextInterface* text = field->textInterface();
  int start = 0;
  int end = 0;
  for (const QString& whole : {field->text(QAccessible::Value), text->text(0, 3),
                               text->textAtOffset(1, QAccessible::NoBoundary, &start, &end)})
    EXPECT_EQ(whole, u"•••"_s);
  for (const auto kind : {QAccessible::CharBoundary, QAccessible::WordBoundary}) {
    const QString around = text->textBeforeOffset(2, kind, &start, &end) +
                           text->textAtOffset(1, kind, &start, &end) +
                           text->textAfterOffset(0, kind, &start, &end);
    EXPECT_EQ(around.count(u'•'), around.size()) << around.toStdString();
  }
  press(Qt::Key_Return);
  EXPECT_EQ(views->connectView()->username(), u"visible"_s);
  EXPECT_EQ(views->connectView()->password(), u"abc"_s);
  EXPECT_TRUE(views->connectView()->working());
}

TEST_F(AssistiveTest, AMessageThatComesIsToldOnceAndWheneverItChanges) {
  open({u"--demo"_s});
  for (const char* message : {"One thing", "Another", "One thing"})
    EXPECT_THAT(told([&] { app->tell(QString::fromLatin1(message)); }),
                ElementsAre(std::string(message) + ": "));
  EXPECT_THAT(told([&] { app->clearNotice(); }), ElementsAre());
  EXPECT_THAT(told([&] { app->tell(u"One thing"_s); }), ElementsAre("One thing: "));
}

}  // namespace
}  // namespace vantor::test
