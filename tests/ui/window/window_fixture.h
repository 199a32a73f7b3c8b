#pragma once

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <memory>

#include "support/heard_messages.h"
#include "ui/views_fixture.h"

namespace vantor::test {

/// The real window over the real model, driven by key and mouse events.
class WindowTest : public ViewsTest {
 protected:
  void opened() override {
    qml = std::make_unique<QQmlApplicationEngine>();
    qml->addImportPath(u"qrc:/qt/qml"_s);
    qml->setInitialProperties({{u"views"_s, QVariant::fromValue(views.get())}});
    qml->load(QUrl(u"qrc:/qt/qml/Vantor/Ui/VantorWindow.qml"_s));
    ASSERT_FALSE(qml->rootObjects().isEmpty()) << messages.take().join(u'\n').toStdString();
    window = qobject_cast<QQuickWindow*>(qml->rootObjects().constFirst());
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  void TearDown() override {
    qml.reset();
    views.reset();
    keeper.reset();
    EXPECT_EQ(messages.take().join(u'\n').toStdString(), "");
  }

  /// Presses the keys one after the other.
  void press(std::convertible_to<QKeyCombination> auto... keys) {
    for (const QKeyCombination key : {QKeyCombination(keys)...}) {
      QTest::keyClick(window, key.key(), key.keyboardModifiers());
      QTest::qWait(0);
    }
  }
  void type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(window, letter.toLatin1());
    QTest::qWait(0);
  }
  void click(const QQuickItem* item) {
    ASSERT_TRUE(item);
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, middleOf(item));
    QTest::qWait(0);
  }
  void doubleClick(QPoint place) {
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QTest::qWait(0);
  }
  using Test = std::function<bool(const QQuickItem*)>;
  static Test has(const char* property, const QVariant& value) {
    return [=](const QQuickItem* item) { return item->property(property) == value; };
  }
  /// Goes from control to control until it is at such a one.
  QQuickItem* tabTo(const Test& isMeant) {
    for (int i = 0; i < 60 && window->activeFocusItem(); ++i) {
      if (isMeant(window->activeFocusItem())) return window->activeFocusItem();
      press(Qt::Key_Tab);
    }
    ADD_FAILURE() << "no such control is reached";
    return window->contentItem();
  }
  QQuickItem* tabTo(const QString& text) {
    SCOPED_TRACE(text.toStdString());
    return tabTo(has("text", text));
  }

  /// The first such item that is visible, at `from` or in it.
  static QQuickItem* find(const Test& isMeant, QQuickItem* from) {
    if (!from->isVisible()) return nullptr;
    if (isMeant(from)) return from;
    for (QQuickItem* child : from->childItems())
      if (QQuickItem* found = find(isMeant, child)) return found;
    return nullptr;
  }
  QQuickItem* find(const Test& isMeant) const {
    QQuickItem* content = window->contentItem();
    return find(isMeant, content->parentItem() ? content->parentItem() : content);
  }
  QQuickItem* find(const char* property, const QVariant& value) const {
    return find(has(property, value));
  }
  /// The same, once it is there.
  QQuickItem* appears(const Test& isMeant) const {
    QQuickItem* found = nullptr;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (found = find(isMeant)) != nullptr; }));
    return found ? found : window->contentItem();
  }
  QQuickItem* appears(const char* property, const QVariant& value) const {
    SCOPED_TRACE(value.toString().toStdString());
    return appears(has(property, value));
  }
  static QPoint middleOf(const QQuickItem* item) {
    return item->mapToScene(item->boundingRect().center()).toPoint();
  }
  bool focusIsIn(const QQuickItem* item) const {
    const QQuickItem* focused = window->activeFocusItem();
    return focused && item && (focused == item || item->isAncestorOf(focused));
  }
  /// The arrows act on the entries.
  void expectMoves(const char* after) {
    QTest::qWait(0);
    const QString before = selectedID();
    press(Qt::Key_Down);
    EXPECT_NE(selectedID(), before) << after;
    EXPECT_FALSE(app->playback().itemID() && selectedID().isEmpty()) << after;
  }

  /// Signs in to libraries that are answered at once.
  void signInToLibraries() {
    connectAccount(account);
    acceptSignIn();
    ASSERT_TRUE(idle());
  }
  void show(Section section) {
    app->navigate(section);
    ASSERT_TRUE(idle());
    QTest::qWait(50);
  }
  /// What was opened comes so far.
  void become(const EngineStatus& status) {
    settle();
    engine.now = status;
    clock.advance(250ms);
    QTest::qWait(0);
  }
  /// What was opened shows its first picture.
  void showPicture() {
    become({.state = EngineState::playing, .hasMedia = true, .decodedVideo = 1});
  }

  HeardMessages messages{
      [](QtMsgType, const QMessageLogContext&, const QString& text) { return !isHarmless(text); }};
  std::unique_ptr<QQmlApplicationEngine> qml;
  QQuickWindow* window = nullptr;
};

}  // namespace vantor::test
