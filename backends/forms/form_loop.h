// The event loop of every world: who is in front, what is reported to whom and when, and which work
// comes next. What differs between a desktop and a program without a screen is in its World.
//
// A turn runs what is due (agenda.h), lets the world handle what has come in, and reports what has
// come of it:
//   Form_Activate   inside Show and ShowModal
//   Form_GotFocus   to the window that is in front again: before ShowModal returns, else at the end
//                   of the turn; also when the person comes back from another program. Form_Paint
//                   follows at once
//   Form_Paint      at the end of the first turn after a window was shown
//   GotFocus        of the first control at the first turn after its window was shown; of another
//                   one when it gets the focus, after LostFocus of the one that had it
// Nothing is reported to a form after the program has ended.
//
// Where the program waits (Run, ShowModal) and nothing is due, `TheUser` is asked to act. A program
// that is never idle asks him nevertheless, but not before it has answered what he did last. A user
// who has nothing more to do ends Run; in front of a modal window he leaves the program, and
// LeftOpen then has the window's name. What a user throws is no error of the program: the program
// ends, and Run throws std::logic_error with the same words.
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

  // Showing the window that is in front already does nothing.
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  void Minimize(Form& form) override;
  void SetFocus(Control& control) override;         // no effect on what cannot have the focus
  void PopupMenu(Form& form, Menu& menu) override;  // returns at once
  Form* Front() override { return stack_.Front(); }

  void Run() override;
  void Quit() override { quit_ = true; }
  void DoEvents() override;
  void Post(std::function<void()> work) override { agenda_.Post(std::move(work)); }
  void PostAfter(int ms, std::function<void()> work) override;
  // Delayed work carries the time when it was due, also when the program was busy then.
  std::int64_t EventMs() const override;

  // ---- for hands and tests ----

  bool Loaded(const Form& form) const;            // compares places only: the form may be gone
  bool Alive(const Control& control) const;       // the same
  bool Blocked(const Form& form) const;           // behind a modal window, or the program has ended
  bool Reachable(const Form& form) const;         // shown, not minimized and not blocked
  bool TakesInput(const Form& form) const;        // reachable and not disabled
  bool TakesInput(const Control& control) const;  // its window does, and it is in sight and in use
  Control* Focus(const Form& form) const { return world_->FocusOf(form); }  // nothing for none
  const Text& LeftOpen() const { return leftOpen_; }
  // What a click on a window does to it, before it does anything else.
  void BringForward(Form& form);
  // Runs `work` as if it came from the user at that moment, by EventMs.
  void ActAt(std::int64_t ms, const std::function<void()>& work);
  void Sync();  // brings onto the screen what is dirty, and looks which timers are on

  // ---- for the world and its windows ----

  void Handle(const std::function<void()>& handler);  // runs it as all handlers are run
  bool Handling() const { return depth_ > 0; }
  bool Minimized(const Form& form) const { return stack_.Minimized(form); }
  Keyboard& Keys() { return keyboard_; }
  void FocusCame(Control& control) { focus_.Came(control); }
  void FocusWent(const Control& control) { focus_.Went(control); }
  void Chosen(Form& form);    // the person has gone to another window of the program
  void Restored(Form& form);  // the person has brought back a minimized window
  void Returned();            // the person comes back from another program
  // When the event that is being handled came about; nothing between events. Returns what it was.
  std::optional<std::int64_t> EventBegins(std::optional<std::int64_t> ms);
  // A program that cannot go on: it ends, and Run throws this.
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
  std::vector<Form*> uncovered_;  // shown, and not yet told to paint
  const Form* told_ = nullptr;    // was told last that it is in front; may be gone
  std::optional<std::int64_t> eventMs_;
  std::optional<std::string> stopped_;
  Text leftOpen_;
  bool quit_ = false;
  int depth_ = 0;  // handlers that are running
};

}  // namespace vantora
