// The window system: shows forms, waits, and runs handlers, all on the one interface thread.
//
// A handler that fails does not bring the program down: the loop catches what leaves a handler,
// reports it to `OnError` and goes on. `ProgrammEnde` is the exception: after it every wait of the
// loop (`Run`, `ShowModal`, `DoEvents`, `Sleep`) throws `ProgrammEnde` again, so that all
// procedures that wait are left, and `Run` returns to the entry by throwing it.
#pragma once

#include "platform/form.h"
#include "platform/laufzeitfehler.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

enum class Pointer { Normal = 0, SizeWE = 9, Hourglass = 11, ArrowHourglass = 13 };

// Who sits in front of the program when it is no person: asked whenever the loop would wait.
class User {
 public:
  virtual ~User() = default;
  // The program waits for its user with `front` in front (nothing when no window is open). Acts, or
  // returns false when there is nothing more to do.
  virtual bool Act(Form* front) = 0;
  // True while the user lets time pass. He has said by `PostAfter` when he goes on; a loop with a
  // virtual clock lets the time pass and does not ask him until then.
  virtual bool Resting() const { return false; }
};

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  virtual void Show(Form& form) = 0;       // in front, not modal; `DoEvents` paints it
  virtual void ShowModal(Form& form) = 0;  // returns when the form is hidden
  virtual void Hide(Form& form) = 0;       // no effect on a form that is not shown
  virtual void Minimize(Form& form) = 0;
  virtual void SetFocus(Control& control) = 0;
  virtual void PopupMenu(Form& form, Menu& menu) = 0;  // runs the handler of the item chosen
  virtual Form* Front() = 0;                           // the window in front, or nothing

  virtual void Run() = 0;  // until `Quit` or `ProgrammEnde`
  virtual void Quit() = 0;
  virtual void DoEvents() = 0;     // brings dirty controls onto the screen, runs what is due
  virtual void Sleep(int ms) = 0;  // lets time pass without events
  // Runs `work` on the interface thread at the next `DoEvents` or wait. From any thread.
  virtual void Post(std::function<void()> work) = 0;
  // The same after `ms` milliseconds of the program's clock; from the interface thread.
  virtual void PostAfter(int ms, std::function<void()> work) = 0;

  // When the key or the mouse button that is being handled was pressed, however late the handling
  // comes; outside of such a handler, now. In milliseconds of the program's clock, from some start
  // of their own: only differences mean something.
  virtual std::int64_t EventMs() const = 0;

  virtual void MousePointer(Pointer pointer) = 0;
  virtual Pointer MousePointer() const = 0;
  virtual void Beep() = 0;

  // The plain box of the desktop, for messages that can come before the windows stand. `flags` as
  // for the program's own box; 2 in its lowest digit asks abort (3), retry (4), ignore (5).
  int SystemBox(const Text& text, int flags, const Text& title);

  std::function<void(const Laufzeitfehler&)> OnError;  // what a handler threw
  User* TheUser = nullptr;

  const std::vector<Form*>& Forms() const { return forms_; }  // all that are loaded

  // Runs a handler of a window as the loop runs all of them (see above).
  void Dispatch(const std::function<void()>& handler);
  bool Ended() const { return ended_; }

 protected:
  friend class Form;
  virtual void Attach(Form& form);  // it is loaded
  virtual void Detach(Form& form);  // it goes
  static void SetVisible(Form& form, bool visible);
  void LeaveIfEnded() const;  // throws ProgrammEnde after the end

  bool ended_ = false;

 private:
  void ReportError(const Laufzeitfehler& fehler);

  std::vector<Form*> forms_;
};

// Pass the press and the release of a button on as a user's hand would, picture and all.
void Press(PictureButton& button, int mouseButton = kLeftButton);
void Release(PictureButton& button, int mouseButton = kLeftButton);

}  // namespace vantora
