// Elements of fields by number. A number outside the field is a run-time error like any other, so
// that the regimes of the program take it as one.
#pragma once

#include "platform/laufzeitfehler.h"

#include <cstdint>

namespace vantora {

// Error 9 outside the field.
template <typename Feld>
auto& Element(Feld& feld, std::int64_t nummer) {
  if (nummer < 0 || nummer >= static_cast<std::int64_t>(feld.size())) {
    throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
  }
  return feld[static_cast<typename Feld::size_type>(nummer)];
}

}  // namespace vantora
