#include "backends/forms/keyboard.h"

#include "backends/forms/form_loop.h"

#include <utility>

namespace vantora {

void Keyboard::Down(Form& form, Control* focus, const KeyStroke& key, const Own& own) {
  if (!loop_.TakesInput(form)) return Escape(form, key);
  bool used = false;
  if (key.Code != 0) {
    down_[&form].insert(key.Code);
    used = true;  // the key counts as used if the handler fails
    loop_.Handle([&] { used = form.Form_KeyDown(key.Code, key.Control); });
  }
  if (used) return;
  if (focus == nullptr) {
    if (loop_.TakesInput(form)) own();
    return;
  }
  const auto reached = [&] { return loop_.TakesInput(*focus); };
  if (!reached()) return;
  focus->ShiftHeld = key.Shift;
  focus->ControlHeld = key.Control;
  if (const auto down = focus->KeyDown; down && key.Code != 0) {
    loop_.Handle([&] { down(key.Code); });
    if (!reached()) return;
  }
  bool wanted = true;
  if (const auto press = focus->KeyPress; press && key.Character != 0) {
    loop_.Handle([&] { wanted = press(key.Character); });
  }
  if (wanted && reached()) own();
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
