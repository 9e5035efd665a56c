// The function that libFuzzer calls.
#include <cstdint>

#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  tests::Fuzz({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
