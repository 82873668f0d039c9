// A bottle of one test's own: its folder, what befalls the drive in it, and what lies there.
// The program has to run with the library of the bottle loaded before all others.
#pragma once

#include "tests/backends/linux/home.h"

#include <cstdlib>
#include <string>

namespace vantora::test {

class Bottle {
 public:
  Bottle() {
    EXPECT_NE(std::getenv("LD_PRELOAD"), nullptr) << "run under libbottle.so";
    for (const auto& entry : fs::directory_iterator(Folder())) {
      if (entry.path().filename() != "machine") fs::remove_all(entry.path());
    }
    Say("");
  }

  // The library remembers the folder, which therefore is one for the whole process.
  static const fs::path& Folder() {
    static const TempFolder folder;
    static const int set = ::setenv("VANTORA_BOTTLE", folder().c_str(), 1);
    static_cast<void>(set);
    return folder();
  }

  // From here on these lines befall the drive, and no others.
  static void Say(const std::string& script) {
    Put(Folder() / "script.new", "log\n" + script);
    fs::rename(Folder() / "script.new", Folder() / "script");
  }

  static std::string Toc(const char* disc = "disc") { return Get(Folder() / disc / "toc"); }
  static std::string Image(const char* disc = "disc") { return Get(Folder() / disc / "image.bin"); }
  // How often a command that begins so was given (see the library's log).
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
