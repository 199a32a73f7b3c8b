#include "provider/service_values.h"

#include <QHostAddress>

namespace vantor {
namespace {

bool isLoopback(const QString& host) {
  return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

}  // namespace

ServiceValues ServiceValues::ofBuild() {
  ServiceValues values{QUrl(QStringLiteral(VANTOR_CONFIG_URL)),
                       QStringLiteral(VANTOR_FALLBACK_SERVER),
                       QUrl(QStringLiteral(VANTOR_SUPPORT_URL)), QStringLiteral(VANTOR_BUNDLE_ID)};
  const QUrl endpoint(qEnvironmentVariable("VANTOR_CONFIG_URL"), QUrl::StrictMode);
  const bool https = endpoint.scheme() == QLatin1String("https") && !endpoint.host().isEmpty();
  const bool local = endpoint.scheme() == QLatin1String("http") && isLoopback(endpoint.host());
  if (endpoint.isValid() && (https || local)) values.endpoint = endpoint;
  const QString fallback = qEnvironmentVariable("VANTOR_FALLBACK_SERVER");
  if (!fallback.isEmpty()) values.fallback = fallback;
  return values;
}

}  // namespace vantor
