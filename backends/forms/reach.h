// Checks whether a user can reach a window or a control. The hands of both worlds use these
// functions. All functions throw Unreachable with the reason.
#pragma once

#include "platform/hands.h"

#include <string>
#include <vector>

namespace vantora {

class FormLoop;

std::string Utf8(const Text& text);
std::string NameOf(const Form& form);
std::string NameOf(const Control& control);  // including the name of the window
[[noreturn]] void Refuse(const std::string& why);

// Checks that the window takes input; with `evenDisabled` a disabled window passes. Brings the
// window to the front, as a click does.
void Reach(FormLoop& loop, Form& form, bool evenDisabled = false);
// Checks that the control is visible and enabled.
void Reach(FormLoop& loop, Control& control);
// Checks that the control has these rows, counted from 1, and can select all of them.
void CheckRows(const Control& control, const std::vector<int>& rows);

// The part of a control that no container cuts off, in twips from the upper left corner of the
// control.
struct SeenArea {
  int Left, Top, Right, Bottom;

  bool Has(int x, int y) const { return x >= Left && x < Right && y >= Top && y < Bottom; }
  bool Empty() const { return Left >= Right || Top >= Bottom; }
};
SeenArea SeenOf(const Control& control);

}  // namespace vantora
