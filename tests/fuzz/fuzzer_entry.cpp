#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_input.h"

/// What libFuzzer calls for each input that it makes up.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dralo::fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
