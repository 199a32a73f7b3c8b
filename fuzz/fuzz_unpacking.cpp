#include "input.h"
#include "net/unpacking.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  static const QByteArray encodings[] = {"gzip", "deflate", "br", "zstd"};
  const auto unpacking = Unpacking::of(encodings[data[0] % 4]);
  // In pieces of a length that the second byte tells.
  const qsizetype most = data[1] + 1;
  const QByteArray bytes = inputBytes(data + 2, size - 2);
  char room[64];
  for (qsizetype at = 0; at < bytes.size(); at += most) {
    QByteArrayView packed = QByteArrayView(bytes).sliced(at, std::min(most, bytes.size() - at));
    for (qsizetype written = sizeof room, rounds = 0; written == sizeof room; ++rounds) {
      written = unpacking->unpack(packed, room, sizeof room);
      mustHold(written <= qsizetype{sizeof room});
      if (written < 0 || rounds == 10'000) return 0;
      mustHold(written == qsizetype{sizeof room} || packed.isEmpty());
    }
  }
  return 0;
}
