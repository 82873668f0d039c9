// A user's home in a temporary folder that the test deletes, with a drive table and files.
#pragma once

#include <gtest/gtest.h>

#include "backends/linux/drive_table.h"
#include "backends/linux/linux_files.h"

#include "platform/laufzeitfehler.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

namespace vantora::test {

namespace fs = std::filesystem;

// Tests write much and keep nothing. A memory file system, if it has enough space, is faster than a
// disk that discards every freed block.
inline fs::path RoomForTests() {
  const fs::path memory = "/dev/shm";
  constexpr std::uintmax_t kEnough = 2'000'000'000;
  std::error_code none;
  const bool asked = std::getenv("TMPDIR") != nullptr;
  return !asked && fs::space(memory, none).available >= kEnough && !none
             ? memory
             : fs::temp_directory_path();
}

class TempFolder {
 public:
  TempFolder() {
    std::string name = (RoomForTests() / "vantora-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code left;
    fs::remove_all(path_, left);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const fs::path& operator()() const { return path_; }
  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

inline void Put(const fs::path& file, std::string_view bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string Get(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The number of the run-time error that `work` raises; 0 when it raises none.
inline int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const Laufzeitfehler& fehler) {
    EXPECT_FALSE(fehler.Beschreibung.empty());
    return fehler.Nummer;
  }
  return 0;
}

// The number of all names in a folder, including hidden ones, to find files left behind.
inline std::size_t NamesIn(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

struct Home {
  TempFolder Folder;
  LinuxPlaces Places = PlacesBelow(Folder());
  DriveTable Table{Places};
  LinuxFiles Files{Table};

  fs::path operator/(const char* name) const { return Folder() / name; }
};

// Limits the size of files to `bytes` while it exists, to simulate a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    rlimit limit = old_;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*handler_)(int);
};

// Permissions do not apply to root, so a test of permissions runs as another user for a while.
class Nobody {
 public:
  explicit Nobody(const fs::path& owned) : root_(::geteuid() == 0) {
    if (!root_) return;
    for (const auto& entry : fs::recursive_directory_iterator(owned)) Give(entry.path());
    Give(owned);
    EXPECT_EQ(::seteuid(kNobody), 0);
  }
  ~Nobody() {
    if (root_ && ::seteuid(0) != 0) std::abort();
  }
  Nobody(const Nobody&) = delete;
  Nobody& operator=(const Nobody&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  static void Give(const fs::path& path) {
    EXPECT_EQ(::lchown(path.c_str(), kNobody, static_cast<gid_t>(-1)), 0);
  }
  bool root_;
};

}  // namespace vantora::test
