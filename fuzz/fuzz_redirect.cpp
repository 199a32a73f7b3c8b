#include "input.h"
#include "net/redirect_rule.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The original address and the header, with a line break between them.
  const QByteArray bytes = inputBytes(data, size);
  const qsizetype split = bytes.indexOf('\n');
  if (split < 0) return 0;
  const QUrl original = QUrl::fromEncoded(bytes.left(split), QUrl::StrictMode);
  const QByteArray location = bytes.mid(split + 1);
  if (!original.isValid() || original.host().isEmpty()) return 0;
  if (!redirectIsAllowed(original, location)) return 0;
  const QUrl target = original.resolved(QUrl::fromEncoded(location));
  mustHold(!target.isValid() ||
           (target.scheme() == original.scheme() && target.host() == original.host() &&
            target.port() == original.port()));
  return 0;
}
