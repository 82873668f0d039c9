// Cuts a recording into takes by its level: a pause of a set length ends a take, the next sound
// begins one. Times are in milliseconds of the system's 32-bit counter, which wraps.
#pragma once

#include <cstdint>

namespace vantora {

struct Pegelausloeser {
  std::int32_t Pegelschwelle = 0;  // sum of both channels from which on a buffer counts as sound
  std::int32_t Pausenlaenge = 0;   // a pause of so many ms ends a take
  bool Wartet = false;             // a pause has ended a take, and the next sound is awaited
  bool NimmtAuf = false;           // a take is being written
  std::uint32_t LetzterPegel = 0;  // when the level was last above the threshold; 0 after a cut

  enum class Schritt {
    Nichts,
    Laeuft,  // the take goes on; `StilleMs` have been silent so far
    Ende,    // a pause has ended the take, which does not get this buffer
    Beginn,  // this buffer is the first of a take
  };
  struct Ergebnis {
    Schritt Was = Schritt::Nichts;
    std::int64_t StilleMs = 0;
  };

  // Decides what a buffer with this level, recorded at `jetzt`, means. Changes only LetzterPegel.
  Ergebnis Puffer(std::int32_t summe, std::uint32_t jetzt) {
    if (summe > Pegelschwelle) LetzterPegel = jetzt;
    if (NimmtAuf) {
      const std::int64_t stille = std::uint32_t{jetzt - LetzterPegel};
      return {stille >= Pausenlaenge ? Schritt::Ende : Schritt::Laeuft, stille};
    }
    return {Wartet && summe >= Pegelschwelle ? Schritt::Beginn : Schritt::Nichts, 0};
  }
};

// The automatic level: takes the mean of eleven levels at a time, and turns the input down when
// both channels come near full scale.
class Pegelautomatik {
 public:
  static constexpr std::int32_t kGrenze = 65400;

  // Adds a level; returns true when the eleventh has made a new mean.
  bool Messen(std::int32_t summe) {
    summe_ += summe;
    if (++anzahl_ <= kMessungen) return false;
    mittel_ = Gerundet(summe_, anzahl_);
    summe_ = anzahl_ = 0;
    return true;
  }
  // Returns the new level of an input line (0 to 65536) for the last mean.
  std::int32_t Neu(std::int32_t pegel) const {
    if (mittel_ <= kGrenze) return pegel;
    const std::int32_t neu = pegel - (mittel_ - kGrenze) * 90;
    return neu < 0 ? 0 : neu;
  }

 private:
  static constexpr std::int32_t kMessungen = 10;
  // The divisor is eleven, which is odd, so there are no ties.
  static std::int32_t Gerundet(std::int32_t summe, std::int32_t durch) {
    return (summe + durch / 2) / durch;
  }

  std::int32_t summe_ = 0, anzahl_ = 0, mittel_ = 0;
};

}  // namespace vantora
