#include <QUrl>

#include "cost.h"
#include "input.h"
#include "provider/safe_artwork.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(Harmless{"http://a.example/", "path/", "1.png"}, [](const QByteArray&
                                                                                     bytes) {
    const auto address = safeArtwork({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!address) return;
    const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(*address));
    mustHold(url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty());
    mustHold(url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
  });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
