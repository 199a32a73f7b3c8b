#include "input.h"
#include "provider/provider_client.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mayRefuse([&] { parseSignIn(inputBytes(data, size)); });
  return 0;
}
