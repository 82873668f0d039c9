// A linear change of gain over frames of sound, in amplitude: the arithmetic of the fades.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

struct KlangFrame {
  std::int16_t Links = 0, Rechts = 0;
};

// Multiplies frame k by Start + k * Schritt in double precision, and rounds once to nearest, ties
// to even. The gain must stay within 0 and 1.
struct Rampe {
  double Start = 1, Schritt = 0;
  // `erster` is the number of the first of the frames.
  void Anwenden(KlangFrame* frames, std::size_t anzahl, std::int32_t erster) const;
};

}  // namespace vantora
