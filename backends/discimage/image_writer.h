// The embedded CD writer. It always contains a blank disc, and a burned disc is a pair of files,
// `Disco 001.bin` and `Disco 001.cue`, in the folder `C:\Vantora\Discos`.
//
// The image holds the samples of the waves unchanged (16 bit, little-endian, left channel first),
// placed in sectors as disc_plan.h describes. Track At Once stores the gap of 2 seconds in front of
// every track but the first (INDEX 00 and INDEX 01). Disc At Once writes the tracks' CD-TEXT into
// the sheet. The first track starts at 00:00:00 of the image: the pause in the lead-in is not
// stored.
//
// After a write, the image is read again and compared with the waves.
//
// The files have temporary names while they grow and are renamed at the end, on the interface
// thread. A write that failed, was stopped or was a simulation leaves no file. The next write
// removes the files of a program that was killed.
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

  WriterFaults Faults;  // a write copies them when it starts
  static constexpr const wchar_t* kFolder = L"C:\\Vantora\\Discos";

  void BufferSize(int sectors) override { bufferSize_ = sectors; }
  int Init_Prog() override;
  void TimeOut(int seconds) override { timeOut_ = seconds; }
  int BurnerCount() override { return devices_; }
  void SelectBurner(int index) override { current_ = index; }
  int DetermineDrive() override;
  void SetDriveType(int type) override { driveType_ = type; }
  bool MakesFiles(int /*index*/) override { return true; }
  Text LastImage() const override { return lastImage_; }
  Text GetDescription(int index) override;
  bool CanDAO() override;
  void Speed(int factor) override;  // rounded down to 1, 2, 4, 6 or 8
  int Speed() override { return speed_; }
  void TestMode(bool simulation) override { testMode_ = simulation; }
  void Eject(bool afterwards) override { eject_ = afterwards; }
  void Fixate(bool close) override { fixate_ = close; }
  void StopVerify() override;
  // Refuses a file that cannot be read, is not a wave of 44.1 kHz, 16 bit, stereo, or holds no
  // sound, and the 100th track.
  int AddTrack(const Text& file, int reserved) override;
  void CdText(int index, const Text& title, const Text& performer) override;
  bool CheckIfBurnerOK() override;
  void SetBurnMode(int mode) override { burnMode_ = mode; }
  int WriteTAO() override;
  int WriteDAO() override;
  // Raises MCD_UserStop and no event after it. Without effect when nothing is being written.
  void StopBurn() override;
  void ResetBurner() override;

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
  std::map<int, std::pair<Text, Text>> cdText_;  // title and performer by track; 0 is the disc
  Text lastImage_;
  // Posted events carry the token of their write. When a write is given up, its token is replaced
  // and its later events are dropped.
  std::shared_ptr<int> token_ = std::make_shared<int>(0);
  std::shared_ptr<ImageBurn> burn_;
  std::unique_ptr<BackgroundJob> job_;  // after `burn_`, so that it ends first
};

}  // namespace vantora
