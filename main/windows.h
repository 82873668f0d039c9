// The makers of all windows. The composition alone sees every window, so a program gets them from
// here.
#pragma once

namespace vantora {

struct Programm;

// Gives every window's place in the program its maker.
void AllWindows(Programm& program);

}  // namespace vantora
