// A long fade takes hardly more time than its file takes to be read and written, so doubles are too
// slow for it. Frames are multiplied in groups by whole numbers of 16 bits, of which the vector
// unit takes four times as many at once. The gain is split into two such halves, and the result is
// known to some 1/32768 of a step of the sound: enough to round by, except where it lies as close
// as that to the middle between two steps. A group in which one does is done again in doubles; that
// is one in forty. So the results are those of doubles to the bit.

#include "waveeditor/rampe.h"

#include <algorithm>
#include <bit>
#include <cstring>

// The loops are made once for every generation of the vector unit; the fitting ones are chosen when
// the program starts.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define VANTORA_VEKTOREINHEIT \
  [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), gnu::noinline]]
#else
#define VANTORA_VEKTOREINHEIT
#endif

namespace vantora {

namespace {

constexpr std::int32_t kGruppe = 128;                            // frames
constexpr std::size_t kGruppenWerte = 2 * std::size_t{kGruppe};  // both ears
constexpr double kEins = 2147483648.0;                           // a gain of 1 as a whole number
constexpr int kUnsicher = 1;                     // 1/32768 of a step, about the middle
constexpr double kHoechster = 1 - 1.0 / 32'768;  // gain whose upper half has 15 bits

// Added to a number, it leaves no room for digits behind the point, and the whole number stands in
// the lowest bits. No conversion of the processor's is as fast.
constexpr double kRunden = 6755399441055744.0;

std::int64_t Gerundet(double wert) {
  return std::bit_cast<std::int64_t>(wert + kRunden);
}

[[gnu::always_inline]] inline void Genau(const Rampe& rampe, KlangFrame* frames,
                                         std::int32_t anzahl, std::int32_t erster) {
  for (std::int32_t j = 0; j < anzahl; ++j) {
    const double gain = rampe.Start + (erster + j) * rampe.Schritt;
    frames[j].Links = static_cast<std::int16_t>(Gerundet(frames[j].Links * gain));
    frames[j].Rechts = static_cast<std::int16_t>(Gerundet(frames[j].Rechts * gain));
  }
}

// The halves of each gain of a group, for both ears.
struct Gains {
  std::int16_t Oben[kGruppenWerte], Unten[kGruppenWerte];

  [[gnu::always_inline]] inline void Teilen(std::int32_t erster, const std::int32_t* abstand) {
    std::uint32_t oben[kGruppe], unten[kGruppe];
    for (std::int32_t j = 0; j < kGruppe; ++j) {
      const auto gain = static_cast<std::uint32_t>(erster + abstand[j]);
      const std::uint32_t aufgerundet = gain + 0x8000U;  // the lower half has a sign
      oben[j] = (aufgerundet & 0xFFFF0000U) | (aufgerundet >> 16U);
      unten[j] = (gain << 16U) | (gain & 0xFFFFU);
    }
    std::memcpy(Oben, oben, sizeof Oben);
    std::memcpy(Unten, unten, sizeof Unten);
  }
};

// False, and the frames unchanged, when one of the results lies too close to the middle.
[[gnu::always_inline]] inline bool Schnell(const Gains& gains, KlangFrame* frames) {
  std::int16_t werte[kGruppenWerte];
  std::memcpy(werte, frames, sizeof werte);
  std::uint16_t naechster = 0xFFFF;
  for (std::size_t j = 0; j < kGruppenWerte; ++j) {
    const std::int16_t oben = gains.Oben[j];
    const auto gerundet = static_cast<std::int16_t>((((werte[j] * oben) >> 14) + 1) >> 1);
    const auto produkt = static_cast<std::uint16_t>(static_cast<std::uint16_t>(werte[j]) *
                                                    static_cast<std::uint16_t>(oben));
    // What the upper half leaves behind the point, and what the lower half adds, in 1/32768; a
    // quarter of 16 bits is added, so that it is positive.
    const auto rest = static_cast<std::uint16_t>((produkt + 0x4000U) & 0x7FFFU);
    const auto dazu = static_cast<std::int16_t>((werte[j] * gains.Unten[j]) >> 16);
    const auto summe = static_cast<std::uint16_t>(rest + dazu + 0x4000);
    const auto viertel = static_cast<std::uint16_t>(summe >> 14);
    werte[j] = static_cast<std::int16_t>(gerundet + ((viertel + 1) >> 1) - 1);
    const auto abstand = static_cast<std::uint16_t>((summe - 0x4000 + kUnsicher) & 0x7FFF);
    naechster = std::min(naechster, abstand);
  }
  if (naechster <= 2 * kUnsicher) return false;
  std::memcpy(frames, werte, sizeof werte);
  return true;
}

VANTORA_VEKTOREINHEIT void Multiplizieren(const Rampe& rampe, KlangFrame* frames,
                                          std::int32_t anzahl, std::int32_t erster) {
  std::int32_t abstand[kGruppe];  // of a gain from the first of its group
  for (std::int32_t j = 0; j < kGruppe; ++j) {
    abstand[j] = static_cast<std::int32_t>(Gerundet(j * rampe.Schritt * kEins));
  }
  Gains gains;
  std::int32_t j = 0;
  for (; j + kGruppe <= anzahl; j += kGruppe) {
    const double anfang = rampe.Start + (erster + j) * rampe.Schritt;
    const double ende = anfang + kGruppe * rampe.Schritt;
    bool fertig = false;
    if (std::max(anfang, ende) <= kHoechster) {
      gains.Teilen(static_cast<std::int32_t>(Gerundet(anfang * kEins)), abstand);
      fertig = Schnell(gains, frames + j);
    }
    if (!fertig) Genau(rampe, frames + j, kGruppe, erster + j);
  }
  Genau(rampe, frames + j, anzahl - j, erster + j);
}

}  // namespace

void Rampe::Anwenden(KlangFrame* frames, std::size_t anzahl, std::int32_t erster) const {
  Multiplizieren(*this, frames, static_cast<std::int32_t>(anzahl), erster);
}

}  // namespace vantora
