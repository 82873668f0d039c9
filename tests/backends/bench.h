// What a back end works with in a test: a home on a disk that can fail, and the loop of a program
// without a screen.
#pragma once

#include "backends/headless/headless_background.h"
#include "backends/headless/headless_loop.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/running_out.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora::test {

class Bench : public testing::Test {
 protected:
  // Every handler of events calls this, so that a call from another thread is noticed.
  void Note() { Elsewhere = Elsewhere || std::this_thread::get_id() != self_; }
  // Lets the loop turn in real time until `done`, for 20 seconds at the most.
  bool Until(const std::function<bool()>& done, int msATurn = 1) {
    for (int turn = 0; turn < 20'000; ++turn) {
      if (done()) return true;
      loop.Pass(msATurn);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
  }

  Home home;
  RunningOut disk{home.Files};
  HeadlessClock clock;
  HeadlessLoop loop{clock};
  HeadlessBackground background{loop};
  bool Elsewhere = false;

 private:
  const std::thread::id self_ = std::this_thread::get_id();
};

}  // namespace vantora::test
