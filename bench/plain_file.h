// A wave file accessed by plain system calls, as the yardstick of the edits, and the CPU time.
#pragma once

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace vantora {

inline double CpuTime() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <typename Work>
double Spent(const Work& work) {
  const double start = CpuTime();
  work();
  return CpuTime() - start;
}

class PlainFile {
 public:
  static constexpr std::int64_t kHeader = 44;

  explicit PlainFile(const std::filesystem::path& file, std::size_t block = 1U << 20U)
      : file_(::open(file.c_str(), O_RDWR | O_CLOEXEC)), block_(block) {
    if (file_ < 0) throw std::runtime_error("no " + file.string());
  }
  // The changed data are on the disk when an edit ends.
  ~PlainFile() {
    ::fsync(file_);
    ::close(file_);
  }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  // Moves everything from `from` to the end of the file to `to`.
  void Move(std::int64_t from, std::int64_t to) {
    for (std::size_t bytes = 0; (bytes = Read(from)) > 0;) {
      Write(bytes, to);
      from += static_cast<std::int64_t>(bytes);
      to += static_cast<std::int64_t>(bytes);
    }
  }
  void ReadAll() {
    std::int64_t place = kHeader;
    for (std::size_t bytes = 0; (bytes = Read(place)) > 0;) {
      place += static_cast<std::int64_t>(bytes);
    }
  }
  void WriteAll() {
    const std::int64_t end = ::lseek(file_, 0, SEEK_END);
    for (std::int64_t place = kHeader; place < end;) {
      const auto left = static_cast<std::size_t>(end - place);
      const std::size_t bytes = std::min(left, block_.size());
      Write(bytes, place);
      place += static_cast<std::int64_t>(bytes);
    }
  }

 private:
  std::size_t Read(std::int64_t place) {
    const ssize_t bytes = ::pread(file_, block_.data(), block_.size(), place);
    if (bytes < 0) throw std::runtime_error("cannot read");
    return static_cast<std::size_t>(bytes);
  }
  void Write(std::size_t bytes, std::int64_t place) {
    const ssize_t done = ::pwrite(file_, block_.data(), bytes, place);
    if (done != static_cast<ssize_t>(bytes)) throw std::runtime_error("cannot write");
  }

  int file_;
  std::vector<char> block_;
};

}  // namespace vantora
