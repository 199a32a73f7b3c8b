#include "provider/redirect_rule.h"

namespace vantor {

bool redirectIsAllowed(const QUrl& original, const QByteArray& location) {
  // Read from the text, since QUrl writes scheme and host in lower case.
  const qsizetype slashes = location.indexOf("//");
  const qsizetype colon = location.indexOf(':');
  const qsizetype path = location.indexOf('/');
  const bool hasScheme = colon > 0 && (path < 0 || colon < path);
  const QByteArray scheme = hasScheme ? location.left(colon) : original.scheme().toLatin1();
  if (scheme != original.scheme().toLatin1()) return false;
  const bool hasAuthority = slashes >= 0 && slashes == (hasScheme ? colon + 1 : 0);
  if (!hasAuthority) return !hasScheme;
  qsizetype end = slashes + 2;
  while (end < location.size() && !QByteArrayView("/?#").contains(location.at(end))) ++end;
  const QByteArray authority = location.mid(slashes + 2, end - slashes - 2);
  QByteArray expected = original.host(QUrl::FullyEncoded).toLatin1();
  if (expected.contains(':')) expected = '[' + expected + ']';
  if (original.port() >= 0) expected += ':' + QByteArray::number(original.port());
  return authority == expected;
}

}  // namespace vantor
