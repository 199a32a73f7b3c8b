#include "playback/held_frame.h"

#include <QDir>
#include <QFile>
#include <QUuid>
#include <chrono>

#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/worker.h"
#include "playback/media_engine.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int kWidth = 640;
constexpr int kTries = 6;
constexpr auto kBetweenTries = 30ms;

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

}  // namespace

QCoro::Task<QImage> captureStill(StillSource source, std::stop_token token) {
  const PrivateFolder folder(source.temporaryFolder);
  const QString file = folder.file(u"frame.png"_s);
  source.engine->saveSnapshot(file, kWidth);
  for (int attempt = 0; attempt < kTries && !token.stop_requested(); ++attempt) {
    if (QFile::exists(file)) {
      const Pending<QImage> reading = source.worker->run([file] { return QImage(file); });
      const QImage image = co_await reading;
      if (token.stop_requested()) break;
      if (!image.isNull()) co_return image;
    }
    const QCoro::Task<> nap = source.clock->sleep(kBetweenTries, token);
    co_await nap;
  }
  co_return QImage();
}

}  // namespace vantor
