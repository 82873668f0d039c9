// The frame of a fuzz test. With clang's fuzzer it is guided by coverage. Without it,
// `standalone_main.cpp` runs mutations of its seeds that are the same in every run. The seeds are
// the files in `corpus/NAME`.
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace vantora::test {

// Tries one input.
void FuzzOne(const std::string& bytes);

// Checks a condition that must hold for every input; ends the process when it does not.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "broken: " << what << std::endl;
  std::abort();
}

// Writes the file of an input. The file of the input before is overwritten and then cut, since some
// file systems wait for the disk after a file was emptied.
inline void Lay(const std::filesystem::path& place, const std::string& bytes) {
  const int file = ::open(place.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  const auto size = static_cast<off_t>(bytes.size());
  Require(::pwrite(file, bytes.data(), bytes.size(), 0) == size && ::ftruncate(file, size) == 0,
          "the file of an input can be written");
  ::close(file);
}

// Reads a whole file, in one step.
inline std::string Taken(const std::filesystem::path& place) {
  const int file = ::open(place.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat info {};
  Require(::fstat(file, &info) == 0, "a file can be read");
  std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
  Require(::pread(file, bytes.data(), bytes.size(), 0) == info.st_size, "a file can be read");
  ::close(file);
  return bytes;
}

}  // namespace vantora::test
