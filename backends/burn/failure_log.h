// Reduces libburn's messages during a write to the one event that explains the failure to the user.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"

#include <optional>
#include <string>

namespace vantora {

// Codes of MCD_Failure. Its message box shows only the number.
enum BurnFailure : int {
  kBurnNoDrive = 810,      // the drive cannot be opened, or another program uses it
  kBurnNoBlank = 811,      // the drive has no blank CD
  kBurnNoTest = 812,       // the drive cannot simulate
  kBurnNoSpace = 813,      // the tracks are longer than the disc
  kBurnNoMethod = 814,     // drive and disc do not support the method asked for
  kBurnUnexplained = 815,  // the write failed without a reason
};

class FailureLog {
 public:
  void Hear(const LibraryMessage& message);
  void Forget() { *this = {}; }

  bool DriveLost() const { return lost_; }
  bool WriterEnded() const { return ended_; }        // the library's writing thread has ended
  bool PlanRefused() const { return planRefused_; }  // the drive refused the cue sheet
  // MCD_ASPIEvent for a drive that is gone. MCD_ScsiEvents for a failure with a reason: it carries
  // the three bytes of the sense and the code that they form together. Otherwise MCD_Failure with
  // `code`.
  BurnEvent Event(int code) const;

 private:
  struct Sense {
    int Key = 0, Asc = 0, Ascq = 0;
  };
  static std::optional<Sense> SenseIn(const std::string& words);

  bool lost_ = false, ended_ = false, planRefused_ = false;
  int lostErrno_ = 0;
  std::optional<Sense> sense_;
  bool whileWriting_ = false;  // `sense_` came from a write
  Text words_;
};

BurnEvent FailureEvent(int code, const Text& text);  // also writes it to the log
BurnEvent LogEvent(const LibraryMessage& message);   // for the log, in the library's own words

}  // namespace vantora
