// The entry of clang's fuzzer.
#include "tests/fuzz/fuzz_body.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vantora::test::FuzzOne({reinterpret_cast<const char*>(data), size});
  return 0;
}
