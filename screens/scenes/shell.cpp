#include <QQuickWindow>

#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

void shell(Album& album) {
  {
    Stage stage(album, {.streams = false});
    stage.until("the sheet", [&] { return stage.views().connectView()->shown(); });
    stage.views().connectView()->close();
    stage.settle();
    stage.shot(u"no-account"_s, u"TV without an account"_s);
    stage.show(Section::movies);
    stage.shot(u"no-account-movies"_s, u"Movies without an account"_s);
  }
  {
    Stage stage(album, {.streams = false}, {.demo = true});
    stage.settle();
    stage.shot(u"sample-channels"_s, u"The sample library: TV"_s);
    stage.show(Section::movies);
    stage.shot(u"sample-movies"_s, u"The sample library: movies"_s);
    stage.show(Section::shows);
    stage.press(Qt::Key_Return);
    stage.shot(u"sample-show"_s, u"The sample library: a show"_s);
  }
  Stage stage(album, {.streams = false});
  stage.signIn();
  stage.press(Qt::Key_F10);
  stage.shot(u"menu"_s, u"Every command with its keys"_s);
  stage.press(Qt::Key_Escape);
  stage.press(Qt::Key_Backtab);
  stage.press(Qt::Key_Backtab);
  stage.shot(u"keyboard-focus"_s, u"The keyboard focus on its way through the header"_s);
  stage.window().resize(1100, 720);
  stage.settle();
  stage.shot(u"smallest-channels"_s, u"Smallest window: channel guide"_s);
  stage.show(Section::movies);
  stage.shot(u"smallest-movies"_s, u"Smallest window: movies"_s);
}

}  // namespace vantor::screens
