// Handing entries and files to the playback controller.
#include <QFileInfo>

#include "core/app_model.h"
#include "platform/file_panel.h"
#include "playback/playback.h"
#include "provider/error_wording.h"

namespace vantor {

void AppModel::play(MediaItem item) {
  if (item.isExample) {
    setNotice(QStringLiteral(
        "These are sample library entries. Connect your provider or open your own media file to "
        "test playback."));
    return;
  }
  if (!account_) return;
  QString extension = item.fileExtension;
  const bool live = item.kind == LibraryKind::live;
  if (live && details_ && details_->formats.contains(QLatin1String("ts")) &&
      !details_->formats.contains(QLatin1String("m3u8")))
    extension = QStringLiteral("ts");
  PlayRequest request;
  try {
    request.url = account_->stream(item.providerID, item.kind, extension);
  } catch (...) {
    setNotice(readableError(std::current_exception()));
    return;
  }
  request.title = item.name;
  request.id = item.id;
  request.agent = account_->userAgent;
  request.live = live;
  const QList<double> record = progress_.value(item.id);
  if (!live && !record.isEmpty()) request.resume = record.first();
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
