#include "input.h"
#include "provider/episodes_parsing.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] {
    for (const MediaItem& episode : parseEpisodes(inputBytes(data, size), MediaItem()))
      mustHold(!episode.providerID.isEmpty());
  });
  return 0;
}
