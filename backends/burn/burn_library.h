// libburn as this program uses it: there is one for the whole process, it knows one drive at a
// time, and it belongs to whoever holds it. What it has to say it puts into a queue; nothing
// reaches the terminal.
#pragma once

#include "platform/text.h"

#include <sys/types.h>
// The library's header needs the line above.
#include <libburn/libburn.h>

#include <mutex>
#include <string>
#include <vector>

namespace vantora {

using namespace burn;  // all names in there begin with it once more

struct LibraryMessage {
  int Code = 0;  // the library's own, 0x0002....
  int Errno = 0;
  int Severity = 0;  // compares with the constants below
  std::string Words;
};

class BurnLibrary {
 public:
  static constexpr int kNote = 0x30000000, kSorry = 0x60000000, kFailure = 0x68000000;

  BurnLibrary();  // waits until nobody else holds the library
  BurnLibrary(const BurnLibrary&) = delete;
  BurnLibrary& operator=(const BurnLibrary&) = delete;

  std::vector<LibraryMessage> Messages();  // what it said since the last call

 private:
  std::unique_lock<std::mutex> held_;
};

Text FromLibrary(const std::string& words);
Text BurnLibraryVersion();  // "1.5.4"

}  // namespace vantora
