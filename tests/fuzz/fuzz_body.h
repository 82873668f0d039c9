// What a fuzz body consists of. Built with clang's fuzzer it is driven by coverage; built without,
// `standalone_main.cpp` drives it by mutations of its seeds that are the same in every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace vantora::test {

// Well-formed inputs that a body starts from.
std::vector<std::string> FuzzSeeds();

// Whatever the input is, this must hold; a body that finds it broken ends the process.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "broken: " << what << std::endl;
  std::abort();
}

}  // namespace vantora::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
