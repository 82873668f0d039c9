// The event loop without a screen. Time is virtual: it passes in `Sleep`, a millisecond at a time
// in a `DoEvents` that finds nothing to do, and in jumps to the next timer where the program waits
// and nobody sits in front of it. So a job of an hour takes no longer than its computing.
//
// Where the program waits (`Run`, `ShowModal`), work that is due comes first, then `TheUser` is
// asked to act. A user who has nothing more to do ends `Run`; in front of a modal window he leaves
// the program (`LeftOpen` then has the window's name). A program that would wait for ever, or goes
// round without end, is stopped by a std::logic_error that says so, whatever handlers lie between;
// so is one whose user throws.
#pragma once

#include "backends/headless/headless_clock.h"

#include "platform/event_loop.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

class HeadlessLoop final : public EventLoop {
 public:
  explicit HeadlessLoop(HeadlessClock& clock) : clock_(clock) {}

  // Form_Activate runs inside Show and ShowModal. When a modal window has gone, the window that is
  // in front again gets Form_GotFocus before ShowModal returns.
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  void Minimize(Form& form) override;
  void SetFocus(Control& control) override;         // no effect on what cannot take the focus
  void PopupMenu(Form& form, Menu& menu) override;  // returns at once; see OpenMenu
  Form* Front() override;

  void Run() override;
  void Quit() override { quit_ = true; }
  void DoEvents() override;
  void Sleep(int ms) override;
  void Post(std::function<void()> work) override;
  void PostAfter(int ms, std::function<void()> work) override;

  // Work that was to come at its time carries that time, also when the program was busy then.
  std::int64_t EventMs() const override { return eventMs_ ? *eventMs_ : clock_.Ticks(); }

  void MousePointer(Pointer pointer) override { pointer_ = pointer; }
  Pointer MousePointer() const override { return pointer_; }
  void Beep() override { ++beeps_; }

  // ---- for hands and tests ----

  // Lets time pass in front of an idle program: what becomes due runs at its time.
  void Pass(int ms);
  // Runs a handler as the loop does; a stop of the loop is not swallowed.
  void Deliver(const std::function<void()>& handler);
  bool Reachable(const Form& form) const;    // shown and not behind a modal window
  bool Alive(const Control& control) const;  // compares places only: `control` may be gone
  // What a click on a window does to it: it comes to the front, also when it was minimized.
  void BringForward(Form& form);
  Control* Focus(const Form& form) const;  // the control with the focus, or nothing
  static bool TakesFocus(const Control& control);
  Menu* OpenMenu(const Form& form) const;  // popped up and not yet answered
  void CloseMenu() { menu_ = nullptr; }
  const Text& LeftOpen() const { return leftOpen_; }  // blank when no modal window was left open
  int Beeps() const { return beeps_; }
  std::int64_t Paints() const { return paints_; }  // controls brought onto the (missing) screen

  std::int64_t MaxVirtualMs = 48LL * 3600 * 1000;  // of the loop's whole life
  std::int64_t MaxTurns = 50'000'000;              // events and DoEvents in the loop's whole life

 private:
  struct TimerState {
    const Form* Owner;
    int Interval, Starts;
    std::int64_t Due;
  };
  struct FormState {
    std::vector<Timer*> Timers;
    std::size_t ControlCount = 0;  // for which `Timers` was collected
    Control* Focus = nullptr;
    bool Minimized = false;
    bool Uncovered = false;  // wants a Form_Paint
  };
  struct Modal {
    Form* Window;
    int Token;
  };

  void Detach(Form& form) override;
  void Raise(Form& form);
  void Drop(const Form& form);
  void Activate(Form& form);
  void TellFront();
  void WaitFor(const std::function<bool()>& done, const Form* modal);
  bool AskUser();
  bool RunOne();
  void ArmTimers();
  std::optional<std::int64_t> NextDue() const;
  bool Jump(std::int64_t latest);
  void Advance(std::int64_t ms);
  void Paint();
  void CountTurn();
  [[noreturn]] void Stop(const std::string& why);

  HeadlessClock& clock_;
  std::mutex postedMutex_;
  std::deque<std::function<void()>> posted_;
  std::multimap<std::int64_t, std::function<void()>> delayed_;  // by time due
  std::map<Timer*, TimerState> armed_;
  std::map<const Form*, FormState> states_;
  std::vector<Form*> stack_;  // shown windows, the front last
  std::vector<Modal> modals_;
  const Form* told_ = nullptr;  // was told last that it is in front
  const Form* menuOwner_ = nullptr;
  Menu* menu_ = nullptr;
  std::optional<std::int64_t> eventMs_;  // when the delayed work that runs now was due
  std::optional<std::string> stopped_;
  Text leftOpen_;
  Pointer pointer_ = Pointer::Normal;
  bool quit_ = false;
  int beeps_ = 0;
  int nextToken_ = 0;
  std::int64_t paints_ = 0, turns_ = 0;
};

}  // namespace vantora
