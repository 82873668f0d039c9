// The CD writers of the machine, through libburn.
//
// A drive is held only while it is examined, while a disc is looked for, and while a disc is
// written. Between these, the reading back end and other programs can use it. All of this runs on a
// separate thread. A call that asks for something waits for a bounded time and takes a missing
// answer as "not ready". A drive that another program uses is never ready, and is not in the list
// if it has never been seen free. A drive that was seen stays in the list, also when it is gone.
// Drives that only read are not in the list.
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
  // `list` returns all optical drives, whether they can write or not.
  using ListCall = std::function<std::vector<BurnDevice>()>;
  // `open` opens a disc that was written, so that it can be verified; without it none is.
  DriveWriter(Dateien& files, EventLoop& loop, Background& background, ListCall list,
              OpenBurnt open = {});
  ~DriveWriter() override;  // waits until a stopped write has released its drive

  void BufferSize(int /*sectors*/) override {}  // the library has its own buffer
  int Init_Prog() override;                     // returns 0: having no drive is no failure
  void TimeOut(int /*seconds*/) override {}     // the library has its own for each command
  int BurnerCount() override { return static_cast<int>(burners_.size()); }
  void SelectBurner(int index) override { current_ = index; }
  int DetermineDrive() override;
  void SetDriveType(int /*type*/) override {}
  Text GetDescription(int index) override;
  bool CanDAO() override;
  void Speed(int factor) override { speed_ = factor; }
  int Speed() override;  // the current drive's speed that is nearest to the one set
  void TestMode(bool simulation) override { testMode_ = simulation; }
  void Eject(bool afterwards) override { eject_ = afterwards; }
  void Fixate(bool close) override { fixate_ = close; }
  void VerifyDiscs(bool verify) override { verify_ = verify; }
  void StopVerify() override;
  // Refuses a file that is not a wave of 44.1 kHz, 16 bit, stereo with sound in it, and the 100th
  // track.
  int AddTrack(const Text& file, int reserved) override;
  void CdText(int index, const Text& title, const Text& performer) override;
  bool CheckIfBurnerOK() override;
  void SetBurnMode(int /*mode*/) override {}
  int WriteTAO() override { return Write(false); }
  // Waits for the drive's answer to the cue sheet, since a drive may refuse Disc At Once only then.
  // In that case the only event is MCD_InfoMessage with the reason.
  int WriteDAO() override;
  // Raises MCD_UserStop at once and no event after it. The drive finishes in its own time.
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
                                  const std::vector<Burner>& known, const PostEvent& tell,
                                  const std::stop_token& ending);
  static Look LookInto(const std::string& device, const std::stop_token& ending);
  const Burner* Current() const;
  int KilobytesASecond() const;  // of the speed set
  int Write(bool discAtOnce);
  bool Resting(std::chrono::milliseconds most) const;  // no stopped write is still finishing
  void Ended(const BurnEvent& failure);
  void Abandon();
  void Drop();
  PostEvent Teller() { return Teller(token_); }
  PostEvent Teller(const std::shared_ptr<int>& token);

  Dateien& files_;
  EventLoop& loop_;
  Background& background_;
  ListCall list_;
  OpenBurnt open_;
  std::vector<Burner> burners_;
  int current_ = 0, speed_ = 1;
  bool testMode_ = false, eject_ = false, fixate_ = true, verify_ = false;
  std::vector<Text> tracks_;
  CdTexts cdText_;
  // Posted events carry the token of their write. When a write is given up, its token is replaced
  // and its later events are dropped. Messages for the log have their own token, since they are
  // logged after a refused method too.
  std::shared_ptr<int> token_ = std::make_shared<int>(0), words_ = std::make_shared<int>(0);

  std::shared_future<std::vector<Burner>> scan_;
  std::string lookedAt_;   // the device examined last
  bool wasEmpty_ = false;  // the device had no disc then
  std::shared_future<Look> look_;
  std::shared_ptr<DiscBurn> burn_;
  std::unique_ptr<BackgroundJob> pace_;
  std::shared_future<void> work_;  // of the last write
  std::stop_source ending_;
  WorkThread thread_;  // last: its work must end before any other member goes
};

}  // namespace vantora
