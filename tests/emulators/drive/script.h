// The state and the faults of the drive, from the file "script" in the drive's folder. It is read
// again at every command, so that a test or a story can change it while the program runs. One entry
// per line:
//
//   disc NAME [sold]     the disc is the folder NAME (without this line: "disc"). A missing one
//                        is created: a blank CD-R, or a sold disc with two tracks of four
//                        seconds. Another name is another inserted disc.
//   disc none            the tray is empty
//   getting-ready N      during the next N commands the drive is still loading the disc
//   read-error N         sector N cannot be read
//   wrong-sample N       the first sample of sector N is read wrong
//   late N               sound is read N frames late, or early for a negative number
//   write-error N        sector N cannot be written
//   no-sao               the drive cannot write Disc At Once
//   no-cdtext            it cannot write text into the lead-in
//   no-writer            the drive cannot write at all
//   busy                 another program uses the drive
//   disconnected         the cable is unplugged
//   disconnect-at N      it is unplugged when sector N is written; "disconnected" is added then
//   pace N               N sectors a second, for reading and for writing
//   log                  commands are written to the file "log"
//
// There is no entry for programs that start when a disc is inserted. On this system no program is
// started, so the drive's registry value for it is always "0".
#pragma once

#include <filesystem>
#include <string>

namespace vantora::emulated {

struct Script {
  static constexpr int kNone = -1'000'000;  // not a sector, not even of a lead-in

  std::string Disc = "disc", MadeAs;
  int GettingReady = 0;
  int ReadError = kNone, WrongSample = kNone, WriteError = kNone, DisconnectAt = kNone;
  bool NoSao = false, NoCdText = false, NoWriter = false, Busy = false, Disconnected = false,
       Log = false;
  int Pace = 0, Late = 0;

  static Script Load(const std::filesystem::path& folder);
};

}  // namespace vantora::emulated
