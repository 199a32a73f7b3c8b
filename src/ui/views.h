#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "artwork/artwork_store.h"
#include "playback/video_frame_queue.h"
#include "ui/channels/channel_view.h"
#include "ui/entries/item_list_model.h"
#include "ui/episodes/episode_list_model.h"
#include "ui/player/channel_banner.h"
#include "ui/player/next_episode.h"
#include "ui/player/player_pane.h"
#include "ui/player/player_remote.h"
#include "ui/player/statistics.h"
#include "ui/player/transport_controls.h"
#include "ui/posters/category_list_model.h"
#include "ui/posters/poster_view.h"
#include "ui/settings/settings_view.h"
#include "ui/shell/commands.h"
#include "ui/shell/empty_state.h"
#include "ui/shell/status_view.h"
#include "ui/shell/tv_shell.h"
#include "ui/sign_in/connect_view.h"
#include "ui/window/dialog_file_panel.h"

namespace vantor {

/// The view object of every screen of the window. Main thread only; what it is made of outlives it.
class Views final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(vantor::TVShell* shell READ shell CONSTANT)
  Q_PROPERTY(vantor::StatusView* statusView READ statusView CONSTANT)
  Q_PROPERTY(vantor::EmptyState* emptyState READ emptyState CONSTANT)
  Q_PROPERTY(vantor::ItemListModel* items READ items CONSTANT)
  Q_PROPERTY(vantor::CategoryListModel* categories READ categories CONSTANT)
  Q_PROPERTY(vantor::ChannelView* channels READ channels CONSTANT)
  Q_PROPERTY(vantor::PosterView* posters READ posters CONSTANT)
  Q_PROPERTY(vantor::EpisodeListModel* episodes READ episodes CONSTANT)
  Q_PROPERTY(vantor::ConnectView* connectView READ connectView CONSTANT)
  Q_PROPERTY(vantor::SettingsView* settingsView READ settingsView CONSTANT)
  Q_PROPERTY(vantor::PlayerPane* player READ player CONSTANT)
  Q_PROPERTY(vantor::TransportControls* transport READ transport CONSTANT)
  Q_PROPERTY(vantor::ChannelBanner* banner READ banner CONSTANT)
  Q_PROPERTY(vantor::NextEpisode* nextEpisode READ nextEpisode CONSTANT)
  Q_PROPERTY(vantor::Statistics* statistics READ statistics CONSTANT)
  Q_PROPERTY(vantor::PlayerRemote* remote READ remote CONSTANT)
  Q_PROPERTY(vantor::Commands* commands READ commands CONSTANT)
  Q_PROPERTY(vantor::DialogFilePanel* filePanel READ filePanel CONSTANT)
  Q_PROPERTY(vantor::VideoFrameQueue* frames READ frames CONSTANT)
  Q_PROPERTY(vantor::ArtworkStore* artwork READ artwork CONSTANT)

 public:
  Views(AppModel& model, StreamKeeper& keeper, Clock& clock, DialogFilePanel& filePanel,
        VideoFrameQueue& frames, ArtworkStore& artwork, Opener& opener, SettingsLinks links);

  TVShell* shell() { return &shell_; }
  StatusView* statusView() { return &statusView_; }
  EmptyState* emptyState() { return &emptyState_; }
  ItemListModel* items() { return &items_; }
  CategoryListModel* categories() { return &categories_; }
  ChannelView* channels() { return &channels_; }
  PosterView* posters() { return &posters_; }
  EpisodeListModel* episodes() { return &episodes_; }
  ConnectView* connectView() { return &connectView_; }
  SettingsView* settingsView() { return &settingsView_; }
  PlayerPane* player() { return &player_; }
  TransportControls* transport() { return &transport_; }
  ChannelBanner* banner() { return &banner_; }
  NextEpisode* nextEpisode() { return &nextEpisode_; }
  Statistics* statistics() { return &statistics_; }
  PlayerRemote* remote() { return &remote_; }
  Commands* commands() { return &commands_; }
  Zapping& zapping() { return zapping_; }
  EpisodeQueue& episodeQueue() { return episodeQueue_; }
  DialogFilePanel* filePanel() { return &filePanel_; }
  VideoFrameQueue* frames() { return &frames_; }
  ArtworkStore* artwork() { return &artwork_; }

 private:
  DialogFilePanel& filePanel_;
  VideoFrameQueue& frames_;
  ArtworkStore& artwork_;
  TVShell shell_;
  StatusView statusView_;
  EmptyState emptyState_;
  ItemListModel items_;
  CategoryListModel categories_;
  ChannelView channels_;
  PosterView posters_;
  EpisodeListModel episodes_;
  ConnectView connectView_;
  SettingsView settingsView_;
  PlayerPane player_;
  TransportControls transport_;
  Zapping zapping_;
  ChannelBanner banner_;
  EpisodeQueue episodeQueue_;
  NextEpisode nextEpisode_;
  Statistics statistics_;
  PlayerRemote remote_;
  Commands commands_;
};

}  // namespace vantor
