#include "ui/views.h"

#include "core/app_model.h"
#include "playback/playback.h"
#include "ui/sign_in/unread_password.h"

namespace vantor {

Views::Views(AppModel& model, StreamKeeper& keeper, Clock& clock, DialogFilePanel& filePanel,
             VideoFrameQueue& frames, ArtworkStore& artwork, Opener& opener, SettingsLinks links)
    : filePanel_(filePanel),
      frames_(frames),
      artwork_(artwork),
      shell_(model),
      statusView_(model.session(), model.browsing(), model.libraries()),
      emptyState_(model.session(), model.browsing()),
      items_(model.browsing(), model.record(), model.playback()),
      categories_(model),
      channels_(model, clock, items_),
      posters_(model),
      episodes_(model),
      connectView_(model),
      settingsView_(model, opener, std::move(links)),
      player_(model.playback(), keeper),
      transport_(model.playback()),
      zapping_(model, clock),
      banner_(zapping_, model.guide(), clock),
      episodeQueue_(model),
      nextEpisode_(episodeQueue_, model.playback(), keeper, clock),
      statistics_(model.playback(), clock),
      remote_(model, {zapping_, banner_, nextEpisode_, transport_, statistics_}, clock),
      commands_(model) {
  QObject::connect(&commands_, &Commands::sectionChosen, &remote_, &PlayerRemote::leavePicture);
  keepPasswordsUnread();
}

}  // namespace vantor
