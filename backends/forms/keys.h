// The names of keys in scripts, and the characters that keys write.
#pragma once

#include "platform/controls/keys.h"
#include "platform/text.h"

#include <optional>

namespace vantora {

struct KeyStroke {
  int Code = 0;       // for KeyDown and KeyUp; 0 for keys without a report
  int Character = 0;  // for KeyPress: the character, or 8, 13 or 27; 0 for none
  bool Control = false, Shift = false, Alt = false;
  bool Repeats = false;  // sent again, because the key is held

  bool operator==(const KeyStroke&) const = default;
};

// "F1", "Return", "Ctrl+A", "Shift+Tab", "Alt+Up", "x", "7"; upper and lower case are the same. A
// single character is the name of its key, so only "Shift+" makes a capital of it. Nothing for an
// unknown name.
std::optional<KeyStroke> KeyByName(const Text& name);

// The key that writes one character; a line end is the Return key.
KeyStroke KeyFor(wchar_t character);

// The character for KeyPress of a key with this code that writes `written`.
int CharacterOf(int code, int written, bool control);

}  // namespace vantora
