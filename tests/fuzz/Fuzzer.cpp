#include "tests/fuzz/Fuzzer.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Random input(data, size);
  fuzz(input);
  if (findings() != 0) std::abort();
  return 0;
}
