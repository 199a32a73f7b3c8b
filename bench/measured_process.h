#pragma once

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

namespace vantor::bench {

using namespace Qt::StringLiterals;

/// A program of the benches, by its name.
inline QString benchProgram(const char* name) {
  return QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(name));
}
inline QString playerProgram() {
  return benchProgram("../src/app/vantor");
}

/// Asks it to end, as the desktop does, and sees that it does.
inline void end(QProcess& process) {
  process.terminate();
  if (!process.waitForFinished(8000)) process.kill();
  process.waitForFinished();
}

/// What the kernel says of a running process: proc(5).
inline QByteArray processFile(const QProcess& process, const char* name) {
  QFile file(u"/proc/%1/%2"_s.arg(process.processId()).arg(QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Its processor time so far, of all its threads.
inline double processorSeconds(const QProcess& process) {
  const QByteArray stat = processFile(process, "stat");
  // The name before, in brackets, may hold spaces.
  const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
  return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
         static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// A figure of its status, such as VmRSS, in MB of 10^6 bytes.
inline double statusMegabytes(const QProcess& process, const char* field) {
  const QByteArray status = processFile(process, "status");
  const qsizetype at = status.indexOf(field);
  if (at < 0) return 0;
  const qsizetype begin = at + static_cast<qsizetype>(qstrlen(field)) + 1;
  const QByteArray line = status.mid(begin, status.indexOf('\n', begin) - begin).trimmed();
  return line.left(line.indexOf(' ')).toDouble() * 1024 / 1e6;
}

}  // namespace vantor::bench
