// Handing entries and files to the playback controller.
#include <QFileInfo>

#include "core/app_model.h"
#include "platform/file_panel.h"
#include "playback/playback.h"
#include "provider/error_wording.h"
#include "provider/stream_extension.h"

namespace vantor {

using namespace Qt::StringLiterals;

void AppModel::play(MediaItem item) {
  if (item.isExample) {
    notice_.set(
        tr("These are sample library entries. Connect your provider or open your own media file to "
           "test playback."));
    return;
  }
  if (!session_.account()) return;
  PlayRequest request;
  try {
    request.url = session_.account()->stream(item.providerID, item.kind,
                                             streamExtension(item, session_.subscription()));
  } catch (...) {
    notice_.set(readableError(std::current_exception()));
    return;
  }
  request.title = item.name;
  request.id = item.id;
  request.agent = session_.account()->userAgent;
  if (habits_) request.shape = habits_->shapeFor(item.id);
  if (trackMemory_) request.tracks = trackMemory_->choicesFor(item.showID);
  if (item.kind == LibraryKind::live)
    request.kind = SourceKind::broadcast;
  else
    request.resume = record_.resumePosition(item.id).value_or(0);
  // What playback reports of the source before belongs to it.
  const Announcements::Scope scope(announcements_);
  const std::optional<MediaItem> before = std::exchange(handedOver_, item);
  if (!playback_->play(request)) {
    handedOver_ = before;
    return;
  }
  record_.watch(item);
  handOver_.note();
  if (habits_ && item.kind == LibraryKind::live) habits_->setLastChannel(item.id);
}

std::optional<MediaItem> AppModel::playing() const {
  return handedOver_ && playback_->itemID() == handedOver_->id ? handedOver_ : std::nullopt;
}

void AppModel::openFile() {
  // One panel at a time; the one that is open answers.
  if (filePanelTask_.running()) return;
  filePanelTask_ =
      Job::start([self = QPointer(this)](std::stop_token stop) { return chooseFile(self, stop); });
}

QCoro::Task<> AppModel::chooseFile(QPointer<AppModel> self, std::stop_token stop) {
  if (!self || stop.stop_requested()) co_return;
  const auto choosing = self->services_.filePanel.chooseMediaFile();
  const std::optional<QUrl> file = co_await choosing;
  if (self && !stop.stop_requested() && file) self->playFile(*file);
}

void AppModel::playFile(const QUrl& file) {
  PlayRequest request;
  request.url = file;
  request.title = QFileInfo(file.toLocalFile()).completeBaseName();
  request.id = u"local"_s;
  request.agent = defaultUserAgent;
  request.kind = SourceKind::file;
  if (trackMemory_) request.tracks = trackMemory_->choicesFor({});
  playback_->play(request);
}

}  // namespace vantor
