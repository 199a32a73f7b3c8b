#pragma once

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <memory>

#include "platform/opener.h"
#include "playback/stream_keeper.h"
#include "support/heard_messages.h"
#include "support/model_fixture.h"
#include "ui/views.h"

namespace vantor::test {

struct NoOpener final : Opener {
  void open(const QUrl&) override {}
};

inline bool isComplaint(QtMsgType, const QMessageLogContext&, const QString& text) {
  return !isHarmless(text);
}

/// The real window over the real model, driven by key and mouse events.
class WindowTest : public ModelTest {
 protected:
  void open(const QStringList& arguments = {}) {
    app = &launch(arguments);
    keeper = std::make_unique<StreamKeeper>(app->playback(), engine, frames, transport, clock);
    views = std::make_unique<Views>(*app, *keeper, clock, dialog, frames, artwork, opener,
                                    SettingsLinks{QUrl(u"https://support.example/"_s), {}});
    qml = std::make_unique<QQmlApplicationEngine>();
    qml->addImportPath(u"qrc:/qt/qml"_s);
    qml->setInitialProperties({{u"views"_s, QVariant::fromValue(views.get())}});
    qml->load(QUrl(u"qrc:/qt/qml/Vantor/Ui/VantorWindow.qml"_s));
    ASSERT_FALSE(qml->rootObjects().isEmpty()) << messages.take().join(u'\n').toStdString();
    window = qobject_cast<QQuickWindow*>(qml->rootObjects().constFirst());
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }

  /// Signed in, with so many channels, movies and shows.
  void open(int channels, int movies = 0, int shows = 0) {
    open();
    if (movies > 0) always(LibraryKind::movies, rows(LibraryKind::movies, 1, movies));
    if (shows > 0) always(LibraryKind::shows, rows(LibraryKind::shows, 1, shows));
    signIn(rows(LibraryKind::live, 1, channels));
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

  bool focusIsIn(const QQuickItem* item) const {
    const QQuickItem* focused = window->activeFocusItem();
    return focused && item && (focused == item || item->isAncestorOf(focused));
  }
  /// The first visible item whose property has that value.
  QQuickItem* find(const char* property, const QVariant& value, QQuickItem* from = nullptr) const {
    if (!from)
      from = window->contentItem()->parentItem() ? window->contentItem()->parentItem()
                                                 : window->contentItem();
    if (from->isVisible() && from->property(property) == value) return from;
    for (QQuickItem* child : from->childItems())
      if (QQuickItem* found = find(property, value, child)) return found;
    return nullptr;
  }
  static QPoint middleOf(const QQuickItem* item) {
    return item->mapToScene(item->boundingRect().center()).toPoint();
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
  /// The same, once it is there.
  QQuickItem* appears(const char* property, const QVariant& value) const {
    QQuickItem* found = nullptr;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (found = find(property, value)) != nullptr; }))
        << value.toString().toStdString();
    return found ? found : window->contentItem();
  }
  /// Goes from control to control until it is at the one with that text.
  QQuickItem* tabTo(const QString& text) {
    for (int i = 0; i < 60 && window->activeFocusItem(); ++i) {
      QQuickItem* item = window->activeFocusItem();
      if (item->property("text") == text) return item;
      press(Qt::Key_Tab);
    }
    ADD_FAILURE() << text.toStdString() << " is not reached";
    return window->contentItem();
  }
  /// What was opened shows its first picture.
  void showPicture() {
    settle();
    engine.now.state = EngineState::playing;
    engine.now.decodedVideo = 1;
    clock.advance(std::chrono::milliseconds(250));
  }
  /// The arrows act on the entries.
  void expectMoves(const char* after) {
    QTest::qWait(0);
    const QString before = selectedID();
    press(Qt::Key_Down);
    EXPECT_NE(selectedID(), before) << after;
    EXPECT_FALSE(app->playback().itemID() && selectedID().isEmpty()) << after;
  }
  HeardMessages messages{isComplaint};
  DialogFilePanel dialog;
  VideoFrameQueue frames;
  ArtworkStore artwork{transport, clock, worker};
  NoOpener opener;
  AppModel* app = nullptr;
  std::unique_ptr<StreamKeeper> keeper;
  std::unique_ptr<Views> views;
  std::unique_ptr<QQmlApplicationEngine> qml;
  QQuickWindow* window = nullptr;
};

}  // namespace vantor::test
