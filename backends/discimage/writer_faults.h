// Faults of the embedded writer, set by tests, demonstrations and the robot.
#pragma once

#include "platform/text.h"

namespace vantora {

struct WriterFaults {
  enum class Kind { Failure, Scsi, Aspi };

  int InitProg = 0;       // result of Init_Prog
  bool NoDevice = false;  // takes effect at the next Init_Prog
  bool CanDao = true;
  int NotReady = 0;         // further calls of CheckIfBurnerOK without a disc; counts down to 0
  int RefuseTrack = 0;      // the n-th AddTrack from now is refused (1: the next); counts down to 0
  int WriteTao = 0;         // unless 0: WriteTAO returns it and does not start
  int WriteDao = 0;         // the same for WriteDAO; -1: method refused
  int FailAtPercent = -1;   // of the whole disc, 0 to 99, where every write fails; -1: none
  int WrongAtPercent = -1;  // of the disc, 0 to 99, where every write puts a wrong byte; -1: none
  Kind FailAs = Kind::Failure;
  int FailCode = 803;
  Text FailText = L"Error de medio";
  double Pace = 0;  // times 176400 bytes a second; 0: no limit
};

}  // namespace vantora
