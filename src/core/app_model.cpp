#include "core/app_model.h"

#include <array>

#include "playback/playback.h"
#include "provider/guide_loader.h"
#include "storage/catalog_disk_store.h"

namespace vantor {

namespace {

constexpr std::array announcementOrder = {&AppModel::startingUpChanged,
                                          &AppModel::restoringLibraryChanged,
                                          &AppModel::accountChanged,
                                          &AppModel::demoChanged,
                                          &AppModel::detailsChanged,
                                          &AppModel::loadingChanged,
                                          &AppModel::errorsChanged,
                                          &AppModel::favoritesChanged,
                                          &AppModel::sectionChanged,
                                          &AppModel::categoryChanged,
                                          &AppModel::searchChanged,
                                          &AppModel::catalogsChanged,
                                          &AppModel::itemsChanged,
                                          &AppModel::selectedChanged,
                                          &AppModel::browseAnchorsChanged,
                                          &AppModel::showingEpisodesChanged,
                                          &AppModel::episodeSeasonChanged,
                                          &AppModel::episodesChanged,
                                          &AppModel::guideChanged,
                                          &AppModel::detailsErrorChanged,
                                          &AppModel::detailsLoadingChanged,
                                          &AppModel::noticeChanged,
                                          &AppModel::showingConnectChanged,
                                          &AppModel::showingSettingsChanged,
                                          &AppModel::busyChanged};

}  // namespace

AppModel::AppModel(AppServices services, std::unique_ptr<Playback> playback)
    : services_(std::move(services)),
      playback_(std::move(playback)),
      announcements_(*this, announcementOrder, &AppModel::settled) {
  playback_->onProgress = [this](const QString& id, double seconds, double duration) {
    storeProgress(id, seconds, duration);
  };
  if (services_.launch.demo) explore();
  if (!services_.launch.isolated) beginStartUp();
}

AppModel::~AppModel() {
  startUpReading_.request_stop();
  startUpTask_.cancel();
  filePanelTask_.cancel();
  detailTask_.cancel();
  for (Job& task : guideTasks_) task.cancel();
  for (auto& [kind, task] : tasks_) task.cancel();
  for (const Pending<Done>& waiting : untilIdle_) waiting.resolve({});
}

void AppModel::setNotice(std::optional<QString> notice) {
  assign(notice_, std::move(notice), &AppModel::noticeChanged);
}

void AppModel::setShowingConnect(bool showing) {
  assign(showingConnect_, showing, &AppModel::showingConnectChanged);
}

void AppModel::setShowingSettings(bool showing) {
  assign(showingSettings_, showing, &AppModel::showingSettingsChanged);
}

void AppModel::enterNewWorld() {
  const Operation operation(announcements_);
  for (auto& [kind, task] : tasks_) task.cancel();
  tasks_.clear();
  liveCopy_.reset();
  detailTask_.cancel();
  forgetGuides();
  episodeCache_.clear();
  assign(restoringLibrary_, false, &AppModel::restoringLibraryChanged);
  generation_ = QUuid::createUuid();
}

}  // namespace vantor
