// An emulated CD-RW drive with the MMC command set, as far as audio of one session needs it. It
// knows no system calls: it receives a command and data, and returns data and sense.
//
// It does not show, so tests with it do not cover: timing (buffer underruns, spin-up and fixation
// times of a real drive), several sessions, writing of data tracks, raw and packet writing, catalog
// numbers and ISRCs, reading of subchannels, C2 pointers and jitter, audio played by the drive
// itself, user data of data tracks, reading of CD-TEXT, opening of the tray, and DVDs. Commands for
// these alone (RESERVE TRACK, SET STREAMING, READ(10)) are refused as unknown. Faults of particular
// models are not emulated either.
#pragma once

#include "tests/emulators/drive/disc.h"
#include "tests/emulators/drive/script.h"

#include <array>

namespace vantora::emulated {

struct Sense {
  int Key = 0, Asc = 0, Ascq = 0;  // key 0: success
};

struct CablePulled {};  // thrown during a command

struct Answer {
  Sense Trouble;
  Bytes Data;
  bool Gone = false;  // the drive no longer answers
};

class Drive {
 public:
  explicit Drive(std::filesystem::path folder);

  Answer Do(const Bytes& command, const Bytes& sent);

 private:
  enum class Needs { Nothing, Calm, Disc };  // Calm: a change of the disc is reported first
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
  void Log(const Command* known, const Bytes& command, Sense trouble) const;
  void Take(int sectors) const;  // waits for the time that these sectors need

  Bytes Accept(const Bytes&, const Bytes&);
  Bytes Inquiry(const Bytes&, const Bytes&);
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
  Bytes ReadCd(const Bytes& command, const Bytes&);

  Bytes SendCueSheet(const Bytes&, const Bytes& sent);
  Bytes Write10(const Bytes& command, const Bytes& sent);
  Bytes SynchronizeCache(const Bytes&, const Bytes&);
  Bytes Close(const Bytes& command, const Bytes&);

  Bytes Capabilities() const;
  bool OnAudio(int sector) const;
  bool ReadSound(int sector, int count, Bytes& sectors) const;
  bool AtOnce() const { return (writeParameters_[2] & 0xf) == 2; }
  Disc& Target() { return dry_ ? *dry_ : *disc_; }
  static constexpr int kNowhere = 0x7fffffff;
  int NextWritable();
  void Keep();
  void EndTrack();
  void EndSession();

  std::filesystem::path folder_;
  Script script_;
  std::optional<Disc> disc_, dry_;
  std::string seen_;  // the disc at the last check
  bool attention_ = false;
  int event_ = 0;  // change of the medium, not yet reported
  int gettingReady_ = 0, gettingReadySaid_ = 0;
  int writeSpeed_ = 0;  // in kB/s
  std::array<unsigned char, 52> writeParameters_{};

  bool writing_ = false;
  int next_ = 0;        // sector at which the next write must begin
  int trackStart_ = 0;  // of the track being written, Track At Once
  std::vector<DiscTrack> cue_;
  int cueEnd_ = 0;
  Bytes leadIn_;
};

}  // namespace vantora::emulated
