#include <QCoreApplication>
#include <string>

#include "screens/odd_names.h"
#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

// 200 seasons of 50 episodes.
std::string longShow() {
  std::string json = "{\"episodes\":{";
  for (int season = 1; season <= 200; ++season) {
    if (season > 1) json += ',';
    json += '"' + std::to_string(season) + "\":[";
    for (int episode = 1; episode <= 50; ++episode) {
      if (episode > 1) json += ',';
      json += "{\"id\":\"" + std::to_string(season * 1000 + episode) +
              "\",\"episode_num\":" + std::to_string(episode) +
              ",\"season\":" + std::to_string(season) + ",\"title\":\"Chapter " +
              std::to_string((season - 1) * 50 + episode) + "\",\"container_extension\":\"mp4\"}";
    }
    json += ']';
  }
  return json + "}}";
}

void openFirstShow(Stage& stage) {
  stage.views().shell()->openRow(0);
  stage.settle();
}

}  // namespace

void episodes(Album& album) {
  {
    Stage stage(album, {.streams = false});
    stage.signIn();
    stage.show(Section::shows);
    stage.settle();
    stage.shot(u"shows"_s, u"Shows"_s);
    stage.provider().hold("get_series_info");
    openFirstShow(stage);
    stage.shot(u"episodes-loading"_s, u"The episodes are being loaded"_s);
    stage.provider().release("get_series_info");
    stage.until("the episodes", [&] { return stage.views().episodes()->rowCount() > 0; });
    stage.settle();
    stage.shot(u"episodes"_s, u"The episodes of a show"_s);
    stage.click(QCoreApplication::translate("SeasonPicker", "Season"));
    stage.shot(u"seasons"_s, u"The choice of a season"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.signIn();
    stage.provider().setFault("get_series_info", sim::Fault::status500);
    stage.show(Section::shows);
    openFirstShow(stage);
    stage.shot(u"episodes-failed"_s, u"The episodes cannot be loaded"_s);
  }
  {
    Stage stage(album, {.streams = false});
    stage.signIn();
    stage.provider().setBody("get_series_info", "{\"episodes\":[]}");
    stage.show(Section::shows);
    openFirstShow(stage);
    stage.shot(u"episodes-none"_s, u"A show without episodes"_s);
  }
  Stage stage(album, {.streams = false});
  stage.signIn();
  stage.provider().setBody("get_series_info", longShow());
  stage.provider().setBody("get_series", oddRows(sim::Kind::series, stage.provider().url()));
  stage.show(Section::shows);
  openFirstShow(stage);
  stage.settle();
  stage.shot(u"episodes-thousands"_s,
             u"10,000 episodes in 200 seasons of a show with a long name"_s);
}

}  // namespace vantor::screens
