#include <QUrl>

#include "cost.h"
#include "input.h"
#include "provider/vantor_configuration.h"

using namespace vantor;

namespace {

/// What is taken for a server's address is one, and stays it.
void check(const QByteArray& bytes) {
  mayRefuse([&] {
    const QString server = VantorConfiguration::decode(bytes);
    const QUrl address(server, QUrl::StrictMode);
    mustHold(address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty());
    mustHold(address.scheme() == QLatin1String("http") ||
             address.scheme() == QLatin1String("https"));
    mustHold(!address.hasQuery() && !address.hasFragment());
    mustHold(!server.endsWith(QLatin1Char('/')) && !server.contains(QLatin1Char('"')));
    mustHold(VantorConfiguration::decode(R"({"schemaVersion":1,"serverUrl":")" + server.toUtf8() +
                                         R"("})") == server);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // As much as is fetched.
  if (size > 16'384) return -1;
  static Yardstick yardstick(
      Harmless{R"({"schemaVersion":1,"serverUrl":"https://a.example)", "/segment", R"("})"}, check);
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
