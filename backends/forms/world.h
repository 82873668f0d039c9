// The world in which the windows of the model stand: a desktop with a toolkit, or nothing at all.
// The model says what happens to the windows, the world shows it, and reports to the model
// (FormLoop) what the user and the desktop do.
#pragma once

#include "platform/form.h"

#include <cstdint>
#include <optional>

namespace vantora {

class FormLoop;

class World {
 public:
  virtual ~World() = default;
  virtual void Enter(FormLoop& model) = 0;  // once, before all other calls

  // ---- time and events ----

  virtual std::int64_t NowUs() const = 0;  // the program's clock, microseconds from some start
  // The same moment as the stamps of the user's events count it, in milliseconds.
  virtual std::int64_t StampOf(std::int64_t us) const { return us / 1000; }
  virtual void Wake() {}  // stirs Rest; from any thread
  // Handles what has come in from the user and the desktop; true when there was something.
  virtual bool HandleInput() = 0;
  // The end of a DoEvents; `busy`: the turn has found something to do.
  virtual void EndTurns(bool busy) = 0;
  // Nothing is to be done before `until`, microseconds; nothing is planned when that is missing.
  // Lets time pass until then, or until something comes in. `where` names the wait, for complaints.
  virtual void Rest(std::optional<std::int64_t> until, const Form* modal) = 0;
  virtual void TurnEnds() {}  // the windows of forms that have gone can be let go

  // ---- windows ----

  // The form is to be seen in front; `behind` was in front before, or nothing.
  virtual void Appear(Form& form, bool modal, Form* behind) = 0;
  virtual void Vanish(Form& form) = 0;
  virtual void Iconify(Form& form) = 0;
  virtual void ComeForward(Form& form) = 0;  // it is in front in the model; the desktop follows
  virtual void Bring(Form& form) = 0;        // what is dirty of it onto the screen
  virtual void Gone(Form& form) = 0;         // the form is being destroyed

  // ---- focus ----

  // Gives the focus to a control that can have it. Reports to FormLoop::FocusCame as soon as its
  // window is the active one.
  virtual void FocusOn(Control& control) = 0;
  virtual Control* FocusOf(const Form& form) const = 0;               // nothing for none
  virtual void FocusReported(Control& /*control*/, bool /*came*/) {}  // before the handlers
  // Popped up at the mouse; the handler of the item that is chosen runs when the menu has gone.
  virtual void PopupMenu(Form& form, Menu& menu) = 0;
};

}  // namespace vantora
