#include "platform/folders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include <sys/stat.h>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

/// What the variable names: QStandardPaths follows relative paths too, which are to be ignored.
QString userFolder(const char* variable, const QString& usual) {
  const QString named = qEnvironmentVariable(variable);
  return QDir::isAbsolutePath(named) ? QDir::cleanPath(named) : QDir::homePath() + usual;
}

}  // namespace

Folders Folders::ofUser() {
  return {userFolder("XDG_DATA_HOME", u"/.local/share"_s),
          userFolder("XDG_CONFIG_HOME", u"/.config"_s), QDir::tempPath(),
          userFolder("XDG_STATE_HOME", u"/.local/state"_s)};
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
