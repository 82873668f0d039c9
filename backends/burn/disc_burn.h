// One disc written by a drive, from holding the drive to letting it go.
//
// Track At Once leaves the gaps of two seconds to the drive. Disc At Once writes the tracks as one
// stream, behind the two seconds that every disc begins with, and their CD-TEXT into the lead-in. A
// track that is shorter than the four seconds that a disc allows is filled with silence to them.
#pragma once

#include "backends/burn/burn_drive.h"
#include "backends/burn/burn_progress.h"
#include "backends/burn/complaints.h"
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

  // `words` brings what is for the log alone.
  DiscBurn(Dateien& files, DiscOrder order, TellEvent tell, TellEvent words);

  // Does it all; for a thread of its own. Comes back with nothing for success, else with the event
  // that tells the failure. The drive is free then.
  BurnEvent Run() noexcept;

  // From any thread. Stop brings a write to its end in a state in which the drive can be used
  // again, which takes as long as the drive takes.
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
  TellEvent tell_, words_;
  std::vector<PlannedTrack> tracks_;
  std::unique_ptr<BurnProgress> progress_;
  Complaints complaints_;

  std::mutex mutex_;
  std::condition_variable changed_;
  State state_ = State::Starting;
  bool stop_ = false;
  BurnEvent failure_;  // the first reason
};

}  // namespace vantora
