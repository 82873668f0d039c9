// The way of a key to its handlers.
//
// The window gets every key first (Form_KeyDown). If the window does not use it, its shortcuts are
// tried. If the key is no shortcut, the control with the focus gets KeyDown, then KeyPress with the
// character, and then the control's kind acts on the key. The way ends early when a handler closes,
// covers or disables the window or the control. The release of a key reaches the window once,
// however often the key was repeated (Form_KeyUp), and then the control that has the focus at that
// time. A window that loses the keyboard gets Form_KeyUp for all keys that are still held.
//
// A disabled window gets no key, except Escape if it asks for that. A repetition of a held key goes
// only to the window in which the key was pressed; function keys do not repeat.
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

  // `focus` is the control with the focus, or nothing. `own` is the action of its kind.
  void Down(Form& form, Control* focus, const KeyStroke& key, const Own& own);
  void Up(Form& form, Control* focus, int code, bool repeats, const Own& own);
  void Leave(Form& form);  // the keyboard goes to another window
  void Forget(const Form& form) { down_.erase(&form); }

 private:
  // Returns true if the key belongs to a shortcut of the window.
  bool ActsAsShortcut(Form& form, const Control* focus, const KeyStroke& key);
  void Escape(Form& form, const KeyStroke& key);

  FormLoop& loop_;
  std::map<const Form*, std::set<int>> down_;  // held keys that each window has got
};

}  // namespace vantora
