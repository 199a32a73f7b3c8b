#pragma once

#include <QString>
#include <QUrl>

namespace vantor {

/// What a deployment of the program fixes: set at configure time, the first two overridden by the
/// environment variables VANTOR_CONFIG_URL and VANTOR_FALLBACK_SERVER.
struct ServiceValues {
  QUrl endpoint;     // the remote service configuration: https, or http to a loopback address
  QString fallback;  // the provider server used while nothing better is known
  QUrl supportSite;
  QString bundleIdentifier;

  static ServiceValues ofBuild();
};

}  // namespace vantor
