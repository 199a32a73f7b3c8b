#include "cost.h"
#include "input.h"
#include "provider/episodes_parsing.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static QList<MediaItem> episodes;
  static Yardstick yardstick(Harmless{R"({"episodes":{"1":[)",
                                      R"({"id":"1","title":"Episode","episode_num":1},)", "{}]}}"},
                             [](const QByteArray& bytes) {
                               episodes.clear();
                               mayRefuse([&] { episodes = parseEpisodes(bytes, MediaItem()); });
                             });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  for (const MediaItem& episode : episodes) mustHold(!episode.providerID.isEmpty());
  // Rows that are no episodes take no room of their own.
  mustHold(memory <= 65'536 + 16 * static_cast<qsizetype>(size) + 2048 * episodes.size());
  return 0;
}
