#pragma once

#include <QByteArray>
#include <QString>

namespace vantor::test {

/// Writes the file, and the folders above it that are missing; its path.
QString writeFile(const QString& path, const QByteArray& content = {});
/// The bytes of a file; none where it cannot be read.
QByteArray readFile(const QString& path);

}  // namespace vantor::test
