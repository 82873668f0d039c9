// Keys between the toolkit and the form model, and by the names that a script uses.
#pragma once

#include "platform/controls.h"

#include <QKeyEvent>

#include <optional>

namespace vantora::keys {

// The code that handlers get; 0 for a key that they are not told of.
int Code(const QKeyEvent& event);
// What the key writes, for KeyPress: a character, or 8, 13 or 27; 0 for nothing.
int Character(const QKeyEvent& event);
// True for the keys that walk through a list: arrows, Home and End, without Ctrl or Shift.
bool Walks(const QKeyEvent& event);

struct Stroke {
  int Key = 0;  // Qt::Key
  Qt::KeyboardModifiers Modifiers;
  QString Words;
};
// "F1", "Ctrl+A", "Shift+Tab", "x", "7"; nothing for a name that no key has.
std::optional<Stroke> Parse(const Text& name);
// The key that writes one character.
Stroke Writing(QChar character);

}  // namespace vantora::keys
