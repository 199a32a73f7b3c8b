#include "playback/held_frame.h"

#include <QDir>
#include <QFile>
#include <QUuid>
#include <chrono>
#include <memory>

#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/job.h"
#include "platform/worker.h"
#include "playback/media_engine.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int width = 640;
constexpr int tries = 6;
constexpr auto betweenTries = 30ms;

class PrivateFolder {
 public:
  explicit PrivateFolder(const QString& parent)
      : path_(parent + u"/quillet-frame-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces)) {
    makePrivateFolder(path_);
  }
  ~PrivateFolder() { QDir(path_).removeRecursively(); }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  QString file(const QString& name) const { return path_ + u'/' + name; }

 private:
  QString path_;
};

/// A picture on its way from its file.
struct Reading {
  QImage image;
  std::stop_source wait;  // stopped when it has come
};

QCoro::Task<> read(std::shared_ptr<Reading> reading, Worker* worker, QString file) {
  const Pending<QImage> picture = worker->run([file] { return QImage(file); });
  reading->image = co_await picture;
  reading->wait.request_stop();
}

}  // namespace

QCoro::Task<QImage> captureStill(StillSource source, std::stop_token token) {
  const PrivateFolder folder(source.temporaryFolder);
  const QString file = folder.file(u"frame.png"_s);
  const auto reading = std::make_shared<Reading>();
  const std::stop_callback cancel(token, [reading] { reading->wait.request_stop(); });
  const std::stop_token wait = reading->wait.get_token();
  source.engine->saveSnapshot(file, width);
  Job job;
  for (int attempt = 0; attempt < tries && !wait.stop_requested(); ++attempt) {
    // The worker may be busy for longer than anyone wants to wait for the next source.
    if (!job.running() && QFile::exists(file)) {
      job = Job::start([reading, worker = source.worker, file](std::stop_token) {
        return read(reading, worker, file);
      });
    }
    const QCoro::Task<> nap = source.clock->sleep(betweenTries, wait);
    co_await nap;
  }
  if (token.stop_requested()) co_return QImage();
  co_return reading->image;
}

}  // namespace vantor
