#include "input.h"
#include "provider/provider_account.h"

using namespace Qt::StringLiterals;

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] {
    const ProviderAccount account = ProviderAccount::fromJSON(inputBytes(data, size));
    const QByteArray stored = account.toJSON();
    mustHold(ProviderAccount::fromJSON(stored).toJSON() == stored);
    account.api(u"get_series"_s);
  });
  return 0;
}
