// What is on the disk: versions, libraries, preferences, notes of earlier runs.
#include <QDateTime>
#include <QFileInfo>

#include "diagnosis/crash_reports.h"
#include "diagnosis/report.h"
#include "diagnosis/run_log.h"
#include "diagnosis/sections.h"
#include "diagnosis/versions.h"
#include "platform/folders.h"
#include "storage/catalog_disk_store.h"

namespace vantor::sections {
namespace {

using namespace Qt::StringLiterals;

constexpr int mostLines = 30;

QString age(const QDateTime& since) {
  const qint64 minutes = since.secsTo(QDateTime::currentDateTimeUtc()) / 60;
  if (minutes < 120) return u"%1 minutes old"_s.arg(minutes);
  if (minutes < 48 * 60) return u"%1 hours old"_s.arg(minutes / 60);
  return u"%1 days old"_s.arg(minutes / (24 * 60));
}

QString sizeAndAge(qint64 bytes, const QDateTime& written) {
  return u"%1 bytes, %2"_s.arg(bytes).arg(age(written));
}

/// Anywhere but in the home the path may name the user.
QString shown(const QString& folder) {
  const QString inHome = withoutHome(folder);
  return inHome == folder ? u"$XDG_STATE_HOME/"_s + QFileInfo(folder).fileName() : inHome;
}

}  // namespace

void tellVersions(Report& report, int&, char**) {
  for (const auto& [name, value] : versions()) report.say(name, value);
}

void tellStorage(Report& report, int&, char**) {
  const Folders folders = Folders::ofUser();
  const QList<CatalogDiskStore::Copy> copies = CatalogDiskStore::copies(folders);
  if (copies.isEmpty()) report.say(u"libraries"_s, u"none"_s);
  for (const CatalogDiskStore::Copy& copy : copies)
    report.say(u"library of "_s + rawValue(copy.kind), sizeAndAge(copy.bytes, copy.written));
  const QFileInfo preferences(folders.preferencesFile());
  report.say(u"preferences"_s, preferences.exists()
                                   ? sizeAndAge(preferences.size(), preferences.lastModified())
                                   : u"none"_s);
}

void tellLog(Report& report, int&, char**) {
  const QString folder = Folders::ofUser().notes();
  const QStringList crashes = crash_reports::namesIn(folder);
  report.say(u"reports of crashes"_s,
             crashes.isEmpty() ? u"none"_s
                               : u"%1, the newest is %2"_s.arg(QString::number(crashes.size()),
                                                               crashes.constFirst()));
  report.say(u"they are in"_s, shown(folder));
  for (const QString& line : RunLog::lastLines(folder, mostLines)) report.quote(line);
}

}  // namespace vantor::sections
