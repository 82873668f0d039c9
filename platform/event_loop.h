// The window system: shows forms, waits, and runs handlers. Everything happens on the interface
// thread, except for calls of Post.
//
// A handler that throws does not end the program: the loop catches the exception, passes it to
// `OnError` and goes on. `ProgrammEnde` is different: from then on every wait of the loop (`Run`,
// `ShowModal`, `DoEvents`, `Sleep`) throws `ProgrammEnde` again, so that all waiting procedures are
// left, and `Run` returns to its caller by throwing it.
#pragma once

#include "platform/form.h"
#include "platform/laufzeitfehler.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

enum class Pointer { Normal = 0, SizeWE = 9, Hourglass = 11, ArrowHourglass = 13 };

// A substitute for a human user. The loop asks the substitute whenever the loop would wait for
// input.
class User {
 public:
  virtual ~User() = default;
  // Called when the program waits for input with the window `front` in front (null when no window
  // is open). Performs an action, or returns false when there is nothing more to do.
  virtual bool Act(Form* front) = 0;
  // True while the user lets time pass, after posting the next action by `PostAfter`. A loop with a
  // virtual clock then advances its time and does not call Act before that action.
  virtual bool Resting() const { return false; }
};

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  virtual void Show(Form& form) = 0;       // in front, not modal; `DoEvents` paints it
  virtual void ShowModal(Form& form) = 0;  // returns when the form is hidden
  virtual void Hide(Form& form) = 0;       // without effect on a form that is not shown
  virtual void Minimize(Form& form) = 0;
  virtual void SetFocus(Control& control) = 0;  // without effect on a control that cannot have it
  virtual void PopupMenu(Form& form, Menu& menu) = 0;  // runs the handler of the chosen item
  virtual Form* Front() = 0;                           // null when no window is open

  virtual void Run() = 0;  // returns after `Quit`, throws after `ProgrammEnde`
  virtual void Quit() = 0;
  virtual void DoEvents() = 0;     // updates the screen from dirty controls, runs all due work
  virtual void Sleep(int ms) = 0;  // waits without handling events
  // Runs `work` on the interface thread during the next `DoEvents` or wait. May be called from any
  // thread.
  virtual void Post(std::function<void()> work) = 0;
  // Runs `work` after `ms` milliseconds of the program's clock. From the interface thread only.
  virtual void PostAfter(int ms, std::function<void()> work) = 0;

  // The time at which the user pressed the key or mouse button that is being handled, even if it is
  // handled late. Outside of such a handler, the current time. In milliseconds of the program's
  // clock with an arbitrary start, so only differences are meaningful.
  virtual std::int64_t EventMs() const = 0;

  virtual void MousePointer(Pointer pointer) = 0;
  virtual Pointer MousePointer() const = 0;
  virtual void Beep() = 0;

  // The desktop's plain message box, usable before the program's windows exist. `flags` are those
  // of the program's own box; a lowest digit of 2 offers abort (3), retry (4) and ignore (5).
  // Returns the number of the button.
  int SystemBox(const Text& text, int flags, const Text& title);  // platform/system_box.h

  std::function<void(const Laufzeitfehler&)> OnError;  // receives the errors thrown by handlers
  std::function<void()> OnIdle;  // Run calls it between turns, when no handler is running
  User* TheUser = nullptr;

  const std::vector<Form*>& Forms() const { return forms_; }  // all loaded forms

  // Runs a handler of a window. The exceptions of the handler are treated as the beginning of this
  // file describes.
  void Dispatch(const std::function<void()>& handler);
  bool Ended() const { return ended_; }

 protected:
  friend class Form;
  virtual void Attach(Form& form);  // the form is loaded
  virtual void Detach(Form& form);  // the form is destroyed
  static void SetVisible(Form& form, bool visible);
  void LeaveIfEnded() const;  // throws ProgrammEnde after the end

  bool ended_ = false;

 private:
  void ReportError(const Laufzeitfehler& fehler);

  std::vector<Form*> forms_;
};

// Presses and releases a button as a user does, including its pictures.
void Press(PictureButton& button, int mouseButton = kLeftButton);
void Release(PictureButton& button, int mouseButton = kLeftButton);

}  // namespace vantora
