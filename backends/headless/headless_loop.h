// The event loop without a screen. Time is virtual: it passes in `Sleep`, a millisecond at a time
// in a `DoEvents` that finds nothing to do, and in jumps to the next timer where the program waits
// and nobody sits in front of it. So a job of an hour takes no longer than its computing.
//
// A program that would wait for ever, or goes round without end, is stopped by a std::logic_error
// that says so, whatever handlers lie between.
#pragma once

#include "backends/forms/form_loop.h"
#include "backends/headless/headless_clock.h"

#include <cstdint>

namespace vantora {

class NoScreen;

class HeadlessLoop final : public FormLoop {
 public:
  explicit HeadlessLoop(HeadlessClock& clock);
  ~HeadlessLoop() override;

  void Sleep(int ms) override;
  void MousePointer(Pointer pointer) override { pointer_ = pointer; }
  Pointer MousePointer() const override { return pointer_; }
  void Beep() override { ++beeps_; }

  // ---- for hands and tests ----

  // Lets time pass in front of an idle program: what becomes due runs at its time.
  void Pass(int ms);
  // Runs a handler as the loop does; a stop of the loop is not swallowed.
  void Deliver(const std::function<void()>& handler);
  // What a person does to a window before he acts in it: it is in front and active at once.
  void Touch(Form& form);
  Menu* OpenMenu(const Form& form) const;  // popped up and not yet answered
  void CloseMenu();
  int Beeps() const { return beeps_; }

  std::int64_t MaxVirtualMs = 48LL * 3600 * 1000;  // of the loop's whole life
  std::int64_t MaxTurns = 50'000'000;              // turns in the loop's whole life

 private:
  NoScreen& screen_;
  Pointer pointer_ = Pointer::Normal;
  int beeps_ = 0;
};

}  // namespace vantora
