// libburn as this program uses it. The library exists once in a process, keeps one drive at a time
// here, and is locked by the object that uses it. Its messages go into a queue, never to the
// terminal.
#pragma once

#include "platform/text.h"

#include <sys/types.h>
// libburn.h needs the include above.
#include <libburn/libburn.h>

#include <mutex>
#include <string>
#include <vector>

namespace vantora {

using namespace burn;  // the functions in it begin with "burn_" once more

struct LibraryMessage {
  int Code = 0;  // the library's own code, 0x0002....
  int Errno = 0;
  int Severity = 0;  // to be compared with the constants below
  std::string Words;
};

class BurnLibrary {
 public:
  static constexpr int kNote = 0x30000000, kSorry = 0x60000000, kFailure = 0x68000000;

  BurnLibrary();  // waits until no other object holds the library
  BurnLibrary(const BurnLibrary&) = delete;
  BurnLibrary& operator=(const BurnLibrary&) = delete;

  std::vector<LibraryMessage> Messages();  // messages since the last call

 private:
  std::unique_lock<std::mutex> held_;
};

Text FromLibrary(const std::string& words);
Text BurnLibraryVersion();  // "1.5.4"

}  // namespace vantora
