// Writes audio discs. One device is current at a time; all calls and all events are on the
// interface thread. A machine without a drive is normal: `BurnerCount` then counts what else can be
// written.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

enum McdStatus : int {  // of MCD_StatusChange
  kMcdDiscInserted = 2,
  kMcdChecking = 4,
  kMcdChecked = 5,
  kMcdNoDisc = 6,
};

struct McdEvents {
  std::function<void(int track)> MCD_ActTrack;        // from 1
  std::function<void(int percent)> MCD_TrackPercent;  // of the track (TAO) or the disc (DAO)
  std::function<void(int code, const Text& text)> MCD_InfoMessage;
  std::function<void(int state)> MCD_StatusChange;
  std::function<void(int mode)> MCD_WriteLeadIn, MCD_WriteLeadOut;
  std::function<void()> MCD_Fixating;
  // Ends every write that comes to its own end, also a failed one; not one that StopBurn or
  // ResetBurner gave up.
  std::function<void(int success)> MCD_BurningProcessComplete;
  std::function<void()> MCD_UserStop;
  std::function<void(int code, const Text& text)> MCD_Failure;
  std::function<void(int first, int second, int code, int fourth, const Text& text)> MCD_ScsiEvents;
  std::function<void(int code, const Text& text)> MCD_ASPIEvent;
};

class Mcd {
 public:
  virtual ~Mcd() = default;
  McdEvents Events;

  virtual void BufferSize(int sectors) = 0;
  virtual int Init_Prog() = 0;  // looks for devices anew; above 0: unusable
  virtual void TimeOut(int seconds) = 0;
  virtual int BurnerCount() = 0;  // devices seen by the last Init_Prog, or by one before it
  virtual void SelectBurner(int index) = 0;  // from 0
  // The person has chosen this device: the next Init_Prog gives it the first number. Of a single
  // kind of devices there is nothing to choose.
  virtual void PreferBurner(int /*index*/) {}
  virtual int DetermineDrive() = 0;  // 1 to 99: supported; 10: can write Disc At Once
  virtual void SetDriveType(int type) = 0;
  // "vendor<tab>product<tab>revision<tab>SCSI target ID"
  virtual Text GetDescription(int index) = 0;
  virtual bool CanDAO() = 0;
  virtual void Speed(int factor) = 0;  // multiple of 176400 bytes a second
  // What the device would make of it, by the speeds that it named when it was looked for: with a
  // certain disc it may be slower.
  virtual int Speed() = 0;
  virtual void TestMode(bool simulation) = 0;
  virtual void Eject(bool afterwards) = 0;
  virtual void Fixate(bool close) = 0;
  virtual int AddTrack(const Text& file, int reserved) = 0;  // 0: a wave file for the next write
  // Title and performer for the disc's CD-TEXT; index 0 is the disc, tracks count from 1. Written
  // Disc At Once only, and forgotten by ResetBurner.
  virtual void CdText(int index, const Text& title, const Text& performer) = 0;
  virtual bool CheckIfBurnerOK() = 0;      // a blank disc lies in the current device
  virtual void SetBurnMode(int mode) = 0;  // 1 before a write, 0 after it
  virtual int WriteTAO() = 0;      // 0: started, MCD_BurningProcessComplete follows; else refused
  virtual int WriteDAO() = 0;      // the same; -1: the device refuses the method
  virtual void StopBurn() = 0;     // MCD_UserStop follows, if there was a write
  virtual void ResetBurner() = 0;  // no tracks, no write; the device comes free in its own time
};

}  // namespace vantora
