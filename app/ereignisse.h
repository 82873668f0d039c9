// The receivers of the devices' events. frmKomponenten receives every event and passes it on to one
// of these. Each receiver is in the folder of the job that waits for the events. All calls come on
// the interface thread. platform/mcd.h, acd.h and mp3.h describe the arguments.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

// Receives the writer's events while a disc is burnt.
class BrennEmpfaenger {
 public:
  virtual ~BrennEmpfaenger() = default;
  virtual void MCD_ActTrack(int track) = 0;
  virtual void MCD_TrackPercent(int percent) = 0;
  virtual void MCD_InfoMessage(int code, const Text& text) = 0;
  virtual void MCD_StatusChange(int state) = 0;
  virtual void MCD_WriteLeadIn(int mode) = 0;
  virtual void MCD_WriteLeadOut(int mode) = 0;
  virtual void MCD_Fixating() = 0;
  virtual void MCD_Verify(int track, int state) = 0;
  virtual void MCD_BurningProcessComplete(int success) = 0;
  virtual void MCD_UserStop() = 0;
  virtual void MCD_Failure(int code, const Text& text) = 0;
  virtual void MCD_ScsiEvents(int first, int second, int code, int fourth, const Text& text) = 0;
  virtual void MCD_ASPIEvent(int code, const Text& text) = 0;
};

// Receives the reader's events while a track is read.
class GrabEmpfaenger {
 public:
  virtual ~GrabEmpfaenger() = default;
  virtual void ACD_ActPosition(int position) = 0;
  virtual void ACD_ReadComplete() = 0;
  virtual void ACD_Failure(int code, const Text& text) = 0;
};

// Receives the decoder's events while a file is converted.
class Mp3Empfaenger {
 public:
  virtual ~Mp3Empfaenger() = default;
  virtual void Mp3Play1_ActFrame(int frame) = 0;
  virtual void Mp3Play1_Failure(int code, const Text& text) = 0;
  virtual void Mp3Play1_ThreadEnded() = 0;
};

struct EreignisEmpfaenger {
  std::unique_ptr<BrennEmpfaenger> Brennen;
  std::unique_ptr<GrabEmpfaenger> Grab;
  std::unique_ptr<Mp3Empfaenger> Mp3;
};

}  // namespace vantora
