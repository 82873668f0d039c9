#include "waveeditor/gate.h"

#include "klang/klang_frame.h"

#include <algorithm>

namespace vantora {

void Gate::Anwenden(std::int16_t* klang, std::size_t bytes, int spitzen) {
  if (spitzen >= 2 * Schwelle) {
    GateZaehler = 0;
    if (OnZustand) OnZustand(true);
    return;
  }
  if (GateZaehler == 0) {
    GateZaehler = 1;
    return;
  }
  // Silence may last for hours. Once the gate is closed the count needs to grow no further.
  constexpr std::int32_t kMaxZaehler = 1 << 30;
  GateZaehler = std::min(GateZaehler + static_cast<std::int32_t>(bytes) / kFrameBytes, kMaxZaehler);
  if (HalteMs * kFramesJeMs >= GateZaehler) return;
  if (OnZustand) OnZustand(false);
  std::fill_n(klang, bytes / sizeof *klang, std::int16_t{0});
}

}  // namespace vantora
