#include "input.h"
#include "provider/vantor_configuration.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] { VantorConfiguration::decode(inputBytes(data, size)); });
  return 0;
}
