#include "waveeditor/rampe.h"

#include <bit>

// The loop is made once for every generation of the vector unit; the fitting one is chosen when the
// program starts. The results are the same to the bit.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define VANTORA_VEKTOREINHEIT \
  [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), gnu::noinline]]
#else
#define VANTORA_VEKTOREINHEIT
#endif

namespace vantora {

namespace {

// Added to a number, it leaves no room for digits behind the point, and the whole number stands in
// the lowest bits. No conversion of the processor's is as fast.
constexpr double kRunden = 6755399441055744.0;

std::int16_t Gerundet(double wert) {
  return static_cast<std::int16_t>(std::bit_cast<std::int64_t>(wert + kRunden));
}

VANTORA_VEKTOREINHEIT void Multiplizieren(KlangFrame* frames, std::size_t anzahl,
                                          std::int32_t erster, double start, double schritt) {
  const auto ende = static_cast<std::int32_t>(anzahl);
  for (std::int32_t j = 0; j < ende; ++j) {
    const double gain = start + (erster + j) * schritt;
    frames[j].Links = Gerundet(frames[j].Links * gain);
    frames[j].Rechts = Gerundet(frames[j].Rechts * gain);
  }
}

}  // namespace

void Rampe::Anwenden(KlangFrame* frames, std::size_t anzahl, std::int32_t erster) const {
  Multiplizieren(frames, anzahl, erster, Start, Schritt);
}

}  // namespace vantora
