// The regime in which a failing statement is skipped and the next one runs. Whoever works under it
// wraps each statement, so that it shows where it rules.
#pragma once

#include "platform/laufzeitfehler.h"

namespace vantora {

// Runs one statement; false when it failed. The end of the program is no failure and passes.
template <typename Anweisung>
bool Weiter(Anweisung&& anweisung) {
  try {
    anweisung();
    return true;
  } catch (const Laufzeitfehler&) {
    return false;
  }
}

}  // namespace vantora
