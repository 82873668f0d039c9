// The positions of the two strips in the medley window: the end of one track is moved to the right
// and the start of the next to the left, so that the overlap is proportional to the crossfade. In
// twips.
#pragma once

#include "app/werte/zahlen.h"

#include <algorithm>
#include <cstdint>

namespace vantora {

struct Streifen {
  static constexpr int kRand = 75;      // left of the groove in which the first strip slides
  static constexpr int kRahmen = 110;   // part of a strip's picture beside the wave
  static constexpr int kSekunden = 10;  // the longest crossfade

  int Breite = 0;  // width of a strip
  int Bahn = 0;    // width of the groove in which it slides

  int Weg() const { return Breite - Bahn; }
  double Schritt() const { return static_cast<double>(Weg()) / kSekunden; }
  int Links0(double sekunden) const { return kRand + Ganz32(Schritt() * sekunden); }
  // At 0 seconds the waves of the two pictures just touch.
  int Links1(double sekunden) const {
    return kRand + Breite - 2 * kRahmen - Ganz32(Schritt() * sekunden);
  }

  // The position of the first strip after it was dragged by `strecke` from its leftmost position.
  int Geschoben(int strecke) const {
    const int schritt = Weg() / kSekunden;
    if (schritt <= 0) return kRand;
    return std::clamp(strecke, 0, Weg()) / schritt * schritt + kRand;
  }
  // The length of the crossfade when the first strip is at `links`.
  int Sekunden(int links) const {
    if (Weg() <= 0) return 1;
    return std::max(Ganz32((links - kRand) / Schritt()), 1);
  }
};

}  // namespace vantora
