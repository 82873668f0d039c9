// Shows the length of the catalog and the time that remains on the disc.
#pragma once

#include "platform/controls.h"

#include <cstdint>

namespace vantora {

struct Programm;

class KatalogZeiten {
 public:
  KatalogZeiten(Programm& programm, Label& laenge, Label& rest);

  void Leeren();  // shows the times of an empty catalog
  void Zeigen();  // shows the present times, in red if the catalog is longer than the disc
  // Shows the times right after opening, in red already if little time remains.
  void NachOeffnen();
  // Reports to the user a catalog that is longer than the disc.
  void ObInZeitGrenzen(std::int64_t ms);
  void Pruefen();  // reports the present catalog if it is longer than the disc

 private:
  void RestzeitZeigen(std::int64_t restMs, bool gruen);

  Programm& prog;
  Label& lblKatalogLaenge;
  Label& lblRestzeitCD;
};

}  // namespace vantora
