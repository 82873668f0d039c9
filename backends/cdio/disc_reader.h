// Reads tracks digitally: from optical drives with the paranoia reader, from the embedded drive
// unchanged from the image. Pre-emphasis is removed.
//
// However a read ends, the file's header matches the sound that the file holds. A file that cannot
// be created is refused with the number of the error. Every failure that interrupts a read, also
// one of the disk with the file, is reported as "ASPI Error" with the number of the error as its
// code, since this is the only failure after which callers offer to try again.
//
// A drive may need many seconds to answer at a scratch. Ending a read does not wait for that: the
// read ends by itself, and only opening the drive again may wait a while.
#pragma once

#include "backends/cdio/disc_drives.h"

#include "platform/acd.h"
#include "platform/background.h"
#include "platform/event_loop.h"

#include <memory>

namespace vantora {

class TrackRead;

class DiscReader final : public Acd {
 public:
  DiscReader(Dateien& files, EventLoop& loop, Background& background, const DiscDrives& drives);
  ~DiscReader() override;

  // Speed of the next read as a multiple of playing speed, for tests and demonstrations; 0 for no
  // limit.
  double Pace = 0;

  int Init() override { return 0; }
  int DriveCount() override { return static_cast<int>(drives_.All().size()); }
  Text DriveDescription(int device) override;
  void SelectDevice(int device) override;
  void CloseDevice() override;  // ends a running read
  void ResetDevice() override { CloseDevice(); }

  int TrackLaengeSektoren(int track) override;
  bool TrackIstAudio(int track) override;
  bool TrackPreemphasis(int track) override;
  void ReadOffset(int frames) override { offset_ = frames; }
  int TrackLaengeMs(int track) override { return CdMilliseconds(TrackLaengeSektoren(track)); }
  int ReadTrack(int track, const Text& file) override;  // also refuses data tracks
  void RetryRead() override;

 private:
  Disc* Medium();
  void StartSlices();
  void Ended(int code);
  void Abandon();
  void AwaitAbandoned();

  Dateien& files_;
  EventLoop& loop_;
  Background& background_;
  const DiscDrives& drives_;
  int device_ = 1;
  bool selected_ = false;
  int offset_ = 0;  // of the current device
  std::shared_ptr<Disc> disc_;
  // Posted events carry the token of their read, so that events of an abandoned read are dropped.
  std::shared_ptr<int> token_ = std::make_shared<int>(0);
  bool failed_ = false;  // the read waits for RetryRead
  std::shared_ptr<TrackRead> read_;
  std::unique_ptr<BackgroundJob> job_;  // after `read_`, so that it ends first
  std::weak_ptr<TrackRead> abandoned_;  // may still be waiting for the drive
};

}  // namespace vantora
