// The embedded CD writer: a blank disc is always in it, and what it burns is a pair of files,
// `Disco 001.bin` and `Disco 001.cue`, in the folder `C:\Vantora\Discos`.
//
// The image holds the samples of the waves as they lie in their data chunks (16 bit, little-endian,
// left first), laid into sectors as disc_plan.h says. Track At Once stores the 2 seconds of gap in
// front of every track but the first (INDEX 00 and INDEX 01); Disc At Once puts the tracks' CD-TEXT
// into the sheet. The first track starts at 00:00:00 of the image: the pause in the lead-in is not
// stored.
//
// The files grow under a temporary name and take their own at the end, on the interface thread, so
// that a write that failed, was stopped or was a simulation leaves nothing. The files of a program
// that was killed are cleared up by the next write.
#pragma once

#include "backends/discimage/writer_faults.h"

#include "platform/background.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mcd.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

class ImageBurn;

class ImageWriter final : public Mcd {
 public:
  ImageWriter(Dateien& dateien, EventLoop& loop, Background& background);
  ~ImageWriter() override;

  WriterFaults Faults;  // a write takes them over when it starts
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
  void Speed(int factor) override;  // becomes 1, 2, 4, 6 or 8, the next below
  int Speed() override { return speed_; }
  void TestMode(bool simulation) override { testMode_ = simulation; }
  void Eject(bool afterwards) override { eject_ = afterwards; }
  void Fixate(bool close) override { fixate_ = close; }
  // Refused: what cannot be read, is no wave of 44.1 kHz, 16 bit, stereo, or holds no sound; and
  // the 100th track.
  int AddTrack(const Text& file, int reserved) override;
  void CdText(int index, const Text& title, const Text& performer) override;
  bool CheckIfBurnerOK() override;
  void SetBurnMode(int mode) override { burnMode_ = mode; }
  int WriteTAO() override;
  int WriteDAO() override;
  // Raises MCD_UserStop and nothing after it; no effect when nothing is being written.
  void StopBurn() override;
  void ResetBurner() override;

  Text LastImage() const { return lastImage_; }  // path of the sheet last finished; blank for none

 private:
  bool Selected() const { return current_ >= 0 && current_ < devices_; }
  int Write(bool dao);
  void Ended(const std::function<void(McdEvents&)>& failure);
  void Abandon();
  void Post(std::function<void()> work);
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
  // What is posted carries the token of its time: what a write still had to say when it was given
  // up is not told.
  std::shared_ptr<int> token_ = std::make_shared<int>(0);
  std::shared_ptr<ImageBurn> burn_;
  std::unique_ptr<BackgroundJob> job_;  // behind `burn_`: ends first
};

}  // namespace vantora
