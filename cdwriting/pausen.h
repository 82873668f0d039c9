// The pauses of a disc written in one go: its tracks lie back to back, so each track's pause is put
// into its wave file as silence for the length of the burn, and taken out again afterwards.
#pragma once

namespace vantora {

struct Programm;

// Lengthens every track but the last by its pause. Raises what the wave file raises.
void PausenAnhaengen(Programm& prog);
void PausenEntfernen(Programm& prog);

}  // namespace vantora
