#include "platform/folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>

namespace vantor {

Folders Folders::ofUser() {
  return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
          QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
          QDir::tempPath()};
}

bool makePrivateFolder(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) return true;
  const QString parent = info.absolutePath();
  if (parent != path && !makePrivateFolder(parent)) return false;
  return ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || QFileInfo(path).isDir();
}

}  // namespace vantor
