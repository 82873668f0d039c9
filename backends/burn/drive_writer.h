// The CD writers of the machine, through libburn.
//
// A drive is held only while it is examined, while a disc is looked for, and while one is written:
// in between the reading back end and other programs have it. All of that happens in a thread of
// this object's own; a call that asks for something waits for a bounded time, and takes no answer
// for "not ready". A drive that another program holds is never ready, and not there at all when it
// has not been seen free; one that was seen stays in the list, also when it is gone. Drives that
// only read are not in it.
#pragma once

#include "backends/burn/burn_order.h"
#include "backends/burn/drive_wait.h"
#include "backends/burn/work_thread.h"

#include "platform/background.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mcd.h"

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace vantora {

class DiscBurn;

class DriveWriter final : public Mcd {
 public:
  // `list` tells the optical drives that there are, whether they can write or not.
  using ListCall = std::function<std::vector<BurnDevice>()>;
  DriveWriter(Dateien& files, EventLoop& loop, Background& background, ListCall list);
  ~DriveWriter() override;  // waits until a write that was stopped has left its drive in order

  void BufferSize(int /*sectors*/) override {}  // the library has a buffer of its own
  int Init_Prog() override;                     // 0: no drive is no failure
  void TimeOut(int /*seconds*/) override {}     // each command of the library has its own
  int BurnerCount() override { return static_cast<int>(burners_.size()); }
  void SelectBurner(int index) override { current_ = index; }
  int DetermineDrive() override;
  void SetDriveType(int /*type*/) override {}
  Text GetDescription(int index) override;
  bool CanDAO() override;
  void Speed(int factor) override { speed_ = factor; }
  int Speed() override;  // of those that the current drive can, the nearest
  void TestMode(bool simulation) override { testMode_ = simulation; }
  void Eject(bool afterwards) override { eject_ = afterwards; }
  void Fixate(bool close) override { fixate_ = close; }
  // Refuses what is no wave of 44.1 kHz, 16 bit, stereo with sound in it; and the 100th track.
  int AddTrack(const Text& file, int reserved) override;
  void CdText(int index, const Text& title, const Text& performer) override;
  bool CheckIfBurnerOK() override;
  void SetBurnMode(int /*mode*/) override {}
  int WriteTAO() override { return Write(false); }
  // A drive may refuse the method only when it has been told the whole plan of the disc, which is
  // waited for. The reason comes as MCD_InfoMessage, and nothing else does.
  int WriteDAO() override;
  // Raises MCD_UserStop and nothing after it, at once; the drive ends in its own time.
  void StopBurn() override;
  void ResetBurner() override;

 private:
  struct Burner {
    BurnDevice Device;
    DriveAbilities Can;
  };

  struct Look {
    DriveState State = DriveState::Gone;
    bool Blank = false;
    std::chrono::steady_clock::time_point Time;
  };

  static std::vector<Burner> Scan(const std::vector<BurnDevice>& devices,
                                  const std::vector<Burner>& known, const TellEvent& tell,
                                  const std::stop_token& ending);
  static Look LookInto(const std::string& device, const std::stop_token& ending);
  const Burner* Current() const;
  int KilobytesASecond() const;  // for the speed that was asked for
  int Write(bool discAtOnce);
  bool Resting(std::chrono::milliseconds most) const;  // no write is being wound up
  void Ended(const BurnEvent& failure);
  void Abandon();
  void Drop();
  TellEvent Teller() { return Teller(token_); }
  TellEvent Teller(const std::shared_ptr<int>& token);

  Dateien& files_;
  EventLoop& loop_;
  Background& background_;
  ListCall list_;
  std::vector<Burner> burners_;
  int current_ = 0, speed_ = 1;
  bool testMode_ = false, eject_ = false, fixate_ = true;
  std::vector<Text> tracks_;
  CdTexts cdText_;
  // What is posted carries the token of its time: what a write still had to say when it was given
  // up is not told. Words for the log have their own: they are told of a method refused as well.
  std::shared_ptr<int> token_ = std::make_shared<int>(0), words_ = std::make_shared<int>(0);

  std::shared_future<std::vector<Burner>> scan_;
  std::string lookedAt_;   // device
  bool wasEmpty_ = false;  // it had no disc when it was looked at last
  std::shared_future<Look> look_;
  std::shared_ptr<DiscBurn> burn_;
  std::unique_ptr<BackgroundJob> pace_;
  std::shared_future<void> work_;  // of the last write
  std::stop_source ending_;
  WorkThread thread_;  // last: its work is waited for before anything else goes
};

}  // namespace vantora
