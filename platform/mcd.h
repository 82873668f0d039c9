// Writes audio discs. One device is current at a time. All calls and all events are on the
// interface thread. A machine without a drive is normal: `BurnerCount` then counts the other
// devices.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

enum McdStatus : int {  // values of MCD_StatusChange
  kMcdDiscInserted = 2,
  kMcdChecking = 4,
  kMcdChecked = 5,
  kMcdNoDisc = 6,
};

enum McdVerify : int {  // values of MCD_Verify
  kMcdVerifyBegins,
  kMcdVerifySame,
  kMcdVerifyDiffers,
  kMcdVerifyFailed,  // the track, or its wave, cannot be read
};

struct McdEvents {
  std::function<void(int track)> MCD_ActTrack;        // from 1
  std::function<void(int percent)> MCD_TrackPercent;  // of the track (TAO, compared) or disc (DAO)
  std::function<void(int code, const Text& text)> MCD_InfoMessage;
  std::function<void(int state)> MCD_StatusChange;
  std::function<void(int mode)> MCD_WriteLeadIn, MCD_WriteLeadOut;
  std::function<void()> MCD_Fixating;
  // After a successful write, while its tracks are read again and compared with their waves: twice
  // for each track. Track 0 stands for a disc that cannot be read at all.
  std::function<void(int track, int state)> MCD_Verify;
  // The last event of every write that ends by itself, successfully or not. Writes ended by
  // StopBurn or ResetBurner do not raise it.
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
  virtual int Init_Prog() = 0;  // searches for devices; above 0: writing is impossible
  virtual void TimeOut(int seconds) = 0;
  virtual int BurnerCount() = 0;             // includes devices found by an earlier Init_Prog
  virtual void SelectBurner(int index) = 0;  // from 0
  // Records that the user has chosen this device. The next Init_Prog gives it index 0. Has no
  // effect on a platform with one kind of devices.
  virtual void PreferBurner(int /*index*/) {}
  virtual bool MakesFiles(int /*index*/) { return false; }  // the device writes files, no discs
  // The sheet of the image that the current device has written last; blank for none.
  virtual Text LastImage() const { return {}; }
  virtual int DetermineDrive() = 0;  // 1 to 99: supported; 10: also Disc At Once
  virtual void SetDriveType(int type) = 0;
  // "vendor<tab>product<tab>revision<tab>SCSI target ID"
  virtual Text GetDescription(int index) = 0;
  virtual bool CanDAO() = 0;
  virtual void Speed(int factor) = 0;  // in multiples of 176,400 bytes a second
  // The speed that the device would use for the one set, by its own list of speeds. With some discs
  // it may be slower.
  virtual int Speed() = 0;
  virtual void TestMode(bool simulation) = 0;  // true: the next writes are simulations
  virtual void Eject(bool afterwards) = 0;     // true: eject the disc after a write
  virtual void Fixate(bool close) = 0;         // true: close the disc after a write
  // True: discs are read again after a write. A device that makes files always does so.
  virtual void VerifyDiscs(bool /*verify*/) {}
  virtual void StopVerify() {}  // the write then ends, successfully, without further comparing
  virtual int AddTrack(const Text& file, int reserved) = 0;  // 0: accepted for the next write
  // Sets title and performer for the disc's CD-TEXT. Index 0 is the disc; tracks count from 1. Only
  // Disc At Once writes them. ResetBurner deletes them.
  virtual void CdText(int index, const Text& title, const Text& performer) = 0;
  virtual bool CheckIfBurnerOK() = 0;      // the current device has a blank disc
  virtual void SetBurnMode(int mode) = 0;  // 1 before a write, 0 after it
  virtual int WriteTAO() = 0;              // 0: started; else refused
  virtual int WriteDAO() = 0;              // like WriteTAO; -1: the device refuses Disc At Once
  virtual void StopBurn() = 0;             // raises MCD_UserStop if a write was running
  // Deletes the tracks and gives up a write; the device may stay busy for a while.
  virtual void ResetBurner() = 0;
};

}  // namespace vantora
