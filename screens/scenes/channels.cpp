#include <QCoreApplication>

#include "screens/odd_names.h"
#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

void channelGuide(Album& album) {
  {
    Stage stage(album, {.streams = false});
    stage.provider().hold("get_live_streams");
    stage.submitSignIn();
    stage.untilAsked("get_live_streams");
    stage.settle();
    stage.shot(u"channels-loading"_s, u"The channels are being loaded"_s);
    stage.provider().release("get_live_streams");
    stage.until("the channels", [&] { return !stage.views().statusView()->loading(); });
    stage.provider().setFault("get_live_streams", sim::Fault::status500);
    stage.views().shell()->refresh();
    stage.until("the failure", [&] { return !stage.views().statusView()->error().isEmpty(); });
    stage.settle();
    stage.shot(u"channels-failed"_s, u"A refresh failed; the channels stay"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.provider().setFault("get_live_streams", sim::Fault::status403);
    stage.signIn();
    stage.settle();
    stage.shot(u"channels-none"_s, u"The first load failed"_s);
  }
  {
    Stage stage(album, {.channels = 1, .streams = false});
    stage.signIn();
    stage.settle();
    stage.shot(u"channels-one"_s, u"A single channel"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.provider().hold("get_short_epg");
    stage.signIn();
    stage.settle();
    stage.shot(u"guide-loading"_s, u"The programmes are being loaded"_s);
    stage.provider().setFault("get_short_epg", sim::Fault::status500);
    stage.provider().release("get_short_epg");
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    stage.settle();
    stage.shot(u"guide-failed"_s, u"The programmes cannot be loaded"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.provider().setBody("get_short_epg", "{\"epg_listings\":[]}");
    stage.signIn();
    stage.settle();
    stage.shot(u"guide-empty"_s, u"Channels without programmes"_s);
  }
  {
    Stage stage(album, {.channels = 100'000, .streams = false});
    stage.signIn();
    stage.settle();
    for (int i = 0; i < 12; ++i) stage.views().shell()->moveSelection(TVShell::Direction::Down, 1);
    stage.settle();
    stage.settle();
    stage.shot(u"channels"_s, u"100,000 channels, the highlight in the middle"_s);
    stage.press(Qt::Key_Menu);
    stage.shot(u"channel-menu"_s, u"What can be done with a channel"_s);
    stage.press(Qt::Key_Escape);
    stage.click(QCoreApplication::translate("GroupPicker", "Group"));
    stage.shot(u"channel-groups"_s, u"The choice of a group"_s);
    stage.press(Qt::Key_Escape);
    stage.views().channels()->toggleBookmark();
    stage.settle();
    stage.shot(u"channel-kept"_s, u"A channel in My list"_s);
  }
  Stage stage(album, {.streams = false});
  stage.provider().setBody("get_live_streams", oddRows(sim::Kind::live, stage.provider().url()));
  stage.signIn();
  stage.settle();
  stage.shot(u"channels-odd-names"_s, u"Names of every kind"_s);
}

}  // namespace vantor::screens
