#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

void signIn(Album& album) {
  Stage stage(album, {.streams = false});
  stage.until("the sheet", [&] { return stage.views().connectView()->shown(); });
  stage.settle();
  stage.shot(u"sign-in"_s, u"Sign-in sheet over the empty program"_s);

  ConnectView& sheet = *stage.views().connectView();
  sheet.setUsername(u"demo"_s);
  sheet.setPassword(u"a wrong one"_s);
  stage.provider().hold("");
  sheet.connectAccount();
  stage.untilAsked("");
  stage.settle();
  stage.shot(u"sign-in-busy"_s, u"The provider is being asked"_s);

  stage.provider().release("");
  stage.until("the refusal", [&] { return !sheet.error().isEmpty(); });
  stage.settle();
  stage.shot(u"sign-in-refused"_s, u"The provider refuses the password"_s);

  stage.provider().setFault("", sim::Fault::html);
  sheet.connectAccount();
  stage.until("the answer", [&] { return !sheet.working(); });
  stage.settle();
  stage.shot(u"sign-in-failed"_s, u"Something that is no provider answers"_s);
}

}  // namespace vantor::screens
