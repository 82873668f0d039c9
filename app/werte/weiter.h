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

// Runs what has to follow a piece of work also when the work fails; the error goes on from there.
template <typename Arbeit, typename Danach>
void Jedenfalls(Arbeit&& arbeit, Danach&& danach) {
  try {
    arbeit();
  } catch (const Laufzeitfehler&) {
    danach();
    throw;
  }
  danach();
}

}  // namespace vantora
