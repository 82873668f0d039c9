// Error handling in which a failing statement is skipped and the next one runs. Each such statement
// is wrapped in `Weiter`, so that the code shows which statements may fail.
#pragma once

#include "platform/laufzeitfehler.h"

namespace vantora {

// Runs one statement; returns false when it failed. `ProgrammEnde` is no failure and passes
// through.
template <typename Anweisung>
bool Weiter(Anweisung&& anweisung) {
  try {
    anweisung();
    return true;
  } catch (const Laufzeitfehler&) {
    return false;
  }
}

// Runs `danach` after `arbeit` even when `arbeit` fails; the error is raised again afterwards.
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
