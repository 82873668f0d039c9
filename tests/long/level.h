// What a process holds: handles, threads, memory and temporary files.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace vantora::test {

struct Level {
  int Handles = 0, Threads = 0, TempFiles = 0;
  std::size_t LiveKb = 0;      // memory that was allocated and not freed
  std::size_t ResidentKb = 0;  // memory that the process occupies

  std::string Words() const;
};

// Lets the toolkit forget the fonts and the pictures of buttons that it keeps, up to limits of its
// own. It forgets the fonts when the application gets another one.
void ForgetCaches();

// Measures this process. Temporary files are all files in `temporary`, and files in `home` that are
// named as files whose writing has not ended.
Level Measure(const std::filesystem::path& temporary, const std::filesystem::path& home);

}  // namespace vantora::test
