// Writes one disc in a drive, from holding the drive to releasing it.
//
// Track At Once leaves the gaps of two seconds to the drive. Disc At Once writes the tracks as one
// stream behind the two seconds that begin every disc, and their CD-TEXT into the lead-in. A track
// below four seconds, the minimum on a disc, is filled up with silence.
#pragma once

#include "backends/burn/burn_drive.h"
#include "backends/burn/burn_progress.h"
#include "backends/burn/failure_log.h"
#include "backends/burn/wave_source.h"

#include "platform/files.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace vantora {

class DiscBurn {
 public:
  enum class State { Starting, Writing, Refused, Over };

  // `open` opens the disc for an order that is to be verified. `words` receives the messages for
  // the log.
  DiscBurn(Dateien& files, DiscOrder order, OpenBurnt open, PostEvent tell, PostEvent words);

  // Writes the whole disc, and reads it again if the order says so; meant for a separate thread.
  // Returns nothing for success, else the event that reports the failure. The drive is free
  // afterwards.
  BurnEvent Run() noexcept;

  // From any thread. Stop ends a write so that the drive can be used again, which takes as long as
  // the drive needs.
  void Stop();
  void StopVerify() { stopVerify_ = true; }  // the write then ends as successful
  State WaitWhileStarting(std::chrono::milliseconds most);
  bool WaitUntilOver(std::chrono::milliseconds most);

 private:
  struct Parts;

  void Burn();
  void Verify();
  void Plan();
  bool Await();
  bool Try(BurnLibrary& library, bool withText);
  bool Write(BurnLibrary& library, const HeldDrive& drive, bool withText);
  void Assemble(Parts& parts, bool withText);
  void SetOptions(Parts& parts, const HeldDrive& drive);
  void Watch(BurnLibrary& library, burn_drive* drive);
  void Listen(BurnLibrary& library);
  bool Pause();
  bool Stopped();
  void Enter(State state);
  void FileFailed(int number, const Text& text);
  [[noreturn]] void Fail(int code, const wchar_t* text);

  Dateien& files_;
  DiscOrder order_;
  OpenBurnt open_;
  PostEvent tell_, words_;
  std::vector<PlannedTrack> tracks_;
  std::unique_ptr<BurnProgress> progress_;
  FailureLog complaints_;

  std::mutex mutex_;
  std::condition_variable changed_;
  State state_ = State::Starting;
  bool stop_ = false;
  std::atomic<bool> stopVerify_ = false;
  BurnEvent failure_;  // first failure
};

}  // namespace vantora
