// The frame of a fuzz test. With clang's fuzzer it is guided by coverage. Without it,
// `standalone_main.cpp` runs mutations of its seeds that are the same in every run. The seeds are
// the files in `corpus/NAME`.
#pragma once

#include <cstdlib>
#include <iostream>
#include <string>

namespace vantora::test {

// Tries one input.
void FuzzOne(const std::string& bytes);

// Checks a condition that must hold for every input; ends the process when it does not.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "broken: " << what << std::endl;
  std::abort();
}

}  // namespace vantora::test
