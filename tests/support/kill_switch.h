// Stops the process or makes a call fail, at a chosen one of the system calls that change files:
// write, truncate, reserve, rename and remove. Linking this file replaces those functions of the C
// library.
#pragma once

#include <functional>

namespace vantora::test {

struct KillSwitch {
  // Ends the process as by a kill, at call number `call` from now, counted from 1: before the call,
  // or with `half` after the first half of a write.
  static void KillAt(int call, bool half);
  // Makes call number `call` fail with `error`, and with `forGood` all later ones too.
  static void FailAt(int call, int error, bool forGood);
  static void Off();
  static bool Sprung();  // the chosen call has been made
  static int Calls();    // number of calls since the switch was set
};

// Runs `work` in a child process. Returns true when it has ended, false when it was killed.
bool RunInProcess(const std::function<void()>& work);

}  // namespace vantora::test
