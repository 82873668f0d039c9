// The pauses of a disc that is written in one go. The tracks of such a disc have no gaps, so each
// track's pause is appended to its wave file as silence, and removed after the burn. The edits
// record what was appended to each file; if the program is killed, its next start removes the
// silence.
#pragma once

namespace vantora {

struct Programm;

// Lengthens every track but the last by its pause. If one file cannot be lengthened, none is
// changed and the error is raised.
void PausenAnhaengen(Programm& prog);
// Removes exactly the silence that was appended; does nothing when there is none. A message lists
// the files whose silence could not be removed.
void PausenEntfernen(Programm& prog);
// Leaves the silence in the files; called after a run that failed or was cancelled.
void PausenBehalten(Programm& prog);

}  // namespace vantora
