#include "net/redirect_rule.h"

namespace vantor {

bool redirectIsAllowed(const QUrl& original, const QByteArray& location) {
  // Read from the text, since QUrl writes scheme and host in lower case.
  qsizetype colon = 0;
  while (colon < location.size() && !QByteArrayView(":/?#").contains(location.at(colon))) ++colon;
  const bool hasScheme = colon > 0 && colon < location.size() && location.at(colon) == ':';
  const QByteArray scheme = hasScheme ? location.left(colon) : original.scheme().toLatin1();
  if (scheme != original.scheme().toLatin1()) return false;
  const qsizetype slashes = hasScheme ? colon + 1 : 0;
  if (location.mid(slashes, 2) != "//") return !hasScheme;
  qsizetype end = slashes + 2;
  while (end < location.size() && !QByteArrayView("/?#").contains(location.at(end))) ++end;
  const QByteArray authority = location.mid(slashes + 2, end - slashes - 2);
  QByteArray expected = original.host(QUrl::FullyEncoded).toLatin1();
  if (expected.contains(':')) expected = '[' + expected + ']';
  if (original.port() >= 0) expected += ':' + QByteArray::number(original.port());
  return authority == expected;
}

}  // namespace vantor
