#include "cost.h"
#include "input.h"
#include "net/redirect_rule.h"

using namespace vantor;

namespace {

/// The original address and the header, with a line break between them.
void check(const QByteArray& bytes) {
  const qsizetype split = bytes.indexOf('\n');
  if (split < 0) return;
  const QUrl original = QUrl::fromEncoded(bytes.left(split), QUrl::StrictMode);
  const QByteArray location = bytes.mid(split + 1);
  if (!original.isValid() || original.host().isEmpty()) return;
  if (!redirectIsAllowed(original, location)) return;
  const QUrl target = original.resolved(QUrl::fromEncoded(location));
  mustHold(!target.isValid() ||
           (target.scheme() == original.scheme() && target.host() == original.host() &&
            target.port() == original.port()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(Harmless{"http://a.example/\n", "/path", ""}, check);
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
