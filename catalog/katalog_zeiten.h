// How long the catalog lasts, and how much time the disc has left.
#pragma once

#include "platform/controls.h"

#include <cstdint>

namespace vantora {

struct Programm;

class KatalogZeiten {
 public:
  KatalogZeiten(Programm& programm, Label& laenge, Label& rest);

  void Leeren();       // the times of an empty catalog
  void Zeigen();       // the times of the present catalog, red when it is longer than the disc
  void NachOeffnen();  // the same right after opening: red already when little time remains
  // Reports a catalog that is longer than the disc.
  void ObInZeitGrenzen(std::int64_t ms);
  void Pruefen();  // the same for the present catalog

 private:
  void RestzeitZeigen(std::int64_t restMs, bool gruen);

  Programm& prog;
  Label& lblKatalogLaenge;
  Label& lblRestzeitCD;
};

}  // namespace vantora
