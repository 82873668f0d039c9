// The batch: the wave editor applies its last effects to the files of all selected tracks, one
// after the other, without showing itself.
#pragma once

#include "platform/controls.h"

#include <vector>

namespace vantora {

class HauptFenster;
class KatalogListe;
class Vorschau;
struct Programm;

class EffektStapel {
 public:
  // The controls that show the progress. The bar grows over the label `Bahn`.
  struct Tafel {
    Shape& Balken;
    Label& Bahn;
    Label& Stand;  // the number of the present file, and the number of all files
  };
  EffektStapel(Programm& programm, Tafel tafel, KatalogListe& liste, Vorschau& vorschau,
               HauptFenster& fenster);

  // Asks the user first. Returns when all files are done; the window is disabled meanwhile.
  void Beginnen();

 private:
  void Laufen(const std::vector<Text>& dateien);
  void Beenden();

  Programm& prog;
  Tafel tafel_;
  KatalogListe& liste_;
  Vorschau& vorschau_;
  HauptFenster& fenster_;
};

}  // namespace vantora
