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

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace vantora {

class DiscBurn {
 public:
  enum class State { Starting, Writing, Refused, Over };

  // `words` receives the messages for the log.
  DiscBurn(Dateien& files, DiscOrder order, PostEvent tell, PostEvent words);

  // Writes the whole disc; meant for a separate thread. Returns nothing for success, else the event
  // that reports the failure. The drive is free afterwards.
  BurnEvent Run() noexcept;

  // From any thread. Stop ends a write so that the drive can be used again, which takes as long as
  // the drive needs.
  void Stop();
  State WaitWhileStarting(std::chrono::milliseconds most);
  bool WaitUntilOver(std::chrono::milliseconds most);

 private:
  struct Parts;

  void Burn();
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
  PostEvent tell_, words_;
  std::vector<PlannedTrack> tracks_;
  std::unique_ptr<BurnProgress> progress_;
  FailureLog complaints_;

  std::mutex mutex_;
  std::condition_variable changed_;
  State state_ = State::Starting;
  bool stop_ = false;
  BurnEvent failure_;  // first failure
};

}  // namespace vantora
