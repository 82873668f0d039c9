// The event loop without a screen. Time is virtual. It passes in `Sleep`. It passes by a
// millisecond in a `DoEvents` that finds nothing to do. While the program waits and no user acts,
// it jumps to the next timer. A job of an hour therefore takes no longer than its computation.
//
// A program that would wait for ever, or that turns the loop without an end, is stopped. The loop
// then throws a std::logic_error with the reason, even through handlers that are running.
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

  // Lets time pass while the program is idle. Work that becomes due runs at its time.
  void Pass(int ms);
  // Runs a handler as the loop does. If the loop has been stopped, throws the error of the stop.
  void Deliver(const std::function<void()>& handler);
  // Brings a window to the front and activates it at once, as a user does before an action in the
  // window.
  void Touch(Form& form);
  Menu* OpenMenu(const Form& form) const;  // the menu that is open; null for none
  void CloseMenu();
  int Beeps() const { return beeps_; }

  std::int64_t MaxVirtualMs = 48LL * 3600 * 1000;  // limit for the loop's whole life
  std::int64_t MaxTurns = 50'000'000;              // limit for the loop's whole life

 private:
  NoScreen& screen_;
  Pointer pointer_ = Pointer::Normal;
  int beeps_ = 0;
};

}  // namespace vantora
