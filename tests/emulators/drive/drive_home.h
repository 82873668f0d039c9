// The folder of a test with the script, the discs and the log of the emulated drive. The test
// program must run with the library of the emulated drive preloaded.
#pragma once

#include "tests/backends/linux/home.h"

namespace vantora::test {

class DriveHome {
 public:
  DriveHome() {
    EXPECT_NE(std::getenv("LD_PRELOAD"), nullptr) << "run under libemulated_drive.so";
    for (const auto& entry : fs::directory_iterator(Folder())) {
      if (entry.path().filename() != "machine") fs::remove_all(entry.path());
    }
    Say("");
  }

  // The library reads the folder once, so a process has only one.
  static const fs::path& Folder() {
    static const TempFolder folder;
    static const int set = ::setenv("VANTORA_EMULATED_DRIVE", folder().c_str(), 1);
    static_cast<void>(set);
    return folder();
  }

  // Replaces the drive's script by these lines.
  static void Say(const std::string& script) {
    Put(Folder() / "script.new", "log\n" + script);
    fs::rename(Folder() / "script.new", Folder() / "script");
  }

  static std::string Toc(const char* disc = "disc") { return Get(Folder() / disc / "toc"); }
  static std::string Image(const char* disc = "disc") { return Get(Folder() / disc / "image.bin"); }
  // How often a command that begins with `start` was given (see the library's log).
  static int Told(const std::string& start) {
    const std::string log = "\n" + Get(Folder() / "log");
    int count = 0;
    for (std::size_t at = log.find("\n" + start); at != std::string::npos;
         at = log.find("\n" + start, at + 1)) {
      ++count;
    }
    return count;
  }
};

}  // namespace vantora::test
