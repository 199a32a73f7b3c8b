#include "diagnosis/report.h"

#include <QDir>

#include <unistd.h>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

constexpr int longestRow = 200;

}  // namespace

QString withoutHome(QString text) {
  for (const QString& home : {QDir::homePath(), QDir::home().canonicalPath()})
    if (home.size() > 1) text.replace(home, u"~"_s);
  return text;
}

void Report::say(const QString& name, const QString& value) {
  quote(name + u": "_s + value);
}

void Report::quote(const QString& line) {
  QString row = withoutHome(line);
  for (QChar& c : row)
    if (!c.isPrint()) c = u' ';
  const QByteArray bytes = "  " + row.left(longestRow).toUtf8() + '\n';
  [[maybe_unused]] const ssize_t written =
      ::write(descriptor_, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace vantor
