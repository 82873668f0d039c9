// An emulated CD-RW drive that speaks MMC, as far as sound is read from and written to one session.
// It knows nothing of system calls: a command and the bytes sent go in, the bytes that come back
// and the sense go out.
//
// What it cannot show, and what stays untested with it: timing (a real drive's buffer underruns,
// spin-up, waiting times of a real fixation), several sessions, writing data tracks, raw and packet
// writing, catalog numbers and ISRCs, reading subchannels, C2 pointers and jitter, audio played by
// the drive itself, DVD. Commands that only those would need (RESERVE TRACK, SET STREAMING, READ
// SUB-CHANNEL) are refused as unknown. Nor does it show what a particular maker's drive does wrong.
#pragma once

#include "tests/emulators/drive/disc.h"
#include "tests/emulators/drive/script.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>

namespace vantora::bottle {

struct Sense {
  int Key = 0, Asc = 0, Ascq = 0;  // key 0: all is well
};

struct CablePulled {};  // while a command was carried out

struct Answer {
  Sense Trouble;
  Bytes Data;
  bool Gone = false;  // there is no drive any more that could answer
};

class Drive {
 public:
  explicit Drive(std::filesystem::path folder);

  Answer Do(const Bytes& command, const Bytes& sent);

 private:
  enum class Needs { Nothing, Calm, Disc };  // Calm: a change of the disc is told first
  struct Command {
    Bytes (Drive::*Do)(const Bytes& command, const Bytes& sent);
    const char* Name;
    unsigned char Code;
    Needs What;
  };
  static const Command kCommands[];

  void LookAtDisc();
  void MakeDisc(const std::filesystem::path& folder) const;
  std::string DiscOnFile() const;
  Bytes Obey(const Command& command, const Bytes& bytes, const Bytes& sent);
  void Log(const Command* known, const Bytes& command, const Bytes& sent, Sense trouble) const;
  void Take(int sectors) const;  // the time that so many sectors need

  Bytes TestUnitReady(const Bytes&, const Bytes&);
  Bytes RequestSense(const Bytes&, const Bytes&);
  Bytes Inquiry(const Bytes&, const Bytes&);
  Bytes StartStop(const Bytes& command, const Bytes&);
  Bytes Prevent(const Bytes& command, const Bytes&);
  Bytes ModeSense(const Bytes& command, const Bytes&);
  Bytes ModeSelect(const Bytes&, const Bytes& sent);
  Bytes GetConfiguration(const Bytes&, const Bytes&);
  Bytes GetEvent(const Bytes& command, const Bytes&);
  Bytes GetPerformance(const Bytes& command, const Bytes&);
  Bytes SetSpeed(const Bytes& command, const Bytes&);
  Bytes ReadDiscInformation(const Bytes&, const Bytes&);
  Bytes ReadTrackInformation(const Bytes& command, const Bytes&);
  Bytes ReadToc(const Bytes& command, const Bytes&);
  Bytes ReadCapacity(const Bytes&, const Bytes&);
  Bytes ReadBufferCapacity(const Bytes&, const Bytes&);
  Bytes Read10(const Bytes& command, const Bytes&);
  Bytes ReadCd(const Bytes& command, const Bytes&);

  Bytes SendOpc(const Bytes&, const Bytes&);
  Bytes SendCueSheet(const Bytes&, const Bytes& sent);
  Bytes Write10(const Bytes& command, const Bytes& sent);
  Bytes SynchronizeCache(const Bytes&, const Bytes&);
  Bytes Close(const Bytes& command, const Bytes&);

  Bytes Capabilities() const;
  Bytes Sectors(int sector, int count, bool whole);
  bool OnAudio(int sector) const;
  bool AtOnce() const { return (writeParameters_[2] & 0xf) == 2; }
  int Profile() const;
  Disc& Target() { return dry_ ? *dry_ : *disc_; }
  static constexpr int kNowhere = 0x7fffffff;
  int NextWritable();
  void Keep();
  void EndTrack();
  void EndSession();

  std::filesystem::path folder_;
  Script script_;
  std::optional<Disc> disc_, dry_;
  std::string seen_;  // what the disc was when it was looked at last
  bool attention_ = false, ejected_ = false, locked_ = false;
  int event_ = 0;  // of the medium, not yet asked for
  int gettingReady_ = 0, gettingReadySaid_ = 0;
  int writeSpeed_ = 0;  // kB/s
  std::array<unsigned char, 52> writeParameters_{};

  bool writing_ = false;
  int next_ = 0;        // sector that the next write has to begin at
  int trackStart_ = 0;  // Track At Once
  std::vector<DiscTrack> cue_;
  int cueEnd_ = 0;
  Bytes leadIn_;
};

}  // namespace vantora::bottle
