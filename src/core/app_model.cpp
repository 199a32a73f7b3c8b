#include "core/app_model.h"

#include "playback/playback.h"
#include "provider/guide_loader.h"
#include "storage/catalog_disk_store.h"

namespace vantor {

AppModel::AppModel(AppServices services, std::unique_ptr<Playback> playback)
    : services_(std::move(services)), playback_(std::move(playback)) {
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

void AppModel::contentsChanged() {
  ++revision_;
  Q_EMIT catalogsChanged();
  Q_EMIT itemsChanged();
}

void AppModel::enterNewWorld() {
  for (auto& [kind, task] : tasks_) task.cancel();
  tasks_.clear();
  liveCopy_.reset();
  detailTask_.cancel();
  guideCache_.clear();
  episodeCache_.clear();
  Q_EMIT guideCacheChanged({});
  generation_ = QUuid::createUuid();
}

}  // namespace vantor
