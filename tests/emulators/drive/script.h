// What befalls the drive, from the file "script" in the folder of the bottle. It is read anew at
// every command, so that a test or a story changes it while the program runs. One thing a line:
//
//   disc NAME [rw|sold]  the disc is the folder NAME (without this line: "disc"). One that is
//                        missing is made: a blank CD-R, a blank CD-RW, or a sold disc with two
//                        tracks of four seconds. Another name is another disc laid in.
//   disc none            the tray is empty
//   getting-ready N      the next N commands find the drive still taking the disc in
//   read-error N         sector N cannot be read
//   write-error N        sector N cannot be written
//   no-sao               the drive cannot write Disc At Once
//   no-cdtext            it cannot write text into the lead-in
//   no-writer            the drive cannot write at all
//   busy                 another program holds the drive
//   disconnected         the cable is pulled
//   disconnect-at N      it will be when sector N is written: "disconnected" is added then
//   pace N               N sectors a second, for reading and for writing
//   log                  commands are told in the file "log"
//
// There is no line for programs that start by themselves with a disc laid in: here the system tells
// no program of a disc, so that the drive's value for it in the device registry is always "0" and
// there is nothing that a script could switch.
#pragma once

#include <filesystem>
#include <string>

namespace vantora::bottle {

struct Script {
  static constexpr int kNone = -1'000'000;  // no sector, not of a lead-in either

  std::string Disc = "disc", MadeAs;
  int GettingReady = 0;
  int ReadError = kNone, WriteError = kNone, DisconnectAt = kNone;
  bool NoSao = false, NoCdText = false, NoWriter = false, Busy = false, Disconnected = false,
       Log = false;
  int Pace = 0;

  static Script Load(const std::filesystem::path& folder);
};

}  // namespace vantora::bottle
