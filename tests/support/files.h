#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vantor::test {

/// Writes the file, and the folders above it that are missing; its path.
inline QString writeFile(const QString& path, const QByteArray& content = {}) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size())
      << path.toStdString();
  return path;
}

/// The bytes of a file; none where it cannot be read.
inline QByteArray readFile(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace vantor::test
