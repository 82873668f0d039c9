#include "klang/mischung.h"

#include "app/werte/zahlen.h"

namespace vantora {

void LinearMischen(std::int16_t* ende, const std::int16_t* anfang, std::size_t werte) {
  const auto alle = static_cast<double>(werte);
  for (std::size_t i = 0; i + 1 < werte; i += 2) {
    const double f = static_cast<double>(i) / alle;
    for (const std::size_t v : {i, i + 1}) {
      ende[v] = static_cast<std::int16_t>(GanzSchnell((1 - f) * ende[v] + f * anfang[v]));
    }
  }
}

}  // namespace vantora
