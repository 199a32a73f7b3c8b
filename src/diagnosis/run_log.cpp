#include "diagnosis/run_log.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cstdio>

#include "platform/folders.h"
#include "platform/trace.h"
#include "storage/private_file.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 largestLog = 64 << 10;  // bytes

QString current(const QString& folder) {
  return folder + u"/log"_s;
}

QString earlier(const QString& folder) {
  return folder + u"/log.1"_s;
}

QByteArray contentOf(const QString& file) {
  try {
    return private_file::read(file);
  } catch (const std::system_error&) {
    return {};
  }
}

}  // namespace

RunLog::RunLog(const QString& folder) : folder_(folder) {
  worker_.emplace();
  add(u"started "_s + QCoreApplication::applicationVersion());
  keepTraces([this](const QString& line) { add(line); });
}

RunLog::~RunLog() {
  keepTraces({});
  worker_.reset();
  write();
}

void RunLog::add(const QString& line) {
  const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
  const std::lock_guard lock(mutex_);
  const bool first = waiting_.isEmpty();
  // A disk that does not answer is no reason to hold more.
  if (waiting_.size() < largestLog) waiting_ += (time + u' ' + line + u'\n').toUtf8();
  if (first) worker_->post([this] { write(); });
}

void RunLog::write() {
  QByteArray lines;
  {
    const std::lock_guard lock(mutex_);
    lines = std::exchange(waiting_, {});
  }
  if (lines.isEmpty() || !makePrivateFolder(folder_)) return;
  const QString file = current(folder_);
  if (QFileInfo(file).size() > largestLog - lines.size())
    std::rename(QFile::encodeName(file).constData(),
                QFile::encodeName(earlier(folder_)).constData());
  try {
    private_file::append(file, lines);
  } catch (const std::system_error&) {
    // There is nowhere to tell of it.
  }
}

QStringList RunLog::lastLines(const QString& folder, int most) {
  const QByteArray all = contentOf(earlier(folder)) + contentOf(current(folder));
  QStringList lines = QString::fromUtf8(all).split(u'\n', Qt::SkipEmptyParts);
  return lines.mid(qMax(0, lines.size() - most));
}

}  // namespace vantor
