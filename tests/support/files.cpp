#include "support/files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vantor::test {

QString writeFile(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size())
      << path.toStdString();
  return path;
}

QByteArray readFile(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace vantor::test
