// Access to elements by number. A number out of range raises a run-time error, so that `Weiter` can
// skip the statement.
#pragma once

#include "platform/laufzeitfehler.h"

#include <cstdint>

namespace vantora {

// Raises error 9 when the number is out of range.
template <typename Feld>
auto& Element(Feld& feld, std::int64_t nummer) {
  if (nummer < 0 || nummer >= static_cast<std::int64_t>(feld.size())) {
    throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
  }
  return feld[static_cast<typename Feld::size_type>(nummer)];
}

}  // namespace vantora
