#include "ui/channels/programme_times.h"

#include <QDateTime>
#include <QLocale>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

QString shortTime(ProviderTime time) {
  const auto sinceEpoch =
      std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  const QTime local = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).time();
  const QLocale locale;
  // Where no locale is set, even the short style has seconds.
  if (locale.language() == QLocale::C) return local.toString(u"HH:mm"_s);
  return locale.toString(local, QLocale::ShortFormat);
}

}  // namespace

QString programmeTimes(const GuideEntry& entry) {
  return shortTime(entry.start) + u"–"_s + shortTime(entry.end);
}

}  // namespace vantor
