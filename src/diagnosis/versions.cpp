#include "diagnosis/versions.h"

#include <QCoreApplication>
#include <QSysInfo>

#include "playback/libvlc_findings.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

QString environment(const char* variable) {
  return qEnvironmentVariable(variable, u"not set"_s);
}

QString language() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (!qEnvironmentVariableIsEmpty(variable)) return qEnvironmentVariable(variable);
  return u"not set"_s;
}

}  // namespace

QList<std::pair<QString, QString>> versions() {
  return {{u"program"_s, QCoreApplication::applicationVersion()},
          {u"Qt"_s, u"%1, built with %2"_s.arg(QLatin1String(qVersion()), QT_VERSION_STR ""_L1)},
          {u"libVLC"_s, QString::fromUtf8(libVLCVersion())},
          {u"system"_s, QSysInfo::prettyProductName()},
          {u"kernel"_s, u"%1 %2, %3"_s.arg(QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                                           QSysInfo::currentCpuArchitecture())},
          {u"desktop"_s,
           u"%1, %2"_s.arg(environment("XDG_CURRENT_DESKTOP"), environment("XDG_SESSION_TYPE"))},
          {u"language"_s, language()}};
}

}  // namespace vantor
