#pragma once

#include <QByteArray>
#include <QString>
#include <mutex>
#include <optional>

#include "platform/worker.h"

namespace vantor {

/// Keeps the lines that failures leave in the log (platform/trace.h), of this run and those before
/// it, in the files `log` and `log.1` of a folder, together at most about 128 KB, readable by their
/// owner only. One per process; made and destroyed on the main thread.
class RunLog {
 public:
  explicit RunLog(const QString& folder);
  /// Writes what has not been written yet.
  ~RunLog();

  /// The newest lines of a folder's log, the oldest first. Blocks.
  static QStringList lastLines(const QString& folder, int most);

 private:
  void add(const QString& line);
  void write();

  const QString folder_;
  std::mutex mutex_;
  QByteArray waiting_;
  std::optional<Worker> worker_;
};

}  // namespace vantor
