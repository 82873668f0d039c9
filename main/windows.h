// The functions that create the windows. Only the composition may include the headers of all
// windows.
#pragma once

namespace vantora {

struct Programm;

// Sets the functions that create the program's windows.
void AllWindows(Programm& program);

}  // namespace vantora
