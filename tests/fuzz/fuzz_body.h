// The functions of a fuzz test. With clang's fuzzer it is guided by coverage. Without it,
// `standalone_main.cpp` runs mutations of its seeds that are the same in every run.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace vantora::test {

// Valid inputs from which mutations start.
std::vector<std::string> FuzzSeeds();

// Tries one input.
void FuzzOne(const std::string& bytes);

// Checks a condition that must hold for every input; ends the process when it does not.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "broken: " << what << std::endl;
  std::abort();
}

// The seeds, then the inputs of the corpus in the source tree, in the order of their names.
inline std::vector<std::string> AllSeeds() {
  std::vector<std::string> seeds = FuzzSeeds();
  std::vector<std::filesystem::path> files;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(VANTORA_FUZZ_CORPUS, none)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const auto& file : files) {
    std::ifstream in(file, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return seeds;
}

}  // namespace vantora::test
