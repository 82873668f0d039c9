// The embedded CD writer: a blank disc is always in it, and what it burns is a pair of files,
// `Disco 001.bin` and `Disco 001.cue`, in the folder `C:\Vantora\Discos`.
//
// The image holds the samples of the waves as they lie in their data chunks (16 bit, little-endian,
// left first), each track filled up with silence to a whole sector of 2352 bytes. Track At Once
// stores the 2 seconds of gap in front of every track but the first (INDEX 00 and INDEX 01); Disc
// At Once puts the tracks back to back. The first track starts at 00:00:00 of the image: the pause
// in the lead-in is not stored.
//
// The files grow under a temporary name and take their own at the end, on the interface thread, so
// that a write that failed, was stopped or was a simulation leaves nothing.
#pragma once

#include "platform/background.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mcd.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

// What can happen to the drive. Plain state: whoever shows or tests the program sets it.
struct WriterFaults {
  enum class Kind { Failure, Scsi, Aspi };

  int InitProg = 0;       // what Init_Prog answers
  bool NoDevice = false;  // from the next Init_Prog on
  bool CanDao = true;
  int NotReady = 0;        // calls of CheckIfBurnerOK that still find no disc; falls to 0
  int RefuseTrack = 0;     // the n-th AddTrack from now is refused (1: the next); falls to 0
  int WriteTao = 0;        // what WriteTAO answers instead of starting, while not 0
  int WriteDao = 0;        // the same for WriteDAO; -1: method refused
  int FailAtPercent = -1;  // of the whole disc, 0 to 100: the medium fails there; every write
  Kind FailAs = Kind::Failure;
  int FailCode = 803;
  Text FailText = L"Error de medio";
  double Pace = 0;  // times 176400 bytes a second; 0: as fast as the machine can
};

class ImageWriter final : public Mcd {
 public:
  ImageWriter(Dateien& dateien, EventLoop& loop, Background& background);
  ~ImageWriter() override;

  WriterFaults Faults;
  static constexpr const wchar_t* kFolder = L"C:\\Vantora\\Discos";

  void BufferSize(int sectors) override { bufferSize_ = sectors; }
  int Init_Prog() override;
  void TimeOut(int seconds) override { timeOut_ = seconds; }
  int BurnerCount() override { return devices_; }
  void SelectBurner(int index) override { current_ = index; }
  int DetermineDrive() override;
  void SetDriveType(int type) override { driveType_ = type; }
  Text GetDescription(int index) override;
  bool CanDAO() override;
  void Speed(int factor) override;
  int Speed() override { return speed_; }
  void TestMode(bool simulation) override { testMode_ = simulation; }
  void Eject(bool afterwards) override { eject_ = afterwards; }
  void Fixate(bool close) override { fixate_ = close; }
  int AddTrack(const Text& file, int reserved) override;
  void CdText(int index, const Text& title, const Text& performer) override;
  bool CheckIfBurnerOK() override;
  void SetBurnMode(int mode) override { burnMode_ = mode; }
  int WriteTAO() override;
  int WriteDAO() override;
  void StopBurn() override;
  void ResetBurner() override;

  Text LastImage() const { return lastImage_; }  // path of the sheet last finished; blank for none

 private:
  struct Run;

  bool Selected() const { return current_ >= 0 && current_ < devices_; }
  int Write(bool dao);
  void Finish();
  void Abandon();
  Text NextName();

  Dateien& dateien_;
  EventLoop& loop_;
  Background& background_;
  int devices_ = 1, current_ = 0, driveType_ = 0;
  int bufferSize_ = 0, timeOut_ = 0, burnMode_ = 0;
  int speed_ = 1;
  bool testMode_ = false, eject_ = false, fixate_ = true;
  std::vector<Text> tracks_;
  std::map<int, std::pair<Text, Text>> cdText_;  // title and performer; 0 is the disc
  Text lastImage_;
  std::shared_ptr<Run> run_;
  std::unique_ptr<BackgroundJob> job_;  // behind `run_`: ends first
};

}  // namespace vantora
