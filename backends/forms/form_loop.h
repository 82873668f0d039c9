// The event loop of both worlds: which window is in front, which reports the handlers get, and
// which work runs next. World holds the differences between a desktop and a program without a
// screen.
//
// A turn runs the work that is due (agenda.h), lets the world handle its input, and then reports
// the changes:
//   Form_Activate   Show and ShowModal call it.
//   Form_GotFocus   The window that is in front again gets it: before ShowModal returns, otherwise
//                   at the end of the turn. It also comes when the user returns from another
//                   program. Form_Paint follows at once.
//   Form_Paint      A window gets it at the end of the first turn after it was shown.
//   GotFocus        The first control gets it in the first turn after its window was shown; every
//                   other control gets it with the focus, after LostFocus of the control before.
// After the end of the program no form gets a report.
//
// When the program waits (Run, ShowModal) and no work is due, `TheUser` is asked to act. A program
// that is never idle asks the user too, but first answers the user's last action. Run ends when the
// user has no more actions. If a modal window is open then, the program ends, and LeftOpen returns
// the name of that window. An exception of the user is no error of the program: the program ends,
// and Run throws std::logic_error with the same message.
#pragma once

#include "backends/forms/agenda.h"
#include "backends/forms/focus.h"
#include "backends/forms/keyboard.h"
#include "backends/forms/window_stack.h"
#include "backends/forms/world.h"

#include "platform/event_loop.h"

#include <memory>
#include <string>

namespace vantora {

class FormLoop : public EventLoop {
 public:
  ~FormLoop() override;

  // No effect on the window that is already in front.
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  void Minimize(Form& form) override;
  void SetFocus(Control& control) override;         // no effect on a control that cannot have it
  void PopupMenu(Form& form, Menu& menu) override;  // returns at once
  Form* Front() override { return stack_.Front(); }

  void Run() override;
  void Quit() override { quit_ = true; }
  void DoEvents() override;
  void Post(std::function<void()> work) override { agenda_.Post(std::move(work)); }
  void PostAfter(int ms, std::function<void()> work) override;
  // Delayed work gets its due time, also if the program was busy then.
  std::int64_t EventMs() const override;

  // ---- for hands and tests ----

  bool Loaded(const Form& form) const;       // compares addresses: the form may be destroyed
  bool Alive(const Control& control) const;  // compares addresses: the control may be destroyed
  bool Blocked(const Form& form) const;      // behind a modal window, or the program has ended
  bool Reachable(const Form& form) const;    // shown, not minimized and not blocked
  bool TakesInput(const Form& form) const;   // reachable and not disabled
  bool TakesInput(const Control& control) const;  // its window takes input; visible and enabled
  Control* Focus(const Form& form) const { return world_->FocusOf(form); }  // nothing for none
  const Text& LeftOpen() const { return leftOpen_; }
  // Does what a click on a window does first.
  void BringForward(Form& form);
  // Runs `work` as an action of the user at that time of EventMs.
  void ActAt(std::int64_t ms, const std::function<void()>& work);
  void Sync();  // shows dirty controls, and reads the settings of the timers

  // ---- for the world and its windows ----

  void Handle(const std::function<void()>& handler);  // runs a handler under the rules of EventLoop
  bool Handling() const { return depth_ > 0; }
  bool Minimized(const Form& form) const { return stack_.Minimized(form); }
  Keyboard& Keys() { return keyboard_; }
  void FocusCame(Control& control) { focus_.Came(control); }
  void FocusWent(const Control& control) { focus_.Went(control); }
  void Chosen(Form& form);    // the user has activated another window
  void Restored(Form& form);  // the user has restored a minimized window
  void Returned();            // the user comes back from another program
  // Sets the time of the event that is handled now, nothing between events. Returns the time
  // before.
  std::optional<std::int64_t> EventBegins(std::optional<std::int64_t> ms);
  // Ends a program that cannot go on; Run then throws std::logic_error with this text.
  [[noreturn]] void Stop(const std::string& why);
  void ThrowIfStopped() const;

 protected:
  explicit FormLoop(std::unique_ptr<World> world);
  bool Turn();
  World& TheWorld() const { return *world_; }
  std::optional<std::int64_t> NextDue() const { return agenda_.NextDue(); }

 private:
  void Detach(Form& form) override;
  void Present(Form& form, bool modal);
  void Wait(const std::function<bool()>& done, const Form* modal);
  void AskUser(const Form* modal);
  bool RunDue();
  bool ReportFront();
  bool PaintUncovered();
  void ReportFocus(Control& control, bool came);

  const std::unique_ptr<World> world_;
  Agenda agenda_;
  WindowStack stack_;
  Keyboard keyboard_;
  FocusReports focus_;
  std::vector<Form*> uncovered_;    // shown, and still without Form_Paint
  const Form* reported_ = nullptr;  // the front window of the last report; may be destroyed
  std::optional<std::int64_t> eventMs_;
  std::optional<std::string> stopped_;
  Text leftOpen_;
  bool quit_ = false;
  int depth_ = 0;  // handlers that are running
};

}  // namespace vantora
