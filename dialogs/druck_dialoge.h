// The dialogs for fonts, colours and printing as one call each.
#pragma once

#include "platform/controls.h"

namespace vantora {

struct Programm;

// Flags of the dialogs for fonts, colours and printing, as far as they are in use.
enum DialogFlags : int {
  kSchriftFuerBeide = 3,  // fonts of the screen and of the printer
  kFarbeAnzeigen = 4,
  kDruckerWaehlen = 18,
};

// What the font dialog begins with, and what was chosen.
struct Schriftart {
  Text Name;
  int Groesse = 10;  // points
  bool Fett = false, Kursiv = false;
  bool operator==(const Schriftart&) const = default;
};

// Cancelled, these two change nothing and return false. A blank title is the dialog's own.
bool SchriftHolen(Programm& prog, Schriftart& schrift, int flags = kSchriftFuerBeide);
bool FarbeHolen(Programm& prog, const Text& titel, Color& farbe, int flags = kFarbeAnzeigen);
// Sets the printer that is printed on, its copies and its file. Cancelled, it raises
// kFehlerAbbruch. The user is asked before a file is replaced.
void DruckerHolen(Programm& prog, int flags = kDruckerWaehlen);

}  // namespace vantora
