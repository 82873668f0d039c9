// Where the two strips of the medley window stand: the end of one track slides to the right and the
// start of the next one to the left, so that they overlap in proportion to the crossfade. In twips.
#pragma once

#include "app/werte/zahlen.h"

#include <algorithm>
#include <cstdint>

namespace vantora {

struct Streifen {
  static constexpr int kRand = 75;      // left of the track of the first strip
  static constexpr int kRahmen = 110;   // of a strip's picture, beside the wave
  static constexpr int kSekunden = 10;  // the longest crossfade

  int Breite = 0;  // of a strip
  int Bahn = 0;    // of the track that it slides over

  int Weg() const { return Breite - Bahn; }
  double Schritt() const { return static_cast<double>(Weg()) / kSekunden; }
  int Links0(double sekunden) const { return kRand + Ganz32(Schritt() * sekunden); }
  // At 0 seconds the waves in the two pictures just touch.
  int Links1(double sekunden) const {
    return kRand + Breite - 2 * kRahmen - Ganz32(Schritt() * sekunden);
  }

  // Where the first strip stands when it was dragged so far from the left end of its way.
  int Geschoben(int strecke) const {
    const int schritt = Weg() / kSekunden;
    if (schritt <= 0) return kRand;
    return std::clamp(strecke, 0, Weg()) / schritt * schritt + kRand;
  }
  // The seconds that it stands for there.
  int Sekunden(int links) const {
    if (Weg() <= 0) return 1;
    return std::max(Ganz32((links - kRand) / Schritt()), 1);
  }
};

}  // namespace vantora
