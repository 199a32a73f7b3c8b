#include "desktop/picture_file.h"

#include <QImage>

#include "artwork/artwork_store.h"
#include "platform/trace.h"
#include "platform/worker.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

/// Null when it cannot be written.
std::shared_ptr<QTemporaryFile> written(const QImage& image, const QString& folder) {
  const Attempt attempt(artworkTrace, "writing the picture of what plays");
  auto file = std::make_shared<QTemporaryFile>(folder + u"/vantor-picture-XXXXXX.png"_s);
  if (file->open() && image.save(file.get(), "PNG") && file->flush() && !file->fileName().isEmpty())
    return file;
  attempt.failed(u"file error %1"_s.arg(file->error()));
  return {};
}

}  // namespace

PictureFile::PictureFile(ArtworkStore& artwork, Worker& worker, QString folder)
    : artwork_(artwork), worker_(worker), folder_(std::move(folder)) {}

void PictureFile::follow(const QUrl& address) {
  if (address == address_) return;
  address_ = address;
  making_ = {};
  if (std::exchange(file_, {})) Q_EMIT changed();
  if (address.isEmpty()) return;
  making_ = Job::start(
      [self = QPointer(this), address](std::stop_token stop) { return make(self, address, stop); });
}

QUrl PictureFile::file() const {
  return file_ ? QUrl::fromLocalFile(file_->fileName()) : QUrl();
}

QCoro::Task<> PictureFile::make(QPointer<PictureFile> self, QUrl address, std::stop_token stop) {
  if (!self) co_return;
  const QCoro::Task<QImage> loading = self->artwork_.image(address, stop);
  const QImage image = co_await loading;
  if (!self || stop.stop_requested() || image.isNull()) co_return;
  const Pending<std::shared_ptr<QTemporaryFile>> writing =
      self->worker_.run([image, folder = self->folder_] { return written(image, folder); });
  const std::shared_ptr<QTemporaryFile> file = co_await writing;
  if (!self || stop.stop_requested() || !file) co_return;
  self->file_ = file;
  Q_EMIT self->changed();
}

}  // namespace vantor
