#include "platform/folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>

#include <sys/stat.h>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

// QStandardPaths knows it from Qt 6.7 on.
QString stateFolder() {
  const QString named = qEnvironmentVariable("XDG_STATE_HOME");
  return QDir::isAbsolutePath(named) ? QDir::cleanPath(named)
                                     : QDir::homePath() + u"/.local/state"_s;
}

}  // namespace

Folders Folders::ofUser() {
  return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
          QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation), QDir::tempPath(),
          stateFolder()};
}

QString Folders::preferencesFile() const {
  return configuration + u"/Vantor Player/preferences.ini"_s;
}

QString Folders::notes() const {
  return state + u"/Vantor Player"_s;
}

bool makePrivateFolder(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) return true;
  const QString parent = info.absolutePath();
  if (parent != path && !makePrivateFolder(parent)) return false;
  if (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0) return true;
  const int error = errno;
  if (QFileInfo(path).isDir()) return true;
  errno = error;
  return false;
}

}  // namespace vantor
