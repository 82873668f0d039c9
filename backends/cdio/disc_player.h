// Plays a disc by reading it digitally, under the names of the media control interface.
//
// After Open, the mode is 530 when the drive exists, with or without a disc; `Tracks` shows which.
// The mode is below 500 when access to the drive is denied or another program uses it exclusively.
// Playing goes on to the end of the disc or to the first data track. The position is that of the
// sound heard now, and after a stop the beginning of its track. Play raises 57 when the sound card
// refuses.
#pragma once

#include "backends/cdio/disc_drives.h"

#include "platform/event_loop.h"
#include "platform/mci.h"
#include "platform/sound_output.h"

#include <memory>

namespace vantora {

class DiscPlayer final : public MMControl {
 public:
  DiscPlayer(EventLoop& loop, const DiscDrives& drives, SoundOutput& output)
      : loop_(loop), drives_(drives), output_(output) {}

  // "D:\"; the first drive when blank or never set. Takes effect at the next Open.
  void FileName(const Text& name) override { fileName_ = name; }
  void DeviceType(const Text& /*type*/) override {}  // this device plays audio discs only
  void UpdateInterval(int ms) override;
  void Command(const Text& command) override;
  int Mode() override { return mode_; }
  int Tracks() override;
  int Length() override { return InFormat(0); }
  SheetFault Fault() override { return fault_; }
  void Track(int track) override { track_ = track; }
  int TrackLength() override;
  void TimeFormat(int format) override { format_ = format; }
  int TimeFormat() override { return format_; }
  int Position() override;
  void To(int position) override { to_ = position; }

  // "02:01:30:00": track, minutes, seconds, frames, in the format of the command string. Blank
  // while no disc is open.
  Text PositionText();

 private:
  struct Place {
    int Track, Sectors;  // sectors from the start of the track
  };

  bool IsOpen() const { return mode_ > kMciNotOpen; }
  void Open();
  void Close();
  void Play();
  void Halt(int mode);
  void Stop();
  void Seek();
  void LookAtMedium();
  int Sector() const;  // the sector heard now, or to be played next
  Place Here() const;
  int InFormat(int track) const;
  void Tick(const std::weak_ptr<int>& interval);

  EventLoop& loop_;
  const DiscDrives& drives_;
  SoundOutput& output_;
  Text fileName_;
  int mode_ = kMciNotOpen;
  int track_ = 1, format_ = kMciMilliseconds, to_ = 0;
  int intervalMs_ = 0;
  std::shared_ptr<int> interval_;  // replaced by each UpdateInterval
  DiscDrive drive_;
  std::shared_ptr<Disc> disc_;
  SheetFault fault_;                     // found at the last look at the drive
  int sector_ = 0;                       // current position, or where playing began
  std::unique_ptr<SoundStream> stream_;  // after `disc_`, since its thread reads the disc
};

}  // namespace vantora
