// Stops the process, or lets a call fail, at a chosen one of the system calls that change files:
// write, truncate, reserve, rename and remove. Linking it puts it between the program and the
// system's library.
#pragma once

#include <functional>

namespace vantora::test {

struct KillSwitch {
  // The process ends as by a kill, in the `call`-th such call from now, counted from 1: before it,
  // or for a write with `half` after its first half.
  static void KillAt(int call, bool half);
  // The call fails with this number, and all later ones too when `forGood`.
  static void FailAt(int call, int error, bool forGood);
  static void Off();
  static bool Sprung();  // the call has come
  static int Calls();    // since it was set
};

// Runs `work` in a process of its own; true when it came to its end, false when it was killed.
bool RunInProcess(const std::function<void()>& work);

}  // namespace vantora::test
