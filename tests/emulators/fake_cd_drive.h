// A simulated CD drive. It has a disc with tracks or none, reads them into wave files at its own
// pace, and plays without sound. Tests set its faults.
#pragma once

#include "tests/backends/sound/wave_bytes.h"

#include "platform/acd.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/laufzeitfehler.h"
#include "platform/mci.h"

namespace vantora {

struct FakeTrack {
  int Sectors = 0;  // 75 a second
  bool Audio = true;
  bool Preemphasis = false;
};

// The disc and the faults of the drive, shared by its reader and its player.
struct FakeDrive {
  static constexpr int kSectorBytes = 2352;
  static constexpr int kSectorsASecond = 75;

  std::vector<FakeTrack> Disc;  // empty: no disc
  bool Dead = false;            // answers with a mode below 500
  bool Shut = false;            // cannot be opened
  int TakenOutAfter = 0;        // number of Tracks() calls after which the disc is taken out
  int ReadErrors = 0;           // number of reads to fail half way
  int ErrorCode = 3;
  Text ErrorText = L"ASPI Error";
  int RefuseTrack = 0;  // ReadTrack returns 5 for it
  int BreakTrack = 0;   // ReadTrack raises 70 for it
  int ReadMs = 1000;    // time for a whole track

  const FakeTrack* Find(int track) const {
    const auto place = static_cast<std::size_t>(track - 1);
    return track >= 1 && place < Disc.size() ? &Disc[place] : nullptr;
  }
  static int Ms(int sectors) {
    return static_cast<int>(static_cast<std::int64_t>(sectors) * 1000 / kSectorsASecond);
  }
  // The sound of a track. Tracks differ from each other.
  static std::string Sound(int track, int sectors) {
    return test::Noise(static_cast<std::size_t>(sectors) * kSectorBytes,
                       static_cast<std::uint32_t>(track));
  }
};

class FakeReader final : public Acd {
 public:
  FakeReader(FakeDrive& drive, EventLoop& loop, Dateien& files)
      : drive_(drive), loop_(loop), files_(files) {}

  int Init() override { return 0; }
  int DriveCount() override { return 1; }
  Text DriveDescription(int /*device*/) override { return L"VANTORA IMAGE       07 00"; }
  void SelectDevice(int device) override { Selected = device; }
  void CloseDevice() override {
    Stop();
    Selected = 0;
  }
  void ResetDevice() override {}
  int TrackLaengeSektoren(int track) override { return Here(track).Sectors; }
  bool TrackIstAudio(int track) override { return Here(track).Sectors > 0 && Here(track).Audio; }
  bool TrackPreemphasis(int track) override {
    return TrackIstAudio(track) && Here(track).Preemphasis;
  }
  void ReadOffset(int frames) override { Offset = frames; }
  int TrackLaengeMs(int track) override { return FakeDrive::Ms(TrackLaengeSektoren(track)); }
  int ReadTrack(int track, const Text& file) override {
    Stop();
    if (TrackLaengeSektoren(track) == 0) return 1;
    if (track == drive_.RefuseTrack) return 5;
    if (track == drive_.BreakTrack) throw Laufzeitfehler(kFehlerZugriff, L"Sin permiso.");
    track_ = track;
    file_ = file;
    Step(0);
    return 0;
  }
  void RetryRead() override {
    ++Retries;
    Step(position_);
  }
  bool Reading() const { return track_ != 0; }

  int Selected = 0;
  int Retries = 0;
  int Offset = 0;

 private:
  static constexpr int kSteps = 10;

  FakeTrack Here(int track) const {
    const FakeTrack* found = Selected == 1 ? drive_.Find(track) : nullptr;
    return found != nullptr ? *found : FakeTrack{};
  }
  void Stop() {
    ++token_;
    track_ = 0;
  }
  void Step(int position) {
    position_ = position;
    loop_.PostAfter(drive_.ReadMs / kSteps, [this, token = token_] {
      if (token == token_) Arrive();
    });
  }
  void Arrive() {
    if (position_ == kSteps / 2 && drive_.ReadErrors > 0) {
      --drive_.ReadErrors;
      Events.ACD_Failure(drive_.ErrorCode, drive_.ErrorText);
      return;
    }
    const int next = position_ + 1;
    Events.ACD_ActPosition(next * 1000 / kSteps);
    if (next < kSteps) return Step(next);
    Write();
    Stop();
    Events.ACD_ReadComplete();
  }
  void Write() {
    const std::string sound = FakeDrive::Sound(track_, TrackLaengeSektoren(track_));
    const std::string wave = test::Wave(sound);
    files_.Open(file_, Zugriff::Neu)->Write(wave.data(), wave.size());
  }

  FakeDrive& drive_;
  EventLoop& loop_;
  Dateien& files_;
  Text file_;
  int track_ = 0, position_ = 0;
  int token_ = 0;  // of the running read
};

class FakePlayer final : public MMControl {
 public:
  explicit FakePlayer(FakeDrive& drive) : drive_(drive) {}

  void FileName(const Text& /*name*/) override {}
  void DeviceType(const Text& /*type*/) override {}
  void UpdateInterval(int /*ms*/) override {}
  void Command(const Text& command) override {
    if (command == L"Open") {
      ++Opened;
      open_ = !drive_.Shut && !drive_.Dead;
    }
    if (command == L"Close") open_ = false;
    if (!open_ || command == L"Stop") Playing = 0;
    if (!open_) return;
    if (command == L"seek") at_ = to_;
    if (command == L"play") Playing = at_;
    if (command == L"Pause") Playing = -at_;
  }
  int Mode() override {
    return drive_.Dead ? 0 : !open_ ? kMciNotOpen : Ended ? kMciStop : kMciReady;
  }
  int Tracks() override {
    const auto tracks = open_ ? static_cast<int>(drive_.Disc.size()) : 0;
    if (drive_.TakenOutAfter > 0 && --drive_.TakenOutAfter == 0) drive_.Disc.clear();
    return tracks;
  }
  int Length() override {
    int sectors = 0;
    for (const FakeTrack& track : drive_.Disc) sectors += track.Sectors;
    return Time(sectors);
  }
  void Track(int track) override { track_ = track; }
  int TrackLength() override {
    const FakeTrack* found = drive_.Find(track_);
    return found != nullptr ? Time(found->Sectors) : 0;
  }
  void TimeFormat(int format) override { format_ = format; }
  int TimeFormat() override { return format_; }
  int Position() override { return std::abs(at_) | 1 << 8 | 23 << 16; }  // 1:23 into the track
  void To(int position) override { to_ = position; }

  int Playing = 0;     // the track; negative when paused
  int Opened = 0;      // number of "Open" commands
  bool Ended = false;  // the disc has been played to its end

 private:
  int Time(int sectors) const { return format_ == kMciMilliseconds ? FakeDrive::Ms(sectors) : -1; }

  FakeDrive& drive_;
  bool open_ = false;
  int track_ = 0, to_ = 1, at_ = 1, format_ = kMciTmsf;
};

}  // namespace vantora
