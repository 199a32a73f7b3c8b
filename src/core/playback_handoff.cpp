// Handing entries and files to the playback controller.
#include <QFileInfo>

#include "core/app_model.h"
#include "platform/file_panel.h"
#include "playback/playback.h"
#include "provider/error_wording.h"

namespace vantor {

void AppModel::play(MediaItem item) {
  if (item.isExample) {
    notice_.set(QStringLiteral(
        "These are sample library entries. Connect your provider or open your own media file to "
        "test playback."));
    return;
  }
  if (!session_.account()) return;
  QString extension = item.fileExtension;
  const bool live = item.kind == LibraryKind::live;
  const std::optional<ProviderDetails>& subscription = session_.subscription();
  if (live && subscription && subscription->formats.contains(QLatin1String("ts")) &&
      !subscription->formats.contains(QLatin1String("m3u8")))
    extension = QStringLiteral("ts");
  PlayRequest request;
  try {
    request.url = session_.account()->stream(item.providerID, item.kind, extension);
  } catch (...) {
    notice_.set(readableError(std::current_exception()));
    return;
  }
  request.title = item.name;
  request.id = item.id;
  request.agent = session_.account()->userAgent;
  request.live = live;
  if (!live) request.resume = record_.resumePosition(item.id).value_or(request.resume);
  playback_->play(request);
}

void AppModel::openFile() {
  // One panel at a time; the one that is open answers.
  if (filePanelTask_.running()) return;
  filePanelTask_ =
      Job::start([self = QPointer(this)](std::stop_token stop) { return chooseFile(self, stop); });
}

QCoro::Task<> AppModel::chooseFile(QPointer<AppModel> self, std::stop_token stop) {
  const auto choosing = self->services_.filePanel.chooseMediaFile();
  const std::optional<QUrl> file = co_await choosing;
  if (!self || stop.stop_requested() || !file) co_return;
  PlayRequest request;
  request.url = *file;
  request.title = QFileInfo(file->toLocalFile()).completeBaseName();
  request.id = QStringLiteral("local");
  request.agent = defaultUserAgent;
  request.local = true;
  self->playback_->play(request);
}

}  // namespace vantor
