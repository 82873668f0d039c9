// The start, from the splash window to the user's first action: finds the devices, reads the
// settings, mends files of a killed program, and opens the last catalog. An error at one step does
// not keep the program from starting.
#pragma once

#include "platform/edits.h"

#include <functional>

namespace vantora {

class HauptFenster;
class KatalogAblage;
class KatalogListe;
class Vorschau;
struct Programm;

class ProgrammStart {
 public:
  struct Teile {
    KatalogListe& Liste;
    KatalogAblage& Ablage;
    vantora::Vorschau& Vorschau;
  };
  ProgrammStart(Programm& programm, Teile teile, HauptFenster& fenster);

  // Raises ProgrammEnde when the user gives up at an error.
  void Init_Prog();
  // Reports once the edits and burns that a killed program had left unfinished.
  void AusgebessertZeigen();

 private:
  void Schritt(const std::function<void()>& anweisung);
  bool NochmalNachFehler(int nummer, const Text& beschreibung);
  void Komponenten();
  void Soundkarte();
  void Optionen();
  void Brenner();
  void Status(int text);

  Programm& prog;
  Teile t_;
  HauptFenster& fenster_;
  MendedEdits Ausgebessert_;
};

}  // namespace vantora
