// What can happen to the embedded writer. Plain state: whoever shows or tests the program sets it.
#pragma once

#include "platform/text.h"

namespace vantora {

struct WriterFaults {
  enum class Kind { Failure, Scsi, Aspi };

  int InitProg = 0;       // what Init_Prog answers
  bool NoDevice = false;  // from the next Init_Prog on
  bool CanDao = true;
  int NotReady = 0;        // calls of CheckIfBurnerOK that still find no disc; falls to 0
  int RefuseTrack = 0;     // the n-th AddTrack from now is refused (1: the next); falls to 0
  int WriteTao = 0;        // what WriteTAO answers instead of starting, while not 0
  int WriteDao = 0;        // the same for WriteDAO; -1: method refused
  int FailAtPercent = -1;  // of the whole disc, 0 to 99: there the medium fails, in every write
  Kind FailAs = Kind::Failure;
  int FailCode = 803;
  Text FailText = L"Error de medio";
  double Pace = 0;  // times 176400 bytes a second; 0: as fast as the machine can
};

}  // namespace vantora
