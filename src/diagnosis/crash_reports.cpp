#include "diagnosis/crash_reports.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <unistd.h>

namespace vantor::crash_reports {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype mostKept = 5;

}  // namespace

QString ofThisRun(const QString& folder) {
  return u"%1/crash-%2-%3.new"_s.arg(
      folder, QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss'Z'"),
      QString::number(::getpid()));
}

QStringList namesIn(const QString& folder) {
  // They begin with the time.
  return QDir(folder).entryList({u"crash-*.new"_s, u"crash-*.txt"_s}, QDir::Files,
                                QDir::Name | QDir::Reversed);
}

std::optional<QString> lookThrough(const QString& folder) {
  const QStringList names = namesIn(folder);
  for (qsizetype i = mostKept; i < names.size(); ++i) QFile::remove(folder + u'/' + names[i]);
  std::optional<QString> newest;
  for (const QString& name : names.first(qMin(names.size(), mostKept))) {
    if (!name.endsWith(".new"_L1)) continue;
    const QString report = folder + u'/' + name;
    if (newest)
      markTold(report);
    else
      newest = report;
  }
  return newest;
}

QString nameOnceTold(const QString& report) {
  return report.chopped(3) + u"txt"_s;
}

void markTold(const QString& report) {
  QFile::rename(report, nameOnceTold(report));
}

}  // namespace vantor::crash_reports
