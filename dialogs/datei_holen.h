// The file dialog as one call.
#pragma once

#include "app/zustand/katalog_zustand.h"

namespace vantora {

struct Programm;

// What the file dialog is asked for.
enum DateiTyp : int {
  kTypKatalog = 1,
  kTypWave = 2,
  kTypMusik = 3,
  kTypAufnahme = 4,
  kTypBild = 5,
  kTypPdf = 6,
};

// Runs the file dialog; the answer stands in the dialog fields of the program.
void DateiHolen(Programm& prog, int typ, int modus, const Text& vorschlag = {});

}  // namespace vantora
