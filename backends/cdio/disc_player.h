// Plays a disc by reading it into the loudspeaker, under the media control's names.
//
// Open answers 530 whenever there is such a drive, with a disc or without: `Tracks` tells. A drive
// that may not be used, since it belongs to others or somebody else holds it, has a mode below 500.
// Playing goes on to the end of the disc, or to the first data track; the position is that of what
// is heard, and after a stop the beginning of its track. Play raises 57 when the sound card
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

  // "D:\"; blank, or never set: the first drive. Counts at the next Open.
  void FileName(const Text& name) override { fileName_ = name; }
  void DeviceType(const Text& /*type*/) override {}  // it plays discs alone
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

  // "02:01:30:00": track, minutes, seconds, frames, as the command string answers; blank while no
  // disc is open.
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
  int Sector() const;  // that is heard, or that would be played next
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
  std::shared_ptr<int> interval_;  // a new one for each UpdateInterval
  DiscDrive drive_;
  std::shared_ptr<Disc> disc_;
  SheetFault fault_;                     // at the last look at the drive
  int sector_ = 0;                       // where it stands, or began to play
  std::unique_ptr<SoundStream> stream_;  // behind `disc_`: its thread reads it
};

}  // namespace vantora
