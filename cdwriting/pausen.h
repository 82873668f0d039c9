// The pauses of a disc written in one go: its tracks lie back to back, so each track's pause is put
// into its wave file as silence for the length of the burn, and taken out again afterwards. The
// edits note what each file got; a program that is killed in between takes it out at its next
// start.
#pragma once

namespace vantora {

struct Programm;

// Lengthens every track but the last by its pause. When one cannot be lengthened, none is, and the
// error is raised.
void PausenAnhaengen(Programm& prog);
// Takes out what was appended, and nothing else; no effect when nothing was. Names the files that
// could not give it back in a message.
void PausenEntfernen(Programm& prog);
// After a run that was cancelled or has failed the silence stays in the files.
void PausenBehalten(Programm& prog);

}  // namespace vantora
