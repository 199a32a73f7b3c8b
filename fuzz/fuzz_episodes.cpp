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
  const QByteArray bytes = inputBytes(data, size);
  const qsizetype memory = yardstick.measure(bytes);
  for (const MediaItem& episode : episodes) mustHold(!episode.providerID.isEmpty());
  // Rows without an id take no room of their own.
  mustHold(memory <=
           65'536 + 16 * bytes.size() + 512 * bytes.count("id\"") + 2048 * episodes.size());
  return 0;
}
