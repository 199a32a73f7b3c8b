#include <QUrl>

#include "input.h"
#include "provider/safe_artwork.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto address = safeArtwork({reinterpret_cast<const char*>(data), size});
  if (!address) return 0;
  const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(*address));
  mustHold(url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty());
  mustHold(url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
  return 0;
}
