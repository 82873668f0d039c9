// Cuts a recording into takes by its level: a pause of a set length ends a take, the next sound
// begins one. Times are milliseconds of the system's counter, in 32 bits that wrap.
#pragma once

#include <cstdint>

namespace vantora {

struct Pegelausloeser {
  std::int32_t Pegelschwelle = 0;  // sum of both sides from which on sound counts as there
  std::int32_t Pausenlaenge = 0;   // ms that end a take
  bool Wartet = false;             // a pause has ended a take, and the next sound is awaited
  bool NimmtAuf = false;           // a take is being written
  std::uint32_t LetzterPegel = 0;  // when the level was last above the threshold; 0 after a cut

  enum class Schritt {
    Nichts,
    Laeuft,  // the take goes on; `StilleMs` of silence up to now
    Ende,    // a pause has ended the take, which does not get this buffer
    Beginn,  // this buffer is the first of a take
  };
  struct Ergebnis {
    Schritt Was = Schritt::Nichts;
    std::int64_t StilleMs = 0;
  };

  // What a buffer with this sum level, heard at `jetzt`, means. Sets nothing but LetzterPegel.
  Ergebnis Puffer(std::int32_t summe, std::uint32_t jetzt) {
    if (summe > Pegelschwelle) LetzterPegel = jetzt;
    if (NimmtAuf) {
      const std::int64_t stille = std::uint32_t{jetzt - LetzterPegel};
      return {stille >= Pausenlaenge ? Schritt::Ende : Schritt::Laeuft, stille};
    }
    return {Wartet && summe >= Pegelschwelle ? Schritt::Beginn : Schritt::Nichts, 0};
  }
};

// The automatic level: looks at the mean of eleven sum levels at a time, and turns down what comes
// near full scale on both sides.
class Pegelautomatik {
 public:
  static constexpr std::int32_t kGrenze = 65400;

  // A level; true when the eleventh has made a new mean.
  bool Messen(std::int32_t summe) {
    summe_ += summe;
    if (++anzahl_ <= kMessungen) return false;
    mittel_ = Gerundet(summe_, anzahl_);
    summe_ = anzahl_ = 0;
    return true;
  }
  // What a line's level (0 to 65536) becomes by the mean.
  std::int32_t Neu(std::int32_t pegel) const {
    if (mittel_ <= kGrenze) return pegel;
    const std::int32_t neu = pegel - (mittel_ - kGrenze) * 90;
    return neu < 0 ? 0 : neu;
  }

 private:
  static constexpr std::int32_t kMessungen = 10;
  // Eleven is odd, so there are no ties.
  static std::int32_t Gerundet(std::int32_t summe, std::int32_t durch) {
    return (summe + durch / 2) / durch;
  }

  std::int32_t summe_ = 0, anzahl_ = 0, mittel_ = 0;
};

}  // namespace vantora
