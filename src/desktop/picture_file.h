#pragma once

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QTemporaryFile>
#include <QUrl>
#include <memory>
#include <stop_token>

#include "platform/job.h"

namespace vantor {

class ArtworkStore;
class Worker;

/// The picture of what plays as a file of this machine, for programs that must not know where it
/// came from. Main thread only.
class PictureFile final : public QObject {
  Q_OBJECT

 public:
  /// `artwork` and `worker`, which writes, outlive the object; the file is made in `folder`.
  PictureFile(ArtworkStore& artwork, Worker& worker, QString folder);

  /// Soon there is a file with the picture of that address instead of the last one; none when the
  /// address is empty or has no picture.
  void follow(const QUrl& address);
  QUrl file() const;  // empty: none

 Q_SIGNALS:
  void changed();

 private:
  static QCoro::Task<> make(QPointer<PictureFile> self, QUrl address, std::stop_token stop);

  ArtworkStore& artwork_;
  Worker& worker_;
  const QString folder_;
  QUrl address_;
  std::shared_ptr<QTemporaryFile> file_;  // is removed with the object
  Job making_;
};

}  // namespace vantor
