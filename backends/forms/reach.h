// What a person can reach, for hands of every world. What cannot be done throws Unreachable with a
// sentence that says why.
#pragma once

#include "platform/hands.h"

#include <string>
#include <vector>

namespace vantora {

class FormLoop;

std::string Utf8(const Text& text);
std::string NameOf(const Form& form);
std::string NameOf(const Control& control);  // with its window
[[noreturn]] void Refuse(const std::string& why);

// The window takes input, `evenDisabled` also while it is disabled. It comes to the front, as it
// does by a click.
void Reach(FormLoop& loop, Form& form, bool evenDisabled = false);
// The control can be seen and used.
void Reach(FormLoop& loop, Control& control);
// The control has these rows, counted from 1, and so many of them can be selected.
void CheckRows(const Control& control, const std::vector<int>& rows);

// The part of a control that lies between the edges of all that it lies in; twips from its corner.
struct SeenArea {
  int Left, Top, Right, Bottom;

  bool Has(int x, int y) const { return x >= Left && x < Right && y >= Top && y < Bottom; }
  bool Empty() const { return Left >= Right || Top >= Bottom; }
};
SeenArea SeenOf(const Control& control);

}  // namespace vantora
