// The world of the windows: a desktop with a toolkit, or a program without a screen. The model
// (FormLoop) decides what happens to a window, and the world shows it. The world reports the
// actions of the user and of the desktop to the model.
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

  virtual std::int64_t NowUs()
      const = 0;  // the program's clock in microseconds; only differences count
  // Converts a time of NowUs to the milliseconds of EventLoop::EventMs.
  virtual std::int64_t StampOf(std::int64_t us) const { return us / 1000; }
  virtual void Wake() {}  // ends a Rest; called from any thread
  // Handles the input of the user and the desktop. Returns true if there was any.
  virtual bool HandleInput() = 0;
  // Ends a DoEvents. `busy`: its turn had work.
  virtual void EndTurns(bool busy) = 0;
  // Waits until the time `until`, microseconds, or until input or posted work arrives. Without
  // `until` no work is planned. `modal` is the window of a modal call, nothing in the main loop.
  virtual void Rest(std::optional<std::int64_t> until, const Form* modal) = 0;
  virtual void TurnEnds() {}  // windows of destroyed forms can be deleted

  // ---- windows ----

  // Shows the form in front. `behind` was in front before, or nothing.
  virtual void Appear(Form& form, bool modal, Form* behind) = 0;
  virtual void Vanish(Form& form) = 0;
  virtual void Iconify(Form& form) = 0;
  virtual void ComeForward(Form& form) = 0;  // the model has put it in front
  virtual void Bring(Form& form) = 0;        // shows its dirty controls
  virtual void Gone(Form& form) = 0;         // the form is being destroyed

  // ---- focus ----

  // Gives the focus to a control that can have it. FormLoop::FocusCame follows as soon as its
  // window is active.
  virtual void FocusOn(Control& control) = 0;
  virtual Control* FocusOf(const Form& form) const = 0;               // nothing for none
  virtual void FocusReported(Control& /*control*/, bool /*came*/) {}  // before the handlers
  // Opens the menu at the mouse. The handler of the chosen item runs after the menu has closed.
  virtual void PopupMenu(Form& form, Menu& menu) = 0;
};

}  // namespace vantora
