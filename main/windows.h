// The makers of all windows. Only the composition may include the header of every window.
#pragma once

namespace vantora {

struct Programm;

// Sets the makers of all windows of the program.
void AllWindows(Programm& program);

}  // namespace vantora
