#include "cost.h"
#include "input.h"
#include "provider/provider_account.h"

using namespace Qt::StringLiterals;
using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(
      Harmless{R"({"id":"0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C","name":"a","server":"http://a",)"
               R"("userAgent":"a","username":"a","password":")",
               "abcdefghijklmnopqrstuvwxyz", R"("})"},
      [](const QByteArray& bytes) {
        mayRefuse([&] {
          const ProviderAccount account = ProviderAccount::fromJSON(bytes);
          const QByteArray stored = account.toJSON();
          mustHold(ProviderAccount::fromJSON(stored).toJSON() == stored);
          account.api(u"get_series"_s);
        });
      });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
