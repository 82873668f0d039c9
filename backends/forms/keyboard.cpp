#include "backends/forms/keyboard.h"

#include "backends/forms/form_loop.h"

#include <algorithm>
#include <utility>

namespace vantora {

void Keyboard::Down(Form& form, Control* focus, const KeyStroke& key, const Own& own) {
  // A key that opened or closed a window is often held a little longer. It must not answer the
  // question that has just come up.
  const auto down = down_.find(&form);
  const bool pressedHere = down != down_.end() && down->second.contains(key.Code);
  const bool function = key.Code >= kKeyF1 && key.Code <= kKeyF12;
  if (key.Repeats && key.Code != 0 && (function || !pressedHere)) return;
  if (!loop_.TakesInput(form)) return Escape(form, key);
  bool used = false;
  if (key.Code != 0) {
    down_[&form].insert(key.Code);
    used = true;  // the key counts as used if the handler fails
    loop_.Handle([&] { used = form.Form_KeyDown(key.Code, key.Control); });
  }
  if (used || ActsAsShortcut(form, focus, key)) return;
  if (focus == nullptr) {
    if (loop_.TakesInput(form)) own();
    return;
  }
  const auto reached = [&] { return loop_.TakesInput(*focus); };
  if (!reached()) return;
  focus->ShiftHeld = key.Shift;
  focus->ControlHeld = key.Control;
  if (const auto act = focus->KeyDown; act && key.Code != 0) {
    loop_.Handle([&] { act(key.Code); });
    if (!reached()) return;
  }
  bool wanted = true;
  if (const auto press = focus->KeyPress; press && key.Character != 0) {
    loop_.Handle([&] { wanted = press(key.Character); });
  }
  if (wanted && reached()) own();
}

bool Keyboard::ActsAsShortcut(Form& form, const Control* focus, const KeyStroke& key) {
  if (key.Code == 0 || key.Shift || !loop_.TakesInput(form)) return false;
  const auto& all = form.Shortcuts;
  const auto found = std::find_if(all.begin(), all.end(), [&](const Shortcut& shortcut) {
    return shortcut.Key == key.Code && shortcut.Control == key.Control && shortcut.Alt == key.Alt &&
           (shortcut.Focus == nullptr || shortcut.Focus == focus);
  });
  if (found == all.end()) return false;
  if (key.Repeats && !found->Repeats) return true;
  loop_.Handle([act = found->Act] { act(); });  // a copy, because the handler may destroy the form
  return true;
}

// Escape can end a long piece of work that has disabled its window.
void Keyboard::Escape(Form& form, const KeyStroke& key) {
  if (key.Code != kKeyEscape || !form.EscapeWhileDisabled || !loop_.Reachable(form)) return;
  loop_.Handle([&form] { form.Form_KeyDown(kKeyEscape, false); });
}

void Keyboard::Up(Form& form, Control* focus, int code, bool repeats, const Own& own) {
  if (!repeats && down_[&form].erase(code) != 0) {
    loop_.Handle([&form, code] { form.Form_KeyUp(code); });
  }
  if (focus == nullptr || !loop_.Alive(*focus)) return;
  if (const auto up = focus->KeyUp; up && code != 0 && loop_.TakesInput(*focus)) {
    loop_.Handle([&] { up(code); });
  }
  if (loop_.Alive(*focus)) own();
}

void Keyboard::Leave(Form& form) {
  const auto down = down_.find(&form);
  if (down == down_.end()) return;
  for (const int code : std::exchange(down->second, {})) {
    if (!loop_.Loaded(form)) return;
    loop_.Handle([&form, code] { form.Form_KeyUp(code); });
  }
}

}  // namespace vantora
