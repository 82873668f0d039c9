// The names of keys, as scripts use them, and what a key writes.
#pragma once

#include "platform/controls/keys.h"
#include "platform/text.h"

#include <optional>

namespace vantora {

struct KeyStroke {
  int Code = 0;       // for KeyDown and KeyUp; 0 for keys that are not reported
  int Character = 0;  // for KeyPress: what the key writes, or 8, 13 or 27; 0 for nothing
  bool Control = false, Shift = false;

  bool operator==(const KeyStroke&) const = default;
};

// "F1", "Return", "Ctrl+A", "Shift+Tab", "x", "7"; upper and lower case are the same. A single
// character means its key, so only "Shift+" makes a capital of it. Nothing for a name that no key
// has.
std::optional<KeyStroke> KeyByName(const Text& name);

// The key that writes one character; a line end is the Return key.
KeyStroke KeyFor(wchar_t character);

// What a key writes that is reported under this code when `written` stands on it.
int CharacterOf(int code, int written, bool control);

}  // namespace vantora
