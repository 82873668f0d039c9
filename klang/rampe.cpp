#include "klang/rampe.h"

#include "app/werte/zahlen.h"

// The loop is compiled for several generations of the vector unit; the fitting version is chosen
// when the program starts.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VANTORA_VEKTOREINHEIT \
  [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), gnu::noinline]]
#else
#define VANTORA_VEKTOREINHEIT
#endif

namespace vantora {

VANTORA_VEKTOREINHEIT void Rampe(std::int16_t* werte, std::size_t frames, std::int64_t erster,
                                 double start, double schritt) {
  const auto basis = static_cast<double>(erster);
  const auto anzahl = static_cast<std::int32_t>(frames);
  for (std::int32_t j = 0; j < anzahl; ++j) {
    const double gain = start + (basis + j) * schritt;
    std::int16_t& links = werte[std::ptrdiff_t{2} * j];
    std::int16_t& rechts = werte[std::ptrdiff_t{2} * j + 1];
    links = static_cast<std::int16_t>(GanzSchnell(links * gain));
    rechts = static_cast<std::int16_t>(GanzSchnell(rechts * gain));
  }
}

}  // namespace vantora
