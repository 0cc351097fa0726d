#include "fuzz_target.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tamberline::tryInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
