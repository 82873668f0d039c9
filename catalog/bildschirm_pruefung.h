// Checks whether the screen has enough colours and room for the program, and chooses the size of
// the main window. A screen that the program cannot use is reported, and ProgrammEnde is raised.
#pragma once

namespace vantora {

struct Programm;

void FarbenPruefen(Programm& prog);

// `OhneBild` is the small window without a picture behind it.
enum class FensterGroesse { OhneBild, Klein, Gross };
// Stores the size of the screen in the program, and returns the size of the main window.
FensterGroesse BildschirmPruefen(Programm& prog);

}  // namespace vantora
