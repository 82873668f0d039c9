// Who learns of a key, and in which order.
//
// The window sees every key first. What it leaves goes to the control with the focus: KeyDown, then
// KeyPress for what the key writes, then what the kind of control makes of the key by itself. A
// handler that closes, covers or disables the window or the control ends that. When the key is let
// go the window learns of it once, however often it was repeated, and then the control that has the
// focus by then. A window that is left by the keyboard learns that all its keys are up.
//
// A window that is disabled gets no key but Escape, when it asks for that.
#pragma once

#include "backends/forms/keys.h"

#include "platform/form.h"

#include <functional>
#include <map>
#include <set>

namespace vantora {

class FormLoop;

class Keyboard {
 public:
  using Own = std::function<void()>;
  explicit Keyboard(FormLoop& loop) : loop_(loop) {}

  // `focus` is the control with the focus, or nothing. `own` is what its kind makes of the key.
  void Down(Form& form, Control* focus, const KeyStroke& key, const Own& own);
  void Up(Form& form, Control* focus, int code, bool repeats, const Own& own);
  void Leave(Form& form);  // another window has the keyboard from now on
  void Forget(const Form& form) { down_.erase(&form); }

 private:
  void Escape(Form& form, const KeyStroke& key);

  FormLoop& loop_;
  std::map<const Form*, std::set<int>> down_;  // the codes whose press each window has had
};

}  // namespace vantora
