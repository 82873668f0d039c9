// A long fade takes hardly more time than its file takes to be read and written, so doubles are too
// slow for it. Frames are multiplied in groups by whole numbers of 16 bits, of which the vector
// unit takes four times as many at once. The gain is split into two such halves, and the result is
// known to some 1/32768 of a step of the sound: enough to round by, except where it lies as close
// as that to the middle between two steps. Where one does, in one group of twenty, its stretch of
// the group is done again in doubles. So the results are those of doubles to the bit.

#include "waveeditor/rampe.h"

#include "app/zahlen.h"

#include <algorithm>
#include <cstdlib>
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

constexpr std::int32_t kGruppe = 256, kStueck = 32;              // frames
constexpr std::size_t kGruppenWerte = 2 * std::size_t{kGruppe};  // both ears
constexpr double kEins = 2147483648.0;                           // a gain of 1 as a whole number
constexpr int kUnsicher = 1;                     // 1/32768 of a step, about the middle
constexpr double kHoechster = 1 - 1.0 / 32'768;  // gain whose upper half has 15 bits

[[gnu::always_inline]] inline void Genau(const Rampe& rampe, KlangFrame* frames,
                                         std::int32_t anzahl, std::int32_t erster) {
  for (std::int32_t j = 0; j < anzahl; ++j) {
    const double gain = rampe.Start + (erster + j) * rampe.Schritt;
    frames[j].Links = static_cast<std::int16_t>(GanzSchnell(frames[j].Links * gain));
    frames[j].Rechts = static_cast<std::int16_t>(GanzSchnell(frames[j].Rechts * gain));
  }
}

// Rounded, and one instruction of the vector unit.
[[gnu::always_inline]] inline std::int16_t Mal(std::int16_t wert, std::int16_t gain) {
  return static_cast<std::int16_t>((((wert * gain) >> 14) + 1) >> 1);
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

  // The same where the gain changes so slowly that its upper half is one for the whole group, as in
  // most groups of a long fade. False: it is not.
  [[gnu::always_inline]] inline bool Verschieben(std::int32_t erster, const std::int16_t* nah) {
    const std::int32_t oben = (erster + 0x8000) >> 16;
    const std::int32_t unten = erster - oben * 0x10000;
    const std::int32_t letzter = unten + nah[kGruppenWerte - 1];
    if (letzter != static_cast<std::int16_t>(letzter)) return false;
    for (std::size_t j = 0; j < kGruppenWerte; ++j) {
      Oben[j] = static_cast<std::int16_t>(oben);
      Unten[j] = static_cast<std::int16_t>(unten + nah[j]);
    }
    return true;
  }
};

// A stretch of a group. False, and its frames unchanged, when one of the results lies too close to
// the middle.
template <std::int32_t kFrames>
[[gnu::always_inline]] inline bool Schnell(const Gains& gains, std::size_t ab, KlangFrame* frames,
                                           std::int16_t eins) {
  constexpr std::size_t kWerte = 2 * std::size_t{kFrames};
  const std::int16_t* const oben = &gains.Oben[2 * ab];
  const std::int16_t* const unten = &gains.Unten[2 * ab];
  std::int16_t werte[kWerte];
  std::memcpy(werte, frames + ab, sizeof werte);
  std::uint16_t naechster = 0xFFFF;
  for (std::size_t j = 0; j < kWerte; ++j) {
    const std::int16_t gerundet = Mal(werte[j], oben[j]);
    const auto produkt = static_cast<std::uint16_t>(static_cast<std::uint16_t>(werte[j]) *
                                                    static_cast<std::uint16_t>(oben[j]));
    // What the upper half leaves behind the point, and what the lower half adds, in 1/32768.
    const auto rest =
        static_cast<std::uint16_t>(produkt - static_cast<unsigned>(gerundet) * 0x8000U);
    const auto dazu = static_cast<std::int16_t>((werte[j] * unten[j]) >> 16);
    const auto summe = static_cast<std::int16_t>(rest + dazu);
    werte[j] = static_cast<std::int16_t>(gerundet + Mal(summe, eins));
    const auto abstand = static_cast<std::uint16_t>((summe + 0x4000 + kUnsicher) & 0x7FFF);
    naechster = std::min(naechster, abstand);
  }
  if (naechster <= 2 * kUnsicher) return false;
  std::memcpy(frames + ab, werte, sizeof werte);
  return true;
}

VANTORA_VEKTOREINHEIT void Multiplizieren(const Rampe& rampe, KlangFrame* frames,
                                          std::int32_t anzahl, std::int32_t erster) {
  std::int32_t abstand[kGruppe];  // of a gain from the first of its group
  for (std::int32_t j = 0; j < kGruppe; ++j) {
    abstand[j] = static_cast<std::int32_t>(GanzSchnell(j * rampe.Schritt * kEins));
  }
  std::int16_t nah[kGruppenWerte];
  for (std::size_t k = 0; k < kGruppenWerte; ++k)
    nah[k] = static_cast<std::int16_t>(abstand[k / 2]);
  const bool langsam = std::abs(abstand[kGruppe - 1]) < 0x8000;
  // 1/32768, which the compiler must not know, or it takes the product apart.
  const volatile std::int16_t verborgen = 1;
  const std::int16_t eins = verborgen;
  Gains gains;
  std::int32_t j = 0;
  for (; j + kGruppe <= anzahl; j += kGruppe) {
    KlangFrame* const gruppe = frames + j;
    const double anfang = rampe.Start + (erster + j) * rampe.Schritt;
    const double ende = anfang + kGruppe * rampe.Schritt;
    if (std::max(anfang, ende) > kHoechster) {
      Genau(rampe, gruppe, kGruppe, erster + j);
      continue;
    }
    const auto gain = static_cast<std::int32_t>(GanzSchnell(anfang * kEins));
    if (!langsam || !gains.Verschieben(gain, nah)) gains.Teilen(gain, abstand);
    if (Schnell<kGruppe>(gains, 0, gruppe, eins)) continue;
    for (std::size_t ab = 0; ab < kGruppe; ab += kStueck) {
      if (Schnell<kStueck>(gains, ab, gruppe, eins)) continue;
      Genau(rampe, gruppe + ab, kStueck, erster + j + static_cast<std::int32_t>(ab));
    }
  }
  Genau(rampe, frames + j, anzahl - j, erster + j);
}

}  // namespace

void Rampe::Anwenden(KlangFrame* frames, std::size_t anzahl, std::int32_t erster) const {
  Multiplizieren(*this, frames, static_cast<std::int32_t>(anzahl), erster);
}

}  // namespace vantora
