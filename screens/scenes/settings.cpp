#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

void settings(Album& album) {
  Stage stage(album, {.streams = false});
  stage.signIn();
  stage.views().shell()->openSettings();
  stage.settle();
  stage.shot(u"settings"_s, u"Settings"_s);
  SettingsView& view = *stage.views().settingsView();
  int row = 0;
  for (const auto& page : {u"playlists"_s, u"playback"_s, u"tv-guide"_s, u"about"_s}) {
    view.activate(row++);
    stage.settle();
    stage.shot(u"settings-"_s + page, view.title());
    view.back();
  }
  view.activate(0);
  const QVariantList blocks = view.blocks();
  for (int i = 0; i < blocks.size(); ++i)
    if (blocks.at(i).toMap().value(u"text"_s) == SettingsView::tr("Remove saved provider"))
      view.activate(i);
  stage.settle();
  stage.shot(u"settings-removal"_s, u"Whether the provider is really to be removed"_s);
}

}  // namespace vantor::screens
