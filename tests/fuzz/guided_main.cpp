// The entry of clang's fuzzer. With VANTORA_FUZZ_SEEDS in the environment, it only writes the seeds
// into that folder, for a search that starts from them.
#include "tests/fuzz/fuzz_body.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  const char* folder = std::getenv("VANTORA_FUZZ_SEEDS");
  if (folder == nullptr) return 0;
  int number = 0;
  for (const std::string& seed : vantora::test::AllSeeds()) {
    const auto name = "seed-" + std::to_string(++number);
    std::ofstream(std::filesystem::path(folder) / name, std::ios::binary) << seed;
  }
  std::exit(0);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vantora::test::FuzzOne({reinterpret_cast<const char*>(data), size});
  return 0;
}
