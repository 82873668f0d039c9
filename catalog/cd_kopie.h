// Copies an audio CD: reads all its tracks into the temporary folder and a new catalog, and opens
// the burn window with it.
#pragma once

#include "platform/text.h"

namespace vantora {

class HauptFenster;
class KatalogAblage;
class KatalogListe;
class Vorschau;
struct Programm;

class CDKopie {
 public:
  struct Teile {
    KatalogListe& Liste;
    KatalogAblage& Ablage;
    vantora::Vorschau& Vorschau;
  };
  CDKopie(Programm& programm, Teile teile, HauptFenster& fenster);

  // Does nothing while a copy runs. Events run during a copy. The main window is disabled while the
  // program waits for the disc and reads it.
  void Kopieren();

 private:
  void CDKopieren();
  Text QuellLaufwerk();
  bool QuellDiscOeffnen(const Text& laufwerk);
  bool KopieVorbereiten();
  bool KopieLesen();
  void KopieBrennen();

  Programm& prog;
  Teile t_;
  HauptFenster& fenster_;
  bool KopieLaeuft = false;  // from the button to the burn window
};

}  // namespace vantora
