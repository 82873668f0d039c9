// What libburn says while a disc is made, boiled down to the one event that tells the user why it
// failed.
#pragma once

#include "backends/burn/burn_library.h"
#include "backends/burn/burn_order.h"

#include <optional>
#include <string>

namespace vantora {

// Codes of MCD_Failure, whose box shows nothing but the number.
enum BurnFailure : int {
  kBurnNoDrive = 810,      // the drive cannot be opened, or another program has it
  kBurnNoBlank = 811,      // no blank CD lies in it
  kBurnNoTest = 812,       // it cannot simulate
  kBurnNoSpace = 813,      // the tracks are longer than the disc
  kBurnNoMethod = 814,     // drive and disc do not go together with what was asked
  kBurnUnexplained = 815,  // it failed without a word
};

class Complaints {
 public:
  void Hear(const LibraryMessage& message);
  void Forget() { *this = {}; }

  bool DriveLost() const { return lost_; }
  bool WriterEnded() const { return ended_; }        // the library's writing thread is through
  bool PlanRefused() const { return planRefused_; }  // of a disc to be written at once
  // MCD_ASPIEvent for a drive that is gone, MCD_ScsiEvents for what it gave a reason for, with the
  // three bytes of its sense and the code that they make together; else MCD_Failure with `code`.
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

BurnEvent FailureEvent(int code, const Text& text);  // into the log as well
BurnEvent LogEvent(const LibraryMessage& message);   // the library's own words, into the log

}  // namespace vantora
